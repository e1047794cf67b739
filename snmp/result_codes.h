// The device's result codes as errors of messages, and back.
#pragma once

#include "platform/device.h"
#include "snmp/message.h"

namespace snmp {

inline constexpr platform::ResultCode kInvalidArgument = static_cast<platform::ResultCode>(0x80070057);
using platform::kTimedOut;
inline constexpr platform::ResultCode kLogonFailure = static_cast<platform::ResultCode>(0x8007052E);

// What an agent says of a Set that its device refused with a failing code.
ErrorStatus ErrorOfFailedSet(platform::ResultCode code);

// What a manager makes of an answer's error; kOk for none.
platform::ResultCode ResultOfError(ErrorStatus status);

}  // namespace snmp
