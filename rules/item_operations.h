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

  // Reads a value from the device. The property of the OID, if there is one, takes it over, or keeps its own where the
  // read failed. The text that was read.
  WideString Reread(const WideString& oid, const WideString& type);
  // A command's field, counted from 1, takes its value out of the command's anew. False: the model does not hold it.
  bool RereadField(const WideString& commandOid, int number);
  // Makes the property's line show its value.
  void UpdateLine(const values::PropertyDescriptor& property);

 private:
  void SetState(WideStringView key, model::DisplayState state);
  void SetReadValue(values::PropertyDescriptor& property, platform::ResultCode result, WideStringView value);
  void SetValue(values::PropertyDescriptor& property, WideStringView value);

  Context context_;
  SingleValues& single_;
};

}  // namespace rules
