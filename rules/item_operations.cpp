#include "rules/item_operations.h"

#include "base/format.h"

namespace rules {

void ItemOperations::SetItemChoices(WideStringView key, WideStringView choices) {
  if (auto* property = context_.model.FindDescriptor(key)) property->ReplaceChoices(WideString(choices));
}

void ItemOperations::SetItemType(WideStringView key, WideStringView type) {
  if (auto* property = context_.model.FindDescriptor(key)) property->ReplaceType(WideString(type));
}

void ItemOperations::SetItemValue(WideStringView key, WideStringView value) {
  if (auto* property = context_.model.FindDescriptor(key)) SetValue(*property, value);
}

bool ItemOperations::StoreValue(const WideString& oid, const WideString& type, const WideString& value) {
  auto* property = context_.model.FindDescriptor(oid);
  if (property == nullptr) return false;
  SetValue(*property, value);
  const platform::ResultCode result = single_.SetSingleValue(oid, type, value, context_.model.ItemOf(*property));
  property->SetChanged(result < 0);
  return true;
}

WideString ItemOperations::Reread(const WideString& oid, const WideString& type) {
  auto* property = context_.model.FindDescriptor(oid);
  WideString text;
  const platform::ResultCode result = context_.device.DoSnmpGet(
      property == nullptr ? oid : context_.device.FillOid(oid, property->Attributes()), type, text);
  if (property != nullptr) SetReadValue(*property, result, text);
  return text;
}

void ItemOperations::SetReadValue(values::PropertyDescriptor& property, platform::ResultCode result,
                                  WideStringView value) {
  const bool wasRead = result == platform::kOk || !value.empty();
  if (!wasRead) {
    UpdateLine(property);
    return;
  }
  SetValue(property, value);
  property.SetChanged(false);
}

bool ItemOperations::RereadField(const WideString& commandOid, int number) {
  auto* field = context_.model.FindDescriptor(base::Format(u"%s:%d", commandOid, number));
  if (field == nullptr) return false;
  field->InitFromCommand(context_.model.Descriptors());
  UpdateLine(*field);
  return true;
}

void ItemOperations::UpdateLine(const values::PropertyDescriptor& property) {
  model::MenuItem* item = context_.model.ItemOf(property);
  if (item == nullptr) return;
  context_.model.UpdateSuffix(*item);
  context_.shell.LineChanged(*item);
}

void ItemOperations::SetState(WideStringView key, model::DisplayState state) {
  const auto* property = context_.model.FindDescriptor(key);
  model::MenuItem* item = property == nullptr ? nullptr : context_.model.ItemOf(*property);
  if (item != nullptr) item->SetState(state);
}

void ItemOperations::SetValue(values::PropertyDescriptor& property, WideStringView value) {
  values::PropertyValue parsed;  // an empty text leaves it empty
  property.ParseValue(value, parsed);
  property.SetNewValue(std::move(parsed));
  UpdateLine(property);
}

}  // namespace rules
