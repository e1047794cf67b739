// The device's texts as values of messages, and back.
#pragma once

#include "snmp/message.h"

#include <optional>

namespace snmp {

// By the type's name, in any case; a type that the table does not name travels as octets, in UTF-8. So does a text that
// is no value of its type (an empty "Integer", "007"): who reads gets what the device says.
Value ValueOf(WideStringView type, WideStringView text);

// What a Set makes of a setting that now has the text `current`. kNoError, or why the value cannot be taken; then
// `text` is as it was. Octets are also taken where `current` travels so.
ErrorStatus TextOf(const Value& value, WideStringView type, WideStringView current, WideString& text);

// The type by which values of a named one travel.
ValueType TravelsAs(WideStringView type);

// --- as a manager has them ---

// What a received value reads as; its own type decides. Nothing for what is no value.
std::optional<WideString> ReceivedText(const Value& value);

// Whether that text lacks some of the octets: such a one must not be sent back.
bool IsDamagedText(const Value& value);

// Whether only the device itself writes values of that type: counters, times, identifiers.
bool IsWrittenByTheDeviceAlone(ValueType type);

// What is sent to have a device take a text as a value of that type; nothing when it is none. A number may have a plus
// and begin with zeros.
std::optional<Value> ValueToSend(ValueType type, WideStringView text);

// Whether values of that type are read back in clear by whoever may read them: passwords and keys.
bool IsSecret(WideStringView type);

}  // namespace snmp
