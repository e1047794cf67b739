#include "config/shared_text.h"

#include "base/utf8.h"
#include "platform/files.h"

#include <algorithm>
#include <new>
#include <utility>

namespace config {

SharedText::SharedText(std::shared_ptr<const char16_t[]> units, std::size_t length)
    : units_(std::move(units)), length_(length) {}

SharedText::SharedText(WideStringView text) : length_(text.size()) {
  std::shared_ptr<char16_t[]> units = std::make_unique_for_overwrite<char16_t[]>(text.size() + kPadding);
  std::copy(text.begin(), text.end(), units.get());
  std::fill_n(units.get() + text.size(), kPadding, u'\0');
  units_ = std::move(units);
}

SharedText SharedText::Decoded(std::string_view bytes, std::shared_ptr<char16_t[]> units) {
  char16_t* const end = base::DecodeUtf8(bytes, units.get());
  std::fill_n(end, kPadding, u'\0');
  const auto length = static_cast<std::size_t>(end - units.get());
  return {std::move(units), length};
}

SharedText SharedText::FromUtf8(std::string_view bytes) {
  std::shared_ptr<char16_t[]> units = std::make_unique_for_overwrite<char16_t[]>(bytes.size() + kPadding);
  return Decoded(bytes, std::move(units));
}

// The bytes lie in the upper half of the text's own memory and are decoded from there to its beginning, so that they
// are never held beside their text.
std::optional<SharedText> SharedText::FromUtf8(const std::function<bool(const Place& place)>& read) {
  std::shared_ptr<char16_t[]> units;
  std::string_view bytes;
  const auto place = [&](std::size_t size) {
    units = std::make_unique_for_overwrite<char16_t[]>(size + kPadding);
    char* const upperHalf = reinterpret_cast<char*>(units.get()) + size;
    bytes = {upperHalf, size};
    return upperHalf;
  };
  if (!read(place) || !units) return std::nullopt;
  return Decoded(bytes, std::move(units));
}

std::optional<SharedText> ReadTextFile(WideStringView path) {
  try {
    return SharedText::FromUtf8(
        [path](const SharedText::Place& place) { return platform::ReadWholeFile(path, place); });
  } catch (const std::bad_alloc&) {
    return std::nullopt;
  }
}

}  // namespace config
