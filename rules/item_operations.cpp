#include "rules/item_operations.h"

#include "base/format.h"

namespace rules {
namespace {

// An empty text gives an empty value.
values::PropertyValue ValueOf(const values::PropertyDescriptor& property, WideStringView text) {
  values::PropertyValue value;
  property.ParseValue(text, value);
  return value;
}

void SetEditRefused(values::PropertyDescriptor& field) {
  if (field.IsChanged()) field.SetRefused(field.OfferedValue());
}

}  // namespace

void ItemOperations::SetItemChoices(WideStringView key, WideStringView choices) {
  if (auto* property = context_.model.FindDescriptor(key)) SetItemChoices(*property, choices);
}

void ItemOperations::SetItemChoices(values::PropertyDescriptor& property, WideStringView choices) {
  property.ReplaceChoices(WideString(choices));
  UpdateLine(property);
}

void ItemOperations::SetItemType(WideStringView key, WideStringView type) {
  if (auto* property = context_.model.FindDescriptor(key)) property->ReplaceType(WideString(type));
}

void ItemOperations::SetItemValue(WideStringView key, WideStringView value) {
  if (auto* property = context_.model.FindDescriptor(key)) Settle(key, ValueOf(*property, value), true);
}

void ItemOperations::StoreValue(const WideString& oid, const WideString& type, const WideString& value) {
  const auto* property = context_.model.FindDescriptor(oid);
  if (property != nullptr) SendValue(oid, type, value, context_.model.ItemOf(*property));
}

void ItemOperations::SendValue(const WideString& oid, const WideString& type, const WideString& value,
                               const model::MenuItem* item) {
  const bool taken = single_.SetSingleValue(oid, type, value, item) >= 0;
  if (const auto* property = context_.model.FindDescriptor(oid)) Settle(oid, ValueOf(*property, value), taken);
}

bool ItemOperations::CorrectValue(const WideString& oid, const WideString& type, const WideString& value) {
  const auto* property = context_.model.FindDescriptor(oid);
  if (property == nullptr) return false;
  const bool wasRefused = property->RefusedValue() == ValueOf(*property, value);
  if (!wasRefused) StoreValue(oid, type, value);
  return !wasRefused;
}

WideString ItemOperations::Reread(const WideString& oid, const WideString& type) {
  auto* property = context_.model.FindDescriptor(oid);
  std::optional<WideString> text;
  context_.device.DoSnmpGet(values::DeviceOid(context_.model.Descriptors(), context_.device, oid), type, text);
  if (property == nullptr) return std::move(text).value_or(WideString());
  if (!text) {
    UpdateLine(*property);
    return {};
  }
  property->SetRead(ValueOf(*property, *text));
  Follow(*property);
  return *text;
}

void ItemOperations::Settle(WideStringView oid, const values::PropertyValue& value, bool taken) {
  auto* property = context_.model.FindDescriptor(oid);
  if (property == nullptr) return;
  if (taken) {
    property->SetTaken(value);
    Follow(*property);
    return;
  }
  property->SetRefused(value);
  UpdateLine(*property);
  VisitFields(*property, SetEditRefused);
}

void ItemOperations::DropEdit(WideStringView oid) {
  auto* property = context_.model.FindDescriptor(oid);
  if (property == nullptr) return;
  property->DropEdit();
  UpdateLine(*property);
  VisitFields(*property, [](values::PropertyDescriptor& field) { field.DropEdit(); });
}

// The property has another value: its line and its fields do too.
void ItemOperations::Follow(const values::PropertyDescriptor& property) {
  UpdateLine(property);
  VisitFields(property, [](values::PropertyDescriptor& field) { field.InitFromCommand(); });
}

void ItemOperations::VisitFields(const values::PropertyDescriptor& command, Visit visit) {
  const values::FieldWidthList* layout = command.CommandLayout();
  const int count = layout == nullptr ? 0 : layout->Count();
  for (int number = 1; number <= count; ++number) {
    auto* field = context_.model.FindDescriptor(base::Format(u"%s:%d", command.GetOID(), number));
    if (field == nullptr) continue;
    visit(*field);
    UpdateLine(*field);
  }
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

}  // namespace rules
