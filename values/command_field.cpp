// Properties that are fields of a command property.
#include "base/format.h"
#include "base/number.h"
#include "platform/debug.h"
#include "values/property_descriptor.h"

#include <algorithm>

namespace values {

std::optional<PropertyDescriptor::CommandField> PropertyDescriptor::GetCommandField() const {
  const WideString field = Resolve(TextId::kCmdOid);
  if (field.empty() || Resolve(TextId::kOrdinal).empty()) return std::nullopt;

  const std::size_t colon = field.find(u':');
  const WideString number = colon == WideString::npos ? WideString() : field.substr(colon + 1);
  const std::int32_t counted = base::ToLong(number);
  return CommandField{field.substr(0, colon), counted > 0 ? counted - 1 : -1};
}

void PropertyDescriptor::InitFromCommand(const DescriptorMap& descriptors) {
  const std::optional<CommandField> field = GetCommandField();
  if (!field) return;
  const PropertyDescriptor* command = FindDescriptor(descriptors, field->commandOid);
  if (command == nullptr || command->CommandLayout() == nullptr) return;
  if (!command->IsAvailable()) {
    SetUnavailable();
    return;
  }

  const FieldWidthList& layout = *command->CommandLayout();
  const WideString record = command->GetValue().AsText();
  if (const std::optional<WideString> text = layout.Field(record, field->index)) {
    ParseValue(*text, value_);
    return;
  }
  platform::DebugOutput(base::Format(u"KEL_ZEP_INVALID_READERCMD_VALUE_E  m_sPath[%s]\r\n", path_));
  platform::DebugOutput(base::Format(u"nChars[%d] startPos[%d] sCmdValue.GetLength[%d]\r\n", layout.Width(field->index),
                                     layout.Start(field->index), static_cast<std::int32_t>(record.size())));
}

bool PropertyDescriptor::WriteToCommand(PropertyDescriptor* parent, const PropertyValue& value) const {
  const std::optional<CommandField> field = GetCommandField();
  if (!field || parent == nullptr || parent->CommandLayout() == nullptr) return false;
  const std::int32_t width = parent->CommandLayout()->Width(field->index);
  const std::int32_t start = parent->CommandLayout()->Start(field->index);
  if (width < 0 || start < 0) return false;
  const auto length = std::min(static_cast<std::size_t>(width), FieldWidthList::kMaxFieldLength);

  // A number fills its field with zeros; a text leaves what it does not cover.
  const WideString text =
      value.IsText() ? value.AsText() : base::Format(base::Format(u"%s%dd", u"%.", length), value.AsInteger());

  WideString record = parent->GetValue().AsText();
  const auto from = static_cast<std::size_t>(start);
  const std::size_t room = from < record.size() ? record.size() - from : 0;
  const std::size_t count = std::min({text.size(), length, room});
  for (std::size_t i = 0; i < count; ++i) record[from + i] = text[i];

  PropertyValue written;
  parent->ParseValue(record, written);
  parent->SetNewValue(std::move(written));
  return true;
}

}  // namespace values
