// The device's texts as values of messages, and back.
#pragma once

#include "snmp/message.h"

namespace snmp {

// By the type's name, in any case; a type that the table does not name travels as octets, in UTF-8. So does a text that
// is no value of its type (an empty "Integer", "007"): who reads gets what the device says.
Value ValueOf(WideStringView type, WideStringView text);

// What a Set makes of a setting that now has the text `current`. kNoError, or why the value cannot be taken; then
// `text` is as it was. Octets are also taken where `current` travels so.
ErrorStatus TextOf(const Value& value, WideStringView type, WideStringView current, WideString& text);

// Whether values of that type are read back in clear by whoever may read them: passwords and keys.
bool IsSecret(WideStringView type);

}  // namespace snmp
