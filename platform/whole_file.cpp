// What both platforms do alike.
#include "platform/files.h"

#include <new>

namespace platform {

std::optional<std::string> ReadWholeFile(WideStringView path) {
  std::string bytes;
  const auto place = [&bytes](std::size_t size) -> char* {
    try {
      bytes.resize(size);
      return bytes.data();
    } catch (const std::bad_alloc&) {
      return nullptr;
    }
  };
  if (!ReadWholeFile(path, place)) return std::nullopt;
  return bytes;
}

}  // namespace platform
