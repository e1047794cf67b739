// Sending the pending changes to the device.
#pragma once

#include "base/wide_string.h"
#include "values/descriptor_map.h"
#include "values/device_access.h"
#include "values/message_boxes.h"
#include "values/pending_change.h"

namespace values {

// What a submission asks and tells.
class SubmitHost {
 public:
  virtual ~SubmitHost() = default;
  // What the configuration wants said when the value of an OID, as the configuration writes it, cannot be stored.
  // Empty: nothing of its own.
  virtual WideString ErrorTextOf(WideStringView oid) = 0;
  // The device is there, and the first change goes to it.
  virtual void Started() = 0;
  // The change is done with: the device has taken it, or else nothing on the device has changed. A pseudo-OID's change
  // is always taken. Told before a box says why a change was not taken.
  virtual void Settled(const PendingChange& change, bool taken) = 0;
};

// What submitting changes needs of the program around it.
struct SubmitContext {
  DeviceAccess& device;
  const DescriptorMap& descriptors;
  MessageBoxes& boxes;
  SubmitHost& host;
  bool& valueWritten;  // set when the device has taken a value
};

// Says that a value was not stored: in the configuration's own words, or when it has none in the program's.
void ShowNotStored(MessageBoxes& boxes, WideStringView ownText);

// Sends each change of the list in order and empties the list; a failure is shown and the next change tried. 1 when
// something failed, else 0. A key that breaks its rules is shown and not sent, but counts as a failure only when the
// list holds nothing else. Without a device the list is kept and the result is 0. `status` becomes 0.
int SnmpSetChanges(ChangeList& changes, int& status, const SubmitContext& context);

}  // namespace values
