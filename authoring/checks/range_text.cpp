#include "authoring/checks/range_text.h"

#include "base/number.h"

#include <algorithm>

namespace authoring {
namespace {

bool IsNumber(WideStringView text) {
  if (text.starts_with(u'-')) text.remove_prefix(1);
  return !text.empty() && text.size() <= 10 && std::all_of(text.begin(), text.end(), base::IsDigit);
}

}  // namespace

std::vector<RangePart> PartsOfRange(WideStringView range) {
  std::vector<RangePart> parts;
  bool hasSpan = false;
  for (WideStringView rest = range; !rest.empty();) {
    const std::size_t comma = rest.find(u',');
    const WideStringView text = rest.substr(0, comma);
    rest = comma == WideStringView::npos ? WideStringView() : rest.substr(comma + 1);
    const std::size_t dash = text.rfind(u'-');
    const bool isSpan = dash != WideStringView::npos;
    hasSpan = hasSpan || isSpan;
    const WideStringView low = text.substr(0, dash);
    const WideStringView high = isSpan ? text.substr(dash + 1) : text;
    parts.push_back({text, base::ToLong(low), base::ToLong(high), IsNumber(low) && IsNumber(high)});
  }
  if (parts.size() != 2 || hasSpan) return parts;
  return {{range, parts[0].low, parts[1].low, parts[0].wellFormed && parts[1].wellFormed}};
}

}  // namespace authoring
