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

void ReadFromCommand(values::PropertyDescriptor& field) { field.InitFromCommand(); }

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

platform::ResultCode ItemOperations::SendValue(const WideString& oid, const WideString& type, const WideString& value,
                                               const model::MenuItem* item) {
  const platform::ResultCode result = single_.SetSingleValue(oid, type, value, item);
  if (const auto* property = context_.model.FindDescriptor(oid)) Settle(oid, ValueOf(*property, value), result >= 0);
  return result;
}

bool ItemOperations::CorrectValue(const WideString& oid, const WideString& type, const WideString& value) {
  const auto* property = context_.model.FindDescriptor(oid);
  if (property == nullptr) return false;
  const bool wasRefused = property->RefusedValue() == ValueOf(*property, value);
  if (!wasRefused) StoreValue(oid, type, value);
  return !wasRefused;
}

WideString ItemOperations::Reread(const WideString& oid, const WideString& type, Fields fields) {
  std::optional<WideString> text;
  context_.device.DoSnmpGet(values::DeviceOid(context_.model.Descriptors(), context_.device, oid), type, text);
  const bool isProperty = VisitProperties(oid, [&text](values::PropertyDescriptor& property) {
    if (text) property.SetRead(ValueOf(property, *text));
  });
  if (isProperty && text) VisitFields(oid, ReadFromCommand, fields);
  return std::move(text).value_or(WideString());
}

// A field has its command's value.
void ItemOperations::ReadMissed(const model::MenuItem& menu) {
  for (const auto& line : menu.Children()) {
    const values::PropertyDescriptor* property = line->Descriptor();
    if (property == nullptr || property->IsAvailable()) continue;
    const auto field = property->GetCommandField();
    if (field) property = context_.model.FindDescriptor(field->commandOid);
    if (property != nullptr && property->IsMissed()) Reread(property->GetOID(), property->GetType());
  }
}

void ItemOperations::Settle(WideStringView oid, const values::PropertyValue& value, bool taken) {
  VisitProperties(oid, [&](values::PropertyDescriptor& property) {
    if (taken) {
      property.SetTaken(value);
    } else {
      property.SetRefused(value);
    }
  });
  VisitFields(oid, taken ? ReadFromCommand : SetEditRefused);
}

void ItemOperations::DropEdit(WideStringView oid) {
  VisitProperties(oid, [](values::PropertyDescriptor& property) { property.DropEdit(); });
  VisitFields(oid, [](values::PropertyDescriptor& field) { field.DropEdit(); });
}

template <typename Visit>
bool ItemOperations::VisitProperties(WideStringView oid, Visit visit) {
  // A configuration may show one setting as often as it likes, and then restore it as often.
  constexpr int kMost = 16;

  auto* property = context_.model.FindDescriptor(oid);
  if (property == nullptr) return false;
  for (int count = 0; property != nullptr && count < kMost; ++count, property = property->Earlier()) {
    visit(*property);
    UpdateLine(*property);
  }
  return true;
}

void ItemOperations::VisitFields(WideStringView commandOid, FieldVisit visit, Fields fields) {
  const auto* command = context_.model.FindDescriptor(commandOid);
  const values::FieldWidthList* layout = command == nullptr ? nullptr : command->CommandLayout();
  const int count = layout == nullptr ? 0 : layout->Count();
  for (int number = 1; number <= count; ++number) {
    const bool isProperty = VisitProperties(base::Format(u"%s:%d", commandOid, number), visit);
    if (!isProperty && fields == Fields::kUpToGap) return;
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
