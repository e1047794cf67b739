// Changes to one property, found by its OID or local key. Each does nothing for a key that the model does not hold. A
// property's line follows its value and its choices, and the fields of a command follow the command. What is true of
// the value of an OID is true of all the lines that show it, of very many lines of the latest.
#pragma once

#include "rules/single_value.h"

namespace rules {

class ItemOperations {
 public:
  // Of a command's fields: all, or those up to the first number that no property has.
  enum class Fields { kAll, kUpToGap };

  ItemOperations(const Context& context, SingleValues& singleValues) : context_(context), single_(singleValues) {}

  void SetItemChoices(WideStringView key, WideStringView choices);
  void SetItemChoices(values::PropertyDescriptor& property, WideStringView choices);
  void SetItemType(WideStringView key, WideStringView type);
  // Sets the value in the program alone.
  void SetItemValue(WideStringView key, WideStringView value);
  // Stores the value on the device at once; a refused store is shown.
  void StoreValue(const WideString& oid, const WideString& type, const WideString& value);
  // The same whether the model holds the key or not, a refused store in the words of `item`.
  // The device's answer.
  platform::ResultCode SendValue(const WideString& oid, const WideString& type, const WideString& value,
                                 const model::MenuItem* item);
  // The same for rules that run over and over: what the device has refused last is not tried again. False when nothing
  // was tried.
  bool CorrectValue(const WideString& oid, const WideString& type, const WideString& value);
  void ShowItem(WideStringView key) { SetState(key, model::DisplayState::kNormal); }
  void HideItem(WideStringView key) { SetState(key, model::DisplayState::kNotDisplayed); }

  // Reads a value from the device. The property of the OID, if there is one, takes it over, or keeps its own where the
  // read failed. The text that was read.
  WideString Reread(const WideString& oid, const WideString& type, Fields fields = Fields::kAll);
  // Reads the values of a menu's lines that the device has not given in time.
  void ReadMissed(const model::MenuItem& menu);
  // A value was sent: the property has it now, or else offers it again in its editor alone.
  void Settle(WideStringView oid, const values::PropertyValue& value, bool taken);
  // An edit that waits is not to be sent after all.
  void DropEdit(WideStringView oid);

 private:
  using FieldVisit = void (*)(values::PropertyDescriptor& field);

  void SetState(WideStringView key, model::DisplayState state);
  // Visits the properties of an OID, and rewrites their lines. False when there is none.
  template <typename Visit>
  bool VisitProperties(WideStringView oid, Visit visit);
  void VisitFields(WideStringView commandOid, FieldVisit visit, Fields fields = Fields::kAll);
  void UpdateLine(const values::PropertyDescriptor& property);

  Context context_;
  SingleValues& single_;
};

}  // namespace rules
