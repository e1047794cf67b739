#include "config/shared_text.h"

#include "base/utf8.h"
#include "platform/files.h"

#include <algorithm>
#include <new>
#include <utility>

namespace config {

SharedText::SharedText(WideStringView text) : length_(text.size()) {
  std::shared_ptr<char16_t[]> units = std::make_unique_for_overwrite<char16_t[]>(text.size());
  std::copy(text.begin(), text.end(), units.get());
  units_ = std::move(units);
}

SharedText::SharedText(std::shared_ptr<const char16_t[]> units, std::size_t length)
    : units_(std::move(units)), length_(length) {}

// The bytes are read into the upper half of the text's own memory and decoded from there to its beginning, so that the
// file is never held beside its text.
std::optional<SharedText> ReadTextFile(WideStringView path) {
  try {
    std::shared_ptr<char16_t[]> units;
    std::string_view bytes;
    const bool read = platform::ReadWholeFile(path, [&](std::size_t size) {
      units = std::make_unique_for_overwrite<char16_t[]>(size);
      char* const upperHalf = reinterpret_cast<char*>(units.get()) + size;
      bytes = {upperHalf, size};
      return upperHalf;
    });
    if (!read) return std::nullopt;
    const char16_t* const end = base::DecodeUtf8(bytes, units.get());
    const auto length = static_cast<std::size_t>(end - units.get());
    return SharedText(std::move(units), length);
  } catch (const std::bad_alloc&) {
    return std::nullopt;
  }
}

}  // namespace config
