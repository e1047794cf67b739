#include "simulator/disk_sync.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace simulator {

bool SyncToDisk(const std::filesystem::path& file) {
  const int descriptor = open(file.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return false;
  const bool synced = fdatasync(descriptor) == 0 || errno == EINVAL;
  close(descriptor);
  return synced;
}

}  // namespace simulator
