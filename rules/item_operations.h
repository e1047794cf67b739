// Changes that rules make to one property, found by its OID or local key. Each does nothing for a key that the model
// does not hold. A property's line follows its value.
#pragma once

#include "rules/single_value.h"

namespace rules {

class ItemOperations {
 public:
  ItemOperations(const Context& context, SingleValues& singleValues) : context_(context), single_(singleValues) {}

  void SetItemChoices(WideStringView key, WideStringView choices);
  void SetItemType(WideStringView key, WideStringView type);
  // Sets the value in the program alone.
  void SetItemValue(WideStringView key, WideStringView value);
  // Sets the value and stores it on the device at once. A refused store is shown, and the value stays set. False when
  // the model does not hold the key.
  bool StoreValue(const WideString& oid, const WideString& type, const WideString& value);
  void ShowItem(WideStringView key) { SetState(key, model::DisplayState::kNormal); }
  void HideItem(WideStringView key) { SetState(key, model::DisplayState::kNotDisplayed); }

  // Takes over what DoSnmpGet answered for the property; where it failed, the value stays.
  void SetReadValue(values::PropertyDescriptor& property, platform::ResultCode result, WideStringView value);
  // A command's field, counted from 1, takes its value out of the command's anew. False: the model does not hold it.
  bool RereadField(const WideString& commandOid, int number);
  // Makes the property's line show its value.
  void UpdateLine(const values::PropertyDescriptor& property);

 private:
  void SetState(WideStringView key, model::DisplayState state);
  void SetValue(values::PropertyDescriptor& property, WideStringView value);

  Context context_;
  SingleValues& single_;
};

}  // namespace rules
