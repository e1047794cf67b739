#include "authoring/assumption.h"

#include "base/format.h"
#include "base/number.h"
#include "ui/entry_kinds.h"
#include "ui/property_editors.h"

#include <algorithm>

namespace authoring {
namespace {

using values::PropertyDescriptor;

// The value that the command has on the device now is taken into the model, so that one change adds to another.
void TakeFromDevice(MemoryDevice& device, const WideString& deviceOid, PropertyDescriptor& command) {
  std::optional<WideString> text;
  device.Get(deviceOid, text);
  values::PropertyValue value;
  command.ParseValue(text.value_or(WideString()), value);
  command.SetRead(std::move(value));
}

}  // namespace

void Assumption::Assume(std::span<const SettingChange> changes) {
  AssumeOnDevice(changes);
  for (const SettingChange& change : changes) AfterEdit(change);
}

void Assumption::AssumeOnDevice(std::span<const SettingChange> changes) {
  trial_.Device() = device_;
  trial_.Screen().shown.clear();
  for (const SettingChange& change : changes) Put(change);
  trial_.Rebuild();
}

void Assumption::AfterEdit(const SettingChange& change) {
  PropertyDescriptor* property = trial_.Model().FindDescriptor(change.oid);
  if (property == nullptr || property->IsReadOnly()) return;
  if (values::IsPseudoOid(change.oid)) {
    values::PropertyValue value;
    property->ParseValue(change.value, value);
    property->SetTaken(std::move(value));
  }
  model::MenuItem* item = trial_.Model().ItemOf(*property);
  WideString command(property->Attributes().Get(TextId::kOnExit));
  for (int number = 1; item != nullptr && !command.empty(); ++number) {
    if (command != u"PromptWarmBoot") trial_.Rules().postEdit.RunPostEditAction(command, *item);
    command = property->Attributes().Get(base::Format(u"%s%d", LoadText(TextId::kOnExit), number));
  }
}

void Assumption::Put(const SettingChange& change) {
  if (values::IsPseudoOid(change.oid)) return;
  const PropertyDescriptor* property = trial_.Model().FindDescriptor(change.oid);
  const std::size_t colon = change.oid.find(u':');
  const bool isField = property != nullptr ? property->GetCommandField().has_value() : colon != WideString::npos;
  if (isField && colon != WideString::npos) {
    const WideStringView oid = change.oid;
    PutField(oid.substr(0, colon), base::ToLong(oid.substr(colon + 1)), change);
  } else {
    trial_.Device().Put(trial_.DeviceOid(change.oid), change.value);
  }
}

void Assumption::PutField(WideStringView commandOid, int number, const SettingChange& change) {
  PropertyDescriptor* command = trial_.Model().FindDescriptor(commandOid);
  if (command == nullptr || command->CommandLayout() == nullptr || number < 1) return;
  const WideString deviceOid = trial_.DeviceOid(WideString(commandOid));
  TakeFromDevice(trial_.Device(), deviceOid, *command);
  WideString record = command->GetValue().AsText();
  if (const PropertyDescriptor* field = trial_.Model().FindDescriptor(change.oid)) {
    values::PropertyValue value;
    field->ParseValue(change.value, value);
    field->WriteToCommand(command, value);
    record = command->GetValue().AsText();
  } else {
    // A field that no entry shows.
    const auto start = static_cast<std::size_t>(std::max(0, command->CommandLayout()->Start(number - 1)));
    const auto width = static_cast<std::size_t>(std::max(0, command->CommandLayout()->Width(number - 1)));
    if (start < record.size()) record.replace(start, std::min(width, record.size() - start), change.value, 0, width);
  }
  trial_.Device().Put(deviceOid, record);
}

bool HasEditor(const model::MenuItem& item) {
  const PropertyDescriptor* property = item.Descriptor();
  if (property == nullptr || property->IsReadOnly() || !item.IsLeaf()) return false;
  if (property->Attributes().Has(TextId::kFunction) || property->Attributes().Has(TextId::kAppName)) return false;
  static const ui::EditorTable editors;
  return ui::ChooseEntryKind(editors.MakeRequest(*property)) != ui::EntryKind::kNone;
}

Look LookAt(Trial& trial, model::MenuItem& item, const Passing& passing) {
  std::vector<model::MenuItem*> above;
  for (model::MenuItem* at = item.Parent(); at != nullptr; at = at->Parent()) above.push_back(at);
  Look look;
  look.reachable = true;
  for (auto menu = above.rbegin(); menu != above.rend(); ++menu) {
    if ((*menu)->Parent() == nullptr) {
      trial.Enter(**menu);
      continue;
    }
    const model::DisplayState state = (*menu)->State();
    const bool canBeOpened = state != model::DisplayState::kNotDisplayed && state != model::DisplayState::kBlank;
    look.reachable = look.reachable && canBeOpened;
    if (passing) passing(**menu, canBeOpened);
    trial.Open(**menu);
  }
  look.state = item.State();
  look.line = item.LineText();
  look.editable = look.state != model::DisplayState::kNoEdit && HasEditor(item);
  if (const PropertyDescriptor* property = item.Descriptor()) {
    look.available = property->IsAvailable();
    look.choiceText = property->ChoiceText();
  }
  return look;
}

}  // namespace authoring
