#include "values/shown_value.h"

#include "values/ip_address.h"
#include "values/property_descriptor.h"
#include "values/value_types.h"

#include <algorithm>

namespace values {
namespace {

std::optional<WideString> ChoiceTextOf(const ChoiceFormat& choices, const PropertyValue& value) {
  if (choices.Mode() == KeyMode::kText) return choices.GetText(value.AsText());
  const std::optional<std::size_t> index = choices.IndexOf(value);
  if (!index) return std::nullopt;
  return choices.Entries()[*index].text;
}

WideString ReadableText(const PropertyDescriptor& descriptor) {
  const PropertyValue& value = descriptor.GetValue();
  const ChoiceFormat choices = descriptor.Choices();
  if (std::optional<WideString> text = ChoiceTextOf(choices, value)) return *text;
  if (!value.IsInteger()) return value.AsText();

  const std::optional<TypeCode> code = TypeCodeOf(descriptor.HeldType());
  if (code == TypeCode::kIpAddress) return DottedIpAddress(value.AsInteger());
  const bool isPlainFlag = code == TypeCode::kBool && choices.Count() == 0;
  if (isPlainFlag) return WideString(value.AsInteger() != 0 ? kTrueText : kFalseText);
  return value.AsText();
}

WideString Stars(WideStringView text) {
  constexpr std::size_t kMost = 1023;
  return WideString(std::min(text.size(), kMost), u'*');
}

}  // namespace

WideString MaskedText(const PropertyDescriptor& descriptor, WideStringView text) {
  if (!descriptor.Resolve(TextId::kPassWordChar).empty()) return Stars(text);
  WideString fixedText = descriptor.Resolve(TextId::kWep);
  if (!fixedText.empty()) return fixedText;
  // A password or a key stays a secret where its author forgot to say so, and while it cannot be read.
  return MaskedText(descriptor.Attributes().Get(TextId::kType), text);
}

WideString MaskedText(WideStringView type, WideStringView text) {
  return IsSecretType(type) ? Stars(text) : WideString(text);
}

WideString ShownValue(const PropertyDescriptor& descriptor) {
  if (!base::EqualsIgnoringCase(descriptor.HeldType(), LoadText(TextId::kNone))) {
    return MaskedText(descriptor, ReadableText(descriptor));
  }
  if (descriptor.IsAvailable()) return {};
  WideString ownText = descriptor.Resolve(TextId::kUnavailable);
  return ownText.empty() ? WideString(LoadText(TextId::kUnavailable)) : ownText;
}

}  // namespace values
