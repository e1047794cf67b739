// Everything that a device has below an identifier.
#pragma once

#include "snmp/inquiry.h"

#include <vector>

namespace snmp {

// How a walk came to its end.
enum class WalkEnd {
  kAll,
  kNoAnswer,
  kRefused,    // by an error, or altogether
  kInCircles,  // what the device says is next does not stand behind
  kTooMuch,    // more than a million values, or 64 MB of them
};

struct Walked {
  std::vector<Variable> variables;  // in order; what was met before the end, however it came
  WalkEnd end = WalkEnd::kAll;
};

// All that stands below the root; its own value where nothing does.
Walked Walk(Inquiry& inquiry, const Oid& root);

}  // namespace snmp
