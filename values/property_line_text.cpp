#include "values/property_line_text.h"

#include "base/format.h"
#include "values/property_descriptor.h"
#include "values/shown_value.h"
#include "values/value_types.h"

namespace values {
namespace {

// A flag's own list has no keys: its two texts stand for 1 and 0.
bool ReadFlagText(const PropertyDescriptor& descriptor, WideStringView text, PropertyValue& value) {
  if (TypeCodeOf(descriptor.HeldType()) != TypeCode::kBool) return false;
  const bool isTrue = base::EqualsIgnoringCase(text, kTrueText);
  if (!isTrue && !base::EqualsIgnoringCase(text, kFalseText)) return false;
  value.SetInteger(isTrue ? 1 : 0);
  return true;
}

}  // namespace

KeyKind GetKeyKind(const PropertyDescriptor& descriptor, WideStringView type) {
  if (descriptor.Resolve(TextId::kWep).empty()) return KeyKind::kWepKey;
  const bool isFunk = descriptor.Resolve(TextId::kSubType) == LoadText(TextId::kFunk);
  if (type == LoadText(TextId::kHex)) return isFunk ? KeyKind::kWepKeyAsTyped : KeyKind::kWepKey;
  if (type == LoadText(TextId::kHex32)) return isFunk ? KeyKind::kPreSharedKeyAsTyped : KeyKind::kPreSharedKey;
  return KeyKind::kWepKey;
}

bool ChoiceTextToValue(const PropertyDescriptor& descriptor, WideStringView text, PropertyValue& value) {
  const ChoiceFormat choices = descriptor.Choices();
  if (choices.Mode() == KeyMode::kNumeric) {
    const std::optional<std::int32_t> number = choices.GetValue(text);
    if (number) value.SetInteger(*number);
    return number.has_value();
  }
  std::optional<WideString> key = choices.GetKey(text);
  if (!key) return false;
  value.SetText(std::move(*key));
  return true;
}

ValueCommitter::ValueCommitter(const DescriptorMap& descriptors, MessageBoxes& boxes, ChangeList& changes,
                               EventNames& events, EditState& state)
    : descriptors_(descriptors), boxes_(boxes), changes_(changes), events_(events), state_(state) {}

PropertyDescriptor* ValueCommitter::UpdatePropertyLine(WideStringView valueText, bool markDirty, PropertyLine* line) {
  if (markDirty) state_.repaintList = true;
  PropertyDescriptor* descriptor = line == nullptr ? nullptr : line->Descriptor();
  if (descriptor == nullptr) return nullptr;
  line->SetLineText(base::Format(LoadText(TextId::kPropertyLineFormat), descriptor->DisplayName(),
                                 MaskedText(*descriptor, valueText)));
  return descriptor;
}

PropertyDescriptor* ValueCommitter::BeginEdit(PropertyLine* line) {
  PropertyDescriptor* descriptor = line == nullptr ? nullptr : line->Descriptor();
  if (descriptor != nullptr && state_.firstEdited == nullptr) state_.firstEdited = descriptor;
  return descriptor;
}

bool ValueCommitter::ReadEntry(const PropertyDescriptor& descriptor, WideStringView text, EntryMode mode) {
  PropertyValue entered;
  if (mode == EntryMode::kChoice) {
    if (!ChoiceTextToValue(descriptor, text, entered)) return false;
  } else if (!ReadFlagText(descriptor, text, entered)) {
    descriptor.ParseValue(text, entered);
  }
  state_.edited = std::move(entered);
  return true;
}

bool ValueCommitter::CommitEditedValue(PropertyLine* line, WideStringView text, EntryMode mode) {
  if (state_.busy) return true;
  PropertyDescriptor* descriptor = BeginEdit(line);
  if (descriptor == nullptr || !ReadEntry(*descriptor, text, mode)) return false;

  WideString message;
  if (!descriptor->TestRange(state_.edited, message)) {
    boxes_.Show(message, u"Error", kMessageBox);
    return false;
  }
  RecordChange(*descriptor, state_.edited);
  return true;
}

void ValueCommitter::CommitValueNoRangeTest(PropertyLine* line, WideStringView text, EntryMode mode) {
  if (state_.busy) return;
  PropertyDescriptor* descriptor = BeginEdit(line);
  if (descriptor == nullptr || !ReadEntry(*descriptor, text, mode)) return;
  UpdatePropertyLine(text, true, line);
  RecordChange(*descriptor, state_.edited);
}

void ValueCommitter::SaveChoiceByIndex(PropertyLine* line, std::size_t index) {
  if (state_.busy) return;
  PropertyDescriptor* descriptor = BeginEdit(line);
  if (descriptor == nullptr) return;
  const ChoiceFormat choices = descriptor->Choices();
  if (index >= choices.Count()) return;

  const ChoiceFormat::Entry& entry = choices.Entries()[index];
  state_.edited.SetInteger(entry.number);
  UpdatePropertyLine(entry.text, true, line);
  RecordChange(*descriptor, state_.edited);
}

void ValueCommitter::RecordChange(PropertyDescriptor& descriptor, const PropertyValue& value) {
  descriptor.SetNewValue(value);
  if (const std::optional<PropertyDescriptor::CommandField> field = descriptor.GetCommandField()) {
    PropertyDescriptor* command = FindDescriptor(descriptors_, field->commandOid);
    if (descriptor.WriteToCommand(command, value)) {
      changes_.push_back({command->GetOID(), command->GetType(), command->GetValue(), KeyKind::kWepKey});
    }
  } else {
    changes_.push_back(
        {descriptor.GetOID(), descriptor.GetType(), value, GetKeyKind(descriptor, descriptor.GetType())});
  }
  events_.Add(descriptor.Resolve(TextId::kEvent));
}

}  // namespace values
