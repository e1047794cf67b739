// What a property holds: nothing, a 32-bit number or a text.
#pragma once

#include "base/wide_string.h"

#include <cstdint>
#include <utility>

namespace values {

class PropertyValue {
 public:
  PropertyValue() = default;
  static PropertyValue OfInteger(std::int32_t number);
  static PropertyValue OfText(WideString text);

  void Clear() { *this = PropertyValue(); }
  void SetInteger(std::int32_t number) { *this = OfInteger(number); }
  void SetText(WideString text) { *this = OfText(std::move(text)); }

  bool IsEmpty() const { return kind_ == Kind::kEmpty; }
  bool IsInteger() const { return kind_ == Kind::kInteger; }
  bool IsText() const { return kind_ == Kind::kText; }

  // A text counts as the number it begins with; 0 when it begins with none, and when the value is empty.
  std::int32_t AsInteger() const;
  // A number reads as its decimal text, an empty value as the empty text.
  WideString AsText() const;

  bool operator==(const PropertyValue&) const = default;

 private:
  enum class Kind { kEmpty, kInteger, kText };

  Kind kind_ = Kind::kEmpty;
  std::int32_t number_ = 0;
  WideString text_;
};

}  // namespace values
