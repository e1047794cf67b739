#include "values/field_width_list.h"

#include "base/number.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace values {

FieldWidthList::FieldWidthList(WideString text) : text_(std::move(text)) {
  statedCount_ = base::ToLong(text_);
  WideStringView rest = text_;
  for (std::size_t comma = rest.find(u','); comma != WideStringView::npos; comma = rest.find(u',')) {
    rest.remove_prefix(comma + 1);
    if (!rest.empty()) Add(base::ToLong(rest));
  }
}

void FieldWidthList::Add(std::int32_t width) {
  constexpr std::int64_t kSmallest = std::numeric_limits<std::int32_t>::min();
  constexpr std::int64_t kLargest = std::numeric_limits<std::int32_t>::max();

  widths_.push_back(width);
  const std::int64_t end = std::int64_t{ends_.empty() ? 0 : ends_.back()} + width;
  ends_.push_back(static_cast<std::int32_t>(std::clamp(end, kSmallest, kLargest)));
}

std::int32_t FieldWidthList::Width(std::int32_t index) const {
  const bool exists = index >= 0 && index < Count();
  return exists ? widths_[static_cast<std::size_t>(index)] : -1;
}

std::int32_t FieldWidthList::Start(std::int32_t index) const {
  const std::int32_t before = std::min(index, Count());
  return before < 1 ? 0 : ends_[static_cast<std::size_t>(before) - 1];
}

WideString FieldWidthList::Mask() const {
  // Widths are a configuration's say-so; no entry field holds more.
  constexpr std::int32_t kLongestMask = 4096;
  return WideString(static_cast<std::size_t>(std::clamp(Start(Count()), 0, kLongestMask)), u'#');
}

std::optional<WideString> FieldWidthList::Field(WideStringView record, std::int32_t index) const {
  const std::int32_t width = Width(index);
  const std::int32_t start = Start(index);
  if (width <= 0 || start < 0 || static_cast<std::size_t>(start) >= record.size()) return std::nullopt;
  const std::size_t length = std::min(static_cast<std::size_t>(width), kMaxFieldLength);
  const WideStringView field = record.substr(static_cast<std::size_t>(start), length);
  return WideString(field.substr(0, field.find(u'\0')));
}

}  // namespace values
