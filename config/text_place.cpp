#include "config/text_place.h"

#include "base/format.h"

#include <algorithm>

namespace config {
namespace {

constexpr char16_t kByteOrderMark = 0xFEFF;

// The second unit of a character that has two.
bool IsTrailing(char16_t unit) { return (unit & 0xFC00) == 0xDC00; }

}  // namespace

TextPlace PlaceIn(WideStringView text, std::size_t at) {
  WideStringView before = text.substr(0, at);
  if (before.starts_with(kByteOrderMark)) before.remove_prefix(1);
  const auto lines = std::count(before.begin(), before.end(), u'\n');
  const WideStringView line = before.substr(before.rfind(u'\n') + 1);
  const auto characters = std::count_if(line.begin(), line.end(), [](char16_t unit) { return !IsTrailing(unit); });
  return {static_cast<std::uint32_t>(lines + 1), static_cast<std::uint32_t>(characters + 1)};
}

WideString TextOf(const TextPlace& place) { return base::Format(u"%u:%u", place.line, place.column); }

}  // namespace config
