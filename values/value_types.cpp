#include "values/value_types.h"

#include "base/number.h"
#include "values/ip_address.h"

#include <algorithm>
#include <iterator>

namespace values {
namespace {

constexpr TextId kTypeTexts[kTypeCodeCount] = {
    TextId::kNone,      TextId::kInteger,   TextId::kBool,     TextId::kOctetString,
    TextId::kIpAddress, TextId::kReaderCmd, TextId::kPassword, TextId::kHex,
};

// Types without a code: they are read, and shown as the device words them.
bool IsHeldAsTextOnly(WideStringView type) {
  constexpr TextId kTexts[] = {TextId::kCounter, TextId::kGauge, TextId::kTimeTicks, TextId::kOpaque};
  return std::any_of(std::begin(kTexts), std::end(kTexts),
                     [type](TextId id) { return base::EqualsIgnoringCase(type, LoadText(id)); });
}

}  // namespace

std::optional<TypeCode> TypeCodeOf(WideStringView type) {
  if (type == LoadText(TextId::kHex32)) return TypeCode::kHex;
  for (int code = 0; code < kTypeCodeCount; ++code) {
    const auto typeCode = static_cast<TypeCode>(code);
    if (base::EqualsIgnoringCase(type, TypeTextOf(typeCode))) return typeCode;
  }
  return std::nullopt;
}

WideStringView TypeTextOf(TypeCode code) { return LoadText(kTypeTexts[static_cast<std::size_t>(code)]); }

bool IsSecretType(WideStringView type) {
  const std::optional<TypeCode> code = TypeCodeOf(type);
  return code == TypeCode::kPassword || code == TypeCode::kHex;
}

TextId TypeIdOf(WideStringView type) {
  constexpr TextId kKnown[] = {TextId::kInteger, TextId::kOctetString, TextId::kBool,     TextId::kIpAddress,
                               TextId::kCounter, TextId::kGauge,       TextId::kTimeTicks};
  const auto* found =
      std::find_if(std::begin(kKnown), std::end(kKnown), [type](TextId id) { return type == LoadText(id); });
  return found == std::end(kKnown) ? TextId::kOpaque : *found;
}

void ParseValueAs(WideStringView type, WideStringView text, PropertyValue& value) {
  if (text.empty() || type.empty()) return;
  if (IsHeldAsTextOnly(type)) {
    value.SetText(WideString(text));
    return;
  }
  const std::optional<TypeCode> code = TypeCodeOf(type);
  if (!code) return;
  switch (*code) {
    case TypeCode::kNone: value.Clear(); break;
    case TypeCode::kInteger:
    case TypeCode::kBool:
      // A sign makes it a text: only what begins with a digit is a number.
      if (base::IsDigit(text.front())) {
        value.SetInteger(base::ToLong(text));
      } else {
        value.SetText(WideString(text));
      }
      break;
    case TypeCode::kIpAddress: value.SetInteger(IpAddressFromDotted(base::Trim(text))); break;
    case TypeCode::kOctetString:
    case TypeCode::kReaderCmd:
    case TypeCode::kPassword:
    case TypeCode::kHex: value.SetText(WideString(text)); break;
  }
}

}  // namespace values
