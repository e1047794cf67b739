// A device's values as the lines of a device file, so that a simulated terminal can stand in for it.
#pragma once

#include "simulator/device_store.h"
#include "snmp/inquiry.h"

#include <optional>
#include <string>
#include <vector>

namespace snmp {

// A setting that is to be recorded.
struct Sought {
  WideString oid;
  WideString type;
  bool isSecret = false;   // passwords and keys are, whatever this says
  bool isExpected = true;  // that the device lacks it is worth saying
};

struct RecordingOptions {
  std::optional<Oid> root;   // all below it, too
  bool secrets = false;      // also what is secret; else the device is not even asked for it
  bool truthValues = false;  // a "Bool" of the device is 1 or 2 (TruthValue), not 1 or 0
};

struct Recording {
  std::vector<simulator::DeviceLine> lines;    // those sought, in their order, then the others of the root
  std::vector<simulator::DeviceLine> leftOut;  // secrets, without their values
  // For people, a line each: what could not be read, and what of that which was read is otherwise than it was sought.
  std::vector<std::string> missing;
  std::vector<std::string> remarks;
  bool isBroken = false;  // the device does not answer any more: the rest is nothing to go by
};

Recording Record(Inquiry& inquiry, const std::vector<Sought>& sought, const RecordingOptions& options);

}  // namespace snmp
