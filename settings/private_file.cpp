#include "settings/private_file.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/random.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

namespace settings {
namespace {

// A file that a folder does not hold for sure can be gone after a loss of power, whatever was synced into it.
bool SyncFolderOf(const std::filesystem::path& file) {
  const std::filesystem::path folder = file.has_parent_path() ? file.parent_path() : ".";
  const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return false;
  const bool synced = fsync(descriptor) == 0 || errno == EINVAL;
  close(descriptor);
  return synced;
}

}  // namespace

PrivateFile::~PrivateFile() {
  if (descriptor_ >= 0) close(descriptor_);
}

PrivateFile::PrivateFile(PrivateFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}

std::string PrivateFile::Create(const std::filesystem::path& file) {
  constexpr int kOwner = 0600;
  descriptor_ = open(file.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, kOwner);
  if (descriptor_ < 0) return file.string() + ": cannot be made: " + std::strerror(errno);
  return SyncFolderOf(file) ? std::string() : file.string() + ": its folder cannot be synced";
}

std::string PrivateFile::Open(const std::filesystem::path& file, std::size_t size) {
  descriptor_ = open(file.c_str(), O_WRONLY | O_APPEND | O_NOFOLLOW | O_CLOEXEC);
  const bool isOpen = descriptor_ >= 0 && ftruncate(descriptor_, static_cast<off_t>(size)) == 0;
  return isOpen ? std::string() : file.string() + ": cannot be written: " + std::strerror(errno);
}

bool PrivateFile::Append(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(descriptor_, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

bool PrivateFile::Sync() { return fdatasync(descriptor_) == 0 || errno == EINVAL; }

std::string RandomBytes(std::size_t count) {
  std::string bytes(count, '\0');
  std::size_t filled = 0;
  while (filled < count) {
    const ssize_t got = getrandom(bytes.data() + filled, count - filled, 0);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return {};
    filled += static_cast<std::size_t>(got);
  }
  return bytes;
}

// The limit counts where a core is a file, the other where a program takes it.
void LeaveNoCore() {
  const rlimit none = {};
  setrlimit(RLIMIT_CORE, &none);
  prctl(PR_SET_DUMPABLE, 0);
}

}  // namespace settings
