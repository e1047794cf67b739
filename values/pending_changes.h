// Edits that wait to be sent to the device, and the events to be signalled after them.
#pragma once

#include "base/wide_string.h"
#include "platform/window.h"
#include "values/descriptor_map.h"
#include "values/device_access.h"
#include "values/message_boxes.h"
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

// Names of events, each once, in the order of their first edit.
class EventNames {
 public:
  void Add(WideStringView name);  // an empty name is none
  void Clear() { names_.clear(); }
  const std::vector<WideString>& Names() const { return names_; }

 private:
  std::vector<WideString> names_;
};

// What the configuration wants said when a value cannot be stored.
class ErrorTexts {
 public:
  virtual ~ErrorTexts() = default;
  // Empty: nothing of its own. `oid` is as the configuration writes it.
  virtual WideString ErrorTextOf(WideStringView oid) = 0;
};

// What submitting changes needs of the program around it.
struct SubmitContext {
  DeviceAccess& device;
  const DescriptorMap& descriptors;
  MessageBoxes& boxes;
  ErrorTexts& errorTexts;
  platform::WindowHandle mainWindow;  // the wait cursor stands in its middle
  bool& valueWritten;                 // set when the device has taken a value
};

// Sends each change of the list in order and empties the list; a failure is shown and the next change tried. 1 when
// something failed, else 0. A key that breaks its rules is shown and not sent, but counts as a failure only when the
// list holds nothing else. Without a device the list is kept and the result is 0. `status` becomes 0.
int SnmpSetChanges(ChangeList& changes, int& status, const SubmitContext& context);

}  // namespace values
