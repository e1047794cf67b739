// The value types of properties, by name and by code.
#pragma once

#include "base/string_table.h"
#include "base/wide_string.h"
#include "values/property_value.h"

#include <optional>

namespace values {

// Types with an editor, in the order of the editor table.
enum class TypeCode {
  kNone = 0,
  kInteger = 1,
  kBool = 2,
  kOctetString = 3,
  kIpAddress = 4,
  kReaderCmd = 5,
  kPassword = 6,
  kHex = 7,
};
inline constexpr int kTypeCodeCount = 8;

// How the two values of a "Bool" are shown.
inline constexpr WideStringView kTrueText = u"TRUE";
inline constexpr WideStringView kFalseText = u"FALSE";

// Without regard to case, but exactly "Hex32" is another name of "Hex". Nothing for any other text.
std::optional<TypeCode> TypeCodeOf(WideStringView type);

WideStringView TypeTextOf(TypeCode code);
// Of a password or a key.
bool IsSecretType(WideStringView type);

// The type's entry in the string table by exact comparison; kOpaque for all that are not of the seven known names.
TextId TypeIdOf(WideStringView type);

// Reads a value of a type from its text: a number where an integer's or a flag's text begins with a digit, the number
// of an IP address, nothing for "None", else the text. An empty text or type or an unknown type leaves `value` as it
// is.
void ParseValueAs(WideStringView type, WideStringView text, PropertyValue& value);

}  // namespace values
