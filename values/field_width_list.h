// The layout of a command property's value: a record of fields of fixed widths.
#pragma once

#include "base/wide_string.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace values {

class FieldWidthList {
 public:
  // `text`: decimal numbers between commas, the number of fields and then each field's width in characters. Never
  // fails; what is no number counts as 0.
  explicit FieldWidthList(WideString text);

  const WideString& Text() const { return text_; }
  int Count() const { return static_cast<int>(widths_.size()); }
  // The number of fields as the text itself states it.
  std::int32_t StatedCount() const { return statedCount_; }

  // Fields are counted from 0. -1: there is no such field.
  std::int32_t Width(std::int32_t index) const;
  // The sum of the widths before the field, at most the sum of all.
  std::int32_t Start(std::int32_t index) const;
  // A "#" for each character of the record, up to 4096.
  WideString Mask() const;

  // The field's characters in a record, fewer where the record ends and at most 260. Nothing when the layout has no
  // such field or the record ends before it.
  std::optional<WideString> Field(WideStringView record, std::int32_t index) const;

  static constexpr std::size_t kMaxFieldLength = 260;

 private:
  void Add(std::int32_t width);

  WideString text_;
  std::int32_t statedCount_ = 0;
  std::vector<std::int32_t> widths_;
  std::vector<std::int32_t> ends_;  // the sums of the widths up to and with each field
};

}  // namespace values
