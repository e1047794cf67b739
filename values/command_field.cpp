// Properties that are fields of a command property.
#include "base/format.h"
#include "base/number.h"
#include "platform/debug.h"
#include "values/property_descriptor.h"

#include <algorithm>
#include <cstdlib>

namespace values {
namespace {

// The number with zeros in front of its digits, as wide as its field. Of a field much wider than the room in its record
// the beginning is enough.
WideString NumberOfWidth(std::int32_t number, std::size_t width, std::size_t room) {
  constexpr std::size_t kMostDigits = 10;
  const WideString digits = base::ToText(std::abs(std::int64_t{number}));
  const std::size_t wanted = std::min(width, room + kMostDigits);
  const WideString zeros(wanted - std::min(wanted, digits.size()), u'0');
  return (number < 0 ? u"-" : u"") + zeros + digits;
}

// `start` lies within the record, which keeps its length.
void WriteField(WideString& record, std::size_t start, std::size_t width, const PropertyValue& value) {
  const std::size_t room = std::min(width, record.size() - start);
  // A number fills its field; a text leaves what it does not cover.
  const WideString text = value.IsText() ? value.AsText() : NumberOfWidth(value.AsInteger(), width, room);
  const std::size_t count = std::min(text.size(), room);
  record.replace(start, count, text, 0, count);
}

}  // namespace

std::optional<PropertyDescriptor::CommandField> PropertyDescriptor::GetCommandField() const {
  const WideString field = Resolve(TextId::kCmdOid);
  if (field.empty() || Resolve(TextId::kOrdinal).empty()) return std::nullopt;

  const std::size_t colon = field.find(u':');
  const WideString number = colon == WideString::npos ? WideString() : field.substr(colon + 1);
  const std::int32_t counted = base::ToLong(number);
  return CommandField{field.substr(0, colon), counted > 0 ? counted - 1 : -1};
}

int PropertyDescriptor::ColumnWidth() const {
  const std::optional<CommandField> field = GetCommandField();
  const PropertyDescriptor* command = field ? FindDescriptor(descriptors_, field->commandOid) : nullptr;
  if (command == nullptr || command->CommandLayout() == nullptr) return 0;
  return std::max(command->CommandLayout()->Width(field->index), 0);
}

void PropertyDescriptor::InitFromCommand() {
  const std::optional<CommandField> field = GetCommandField();
  const PropertyDescriptor* command = field ? FindDescriptor(descriptors_, field->commandOid) : nullptr;
  if (command == nullptr || command->CommandLayout() == nullptr) return;
  available_ = command->IsAvailable();
  if (!available_) return;

  const FieldWidthList& layout = *command->CommandLayout();
  const WideString record = command->GetValue().AsText();
  DropEdit();
  PropertyValue cut = value_;
  if (const std::optional<WideString> text = layout.Field(record, field->index)) {
    ParseValue(*text, cut);
  } else {
    platform::DebugOutput(base::Format(u"KEL_ZEP_INVALID_READERCMD_VALUE_E  m_sPath[%s]\r\n", Path()));
    platform::DebugOutput(base::Format(u"nChars[%d] startPos[%d] sCmdValue.GetLength[%d]\r\n",
                                       layout.Width(field->index), layout.Start(field->index),
                                       static_cast<std::int32_t>(record.size())));
  }
  SetRead(std::move(cut));
}

bool PropertyDescriptor::WriteToCommand(PropertyDescriptor* parent, const PropertyValue& value) const {
  const std::optional<CommandField> field = GetCommandField();
  if (!field || parent == nullptr || parent->CommandLayout() == nullptr) return false;
  const std::int32_t width = parent->CommandLayout()->Width(field->index);
  const std::int32_t start = parent->CommandLayout()->Start(field->index);
  WideString record = parent->GetValue().AsText();
  const bool hasPlace = width > 0 && start >= 0 && static_cast<std::size_t>(start) < record.size();
  if (hasPlace) WriteField(record, static_cast<std::size_t>(start), static_cast<std::size_t>(width), value);

  PropertyValue written;
  parent->ParseValue(record, written);
  parent->SetNewValue(std::move(written));
  return true;
}

}  // namespace values
