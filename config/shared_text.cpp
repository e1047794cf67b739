#include "config/shared_text.h"

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

Utf8Text::Utf8Text(std::size_t size) : units(std::make_unique_for_overwrite<char16_t[]>(size + SharedText::kPadding)) {}

Utf8Text::Utf8Text(std::string_view outside) : Utf8Text(outside.size()) { bytes = outside; }

// The bytes lie in the upper half of the text's own memory and are converted from there to its beginning.
std::optional<Utf8Text> Utf8Text::Read(const std::function<bool(const Place& place)>& read) {
  std::optional<Utf8Text> text;
  const auto place = [&](std::size_t size) {
    text = Utf8Text(size);
    char* const upperHalf = reinterpret_cast<char*>(text->units.get()) + size;
    text->bytes = {upperHalf, size};
    return upperHalf;
  };
  if (!read(place)) return std::nullopt;
  return text;
}

std::optional<Utf8Text> ReadTextFile(WideStringView path) {
  try {
    return Utf8Text::Read([path](const Utf8Text::Place& place) { return platform::ReadWholeFile(path, place); });
  } catch (const std::bad_alloc&) {
    return std::nullopt;
  }
}

}  // namespace config
