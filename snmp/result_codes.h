// The device's result codes as errors of messages.
#pragma once

#include "platform/device.h"
#include "snmp/message.h"

namespace snmp {

// What an agent says of a Set that its device refused with a failing code.
ErrorStatus ErrorOfFailedSet(platform::ResultCode code);

}  // namespace snmp
