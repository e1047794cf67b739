#include "values/property_value.h"

#include "base/number.h"

namespace values {

PropertyValue PropertyValue::OfInteger(std::int32_t number) {
  PropertyValue value;
  value.kind_ = Kind::kInteger;
  value.number_ = number;
  return value;
}

PropertyValue PropertyValue::OfText(WideString text) {
  PropertyValue value;
  value.kind_ = Kind::kText;
  value.text_ = std::move(text);
  return value;
}

std::int32_t PropertyValue::AsInteger() const { return IsText() ? base::ToLong(text_) : number_; }

WideString PropertyValue::AsText() const { return IsInteger() ? base::ToText(number_) : text_; }

}  // namespace values
