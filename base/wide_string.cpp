#include "base/wide_string.h"

#include <algorithm>

namespace base {

char16_t ToUpper(char16_t unit) {
  const bool asciiLetter = unit >= u'a' && unit <= u'z';
  const bool latinLetter = unit >= u'\u00E0' && unit <= u'\u00FE' && unit != u'\u00F7';
  return asciiLetter || latinLetter ? static_cast<char16_t>(unit - 0x20) : unit;
}

WideString ToUpper(WideStringView text) {
  WideString upper(text);
  for (char16_t& unit : upper) unit = ToUpper(unit);
  return upper;
}

bool EqualsIgnoringCase(WideStringView a, WideStringView b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char16_t x, char16_t y) { return ToUpper(x) == ToUpper(y); });
}

bool LessIgnoringCase(WideStringView a, WideStringView b) {
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                      [](char16_t x, char16_t y) { return ToUpper(x) < ToUpper(y); });
}

WideStringView Trim(WideStringView text) {
  constexpr WideStringView kBlanks = u" \t\r\n";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == WideStringView::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace base
