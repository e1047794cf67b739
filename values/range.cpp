#include "values/range.h"

#include "base/number.h"

#include <algorithm>
#include <vector>

namespace values {
namespace {

// An empty text after the last comma is no part.
std::vector<WideStringView> PartsOf(WideStringView range) {
  std::vector<WideStringView> parts;
  for (std::size_t comma = range.find(u','); comma != WideStringView::npos; comma = range.find(u',')) {
    parts.push_back(range.substr(0, comma));
    range.remove_prefix(comma + 1);
  }
  if (!range.empty()) parts.push_back(range);
  return parts;
}

WideStringView LowText(WideStringView part) { return part.substr(0, part.rfind(u'-')); }

WideStringView HighText(WideStringView part) {
  const std::size_t dash = part.rfind(u'-');
  return dash == WideStringView::npos ? part : part.substr(dash + 1);
}

bool IsSpan(WideStringView part) { return part.find(u'-') != WideStringView::npos; }

}  // namespace

bool InRange(std::int32_t value, WideStringView range) {
  if (range.empty()) return true;
  const std::vector<WideStringView> parts = PartsOf(range);
  if (parts.size() == 2 && !IsSpan(parts[0]) && !IsSpan(parts[1])) {
    return base::ToLong(parts[0]) <= value && value <= base::ToLong(parts[1]);
  }
  return std::any_of(parts.begin(), parts.end(), [value](WideStringView part) {
    return base::ToLong(LowText(part)) <= value && value <= base::ToLong(HighText(part));
  });
}

WideString MaskFromRange(WideStringView range) {
  std::size_t length = 0;
  for (const WideStringView part : PartsOf(range)) length = std::max(length, HighText(part).size());
  return WideString(length, u'#');
}

}  // namespace values
