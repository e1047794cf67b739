// An edit that waits to be sent to the device.
#pragma once

#include "base/wide_string.h"
#include "values/property_value.h"

#include <vector>

namespace values {

// How a value of type "Hex" or "Hex32" is treated when it is sent.
enum class KeyKind {
  kWepKey = 0,
  kPreSharedKey = 1,
  kWepKeyAsTyped = 2,  // checked, not converted
  kPreSharedKeyAsTyped = 3,
  kNoKey = 4,
};

struct PendingChange {
  WideString oid;
  WideString type;
  PropertyValue value;
  KeyKind kind = KeyKind::kWepKey;
};

using ChangeList = std::vector<PendingChange>;

}  // namespace values
