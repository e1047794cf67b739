// Storing one value on the device at once, outside the pending changes, and what is said when a value cannot be stored.
#pragma once

#include "platform/device.h"
#include "rules/context.h"

namespace rules {

class SingleValues {
 public:
  explicit SingleValues(const Context& context) : context_(context) {}

  // A failure is shown, in the item's own words where it has any. A pseudo-OID succeeds without a call.
  platform::ResultCode SetSingleValue(const WideString& oid, const WideString& type, const WideString& value,
                                      const model::MenuItem* item);

  // The text of the item's `_OnError`, or of the registry value that it names; empty when it gives none.
  WideString GetErrorText(const model::MenuItem* item) const;
  WideString ErrorTextOf(WideStringView oid) const;

 private:
  Context context_;
};

}  // namespace rules
