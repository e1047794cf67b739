// Text is UTF-16 on every platform, so that lengths, limits and written files are exact.
#pragma once

#include <string>
#include <string_view>

namespace base {

using WideString = std::u16string;
using WideStringView = std::u16string_view;

// Compares as the configuration's case-blind names do: ASCII and Latin-1 letters fold, all else is exact.
bool EqualsIgnoringCase(WideStringView a, WideStringView b);

// Orders as the registry does: both texts in upper case, unit by unit.
bool LessIgnoringCase(WideStringView a, WideStringView b);

char16_t ToUpper(char16_t unit);
WideString ToUpper(WideStringView text);

// `text` without blanks, tabs and line ends at both ends.
WideStringView Trim(WideStringView text);

inline bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

}  // namespace base

using base::WideString;
using base::WideStringView;
