#include "ui/property_editors.h"

#include "base/format.h"
#include "base/string_table.h"
#include "platform/debug.h"
#include "values/ip_address.h"
#include "values/value_types.h"

namespace ui {
namespace {

using values::ChoiceFormat;
using values::PropertyDescriptor;
using values::PropertyValue;
using values::TypeCode;

int IndexOf(const ChoiceFormat& choices, const PropertyValue& value) {
  const std::optional<std::size_t> index = choices.IndexOf(value);
  return index ? static_cast<int>(*index) : -1;
}

WideString TitleOf(const PropertyDescriptor& descriptor) {
  return base::Format(u"Change '%s' Setting", descriptor.DisplayName());
}

// All ones are read where there is no address. Whoever means them finds empty fields too, and loses nothing by that.
std::optional<std::uint32_t> AddressOf(const PropertyValue& value) {
  const std::int32_t address =
      value.IsInteger() ? value.AsInteger() : values::IpAddressFromDotted(base::Trim(value.AsText()));
  if (address == values::kNoIpAddress) return std::nullopt;
  return static_cast<std::uint32_t>(address);
}

// Opens no dialog; the choice texts of a command are kept up to date all the same.
class ASN_NONE_PropertyEditor final : public PropertyEditor {
 protected:
  void PrepareFor(const PropertyDescriptor& descriptor, EditRequest& request) override {
    if (descriptor.HeldType() != LoadText(TextId::kReaderCmd)) return;
    const ChoiceFormat choices = descriptor.Choices();
    request.selected = IndexOf(choices, descriptor.OfferedValue());
    RefillChoiceTexts(choices);
  }
};

class ASN_INTEGER_PropertyEditor final : public PropertyEditor {
 protected:
  void PrepareFor(const PropertyDescriptor& descriptor, EditRequest& request) override {
    const PropertyValue& value = descriptor.OfferedValue();
    if (value.IsEmpty()) return;
    const ChoiceFormat choices = descriptor.Choices();
    request.selected = IndexOf(choices, value);
    RefillChoiceTexts(choices);
    request.choices = ChoiceTexts();
    if (!request.choices.empty()) return;
    request.mask = descriptor.GetTextFormat();
    request.maxChars = descriptor.GetMaxChars();
    request.text = value.AsText();
  }
};

class ASN_BOOL_PropertyEditor final : public PropertyEditor {
 protected:
  void PrepareFor(const PropertyDescriptor& descriptor, EditRequest& request) override {
    request.number = descriptor.OfferedValue().AsInteger() != 0 ? 1 : 0;
    const ChoiceFormat choices = descriptor.Choices();
    request.selected = IndexOf(choices, descriptor.OfferedValue());
    RefillChoiceTexts(choices);
    request.choices = ChoiceTexts();
  }
};

// Texts, free or chosen; the hexadecimal keys are prepared alike.
class TextPropertyEditor : public PropertyEditor {
 protected:
  explicit TextPropertyEditor(WideStringView unknownValueLine) : unknownValueLine_(unknownValueLine) {}

  void PrepareFor(const PropertyDescriptor& descriptor, EditRequest& request) override {
    request.title = TitleOf(descriptor);
    request.text = descriptor.OfferedValue().AsText();
    const ChoiceFormat choices = descriptor.Choices();
    request.selected = IndexOf(choices, descriptor.OfferedValue());
    RefillChoiceTexts(choices);
    request.choices = ChoiceTexts();

    const std::size_t count = request.choices.size();
    if (count == 2 || count == 3) return;
    if (count != 0 && request.selected < 0) {
      platform::DebugOutput(unknownValueLine_);
      return;
    }
    request.mask = descriptor.GetTextFormat();
    request.maxChars = descriptor.GetMaxChars();
  }

 private:
  WideStringView unknownValueLine_;
};

class ASN_OCTETSTRING_PropertyEditor final : public TextPropertyEditor {
 public:
  ASN_OCTETSTRING_PropertyEditor() : TextPropertyEditor(u"ASN_OCTETSTRING_PropertyEditor index < 0\r\n") {}
};

class ASN_HEX_PropertyEditor final : public TextPropertyEditor {
 public:
  ASN_HEX_PropertyEditor() : TextPropertyEditor(u"ASN_HEX_PropertyEditor index < 0\r\n") {}
};

class ASN_IPADDRESS_PropertyEditor final : public PropertyEditor {
 protected:
  void PrepareFor(const PropertyDescriptor& descriptor, EditRequest& request) override {
    const PropertyValue& value = descriptor.OfferedValue();
    request.title = TitleOf(descriptor);
    request.text = value.AsText();
    request.number = AddressOf(value);
  }
};

class ASN_PASSWORD_PropertyEditor final : public PropertyEditor {
 protected:
  void PrepareFor(const PropertyDescriptor& descriptor, EditRequest& request) override {
    request.text = descriptor.OfferedValue().AsText();
    request.maxChars = descriptor.GetMaxChars();
  }
};

template <typename Editor>
std::shared_ptr<PropertyEditor> MakeEditor() {
  return std::make_shared<Editor>();
}

struct EditorRow {
  TypeCode code;
  std::shared_ptr<PropertyEditor> (*make)();
};

// "ReaderCmd" has no editor of its own.
constexpr EditorRow kEditors[] = {
    {TypeCode::kNone, MakeEditor<ASN_NONE_PropertyEditor>},
    {TypeCode::kInteger, MakeEditor<ASN_INTEGER_PropertyEditor>},
    {TypeCode::kBool, MakeEditor<ASN_BOOL_PropertyEditor>},
    {TypeCode::kOctetString, MakeEditor<ASN_OCTETSTRING_PropertyEditor>},
    {TypeCode::kIpAddress, MakeEditor<ASN_IPADDRESS_PropertyEditor>},
    {TypeCode::kPassword, MakeEditor<ASN_PASSWORD_PropertyEditor>},
    {TypeCode::kHex, MakeEditor<ASN_HEX_PropertyEditor>},
};

}  // namespace

void PropertyEditor::Prepare(const PropertyDescriptor* descriptor, EditRequest& request) {
  if (descriptor != nullptr) PrepareFor(*descriptor, request);
}

void PropertyEditor::RefillChoiceTexts(const ChoiceFormat& choices) {
  choiceTexts_.clear();
  for (const ChoiceFormat::Entry& entry : choices.Entries()) choiceTexts_.push_back(entry.text);
}

EditorTable::EditorTable() {
  for (const EditorRow& row : kEditors) editors_[WideString(values::TypeTextOf(row.code))] = row.make();
  editors_[WideString(LoadText(TextId::kHex32))] = editors_[WideString(LoadText(TextId::kHex))];
}

PropertyEditor* EditorTable::Find(WideStringView type) const {
  const auto found = editors_.find(type);
  return found == editors_.end() ? nullptr : found->second.get();
}

EditRequest EditorTable::MakeRequest(const PropertyDescriptor& descriptor) const {
  EditRequest request;
  request.editorType = descriptor.EditorName();
  request.subType = descriptor.SubType();
  request.value = descriptor.OfferedValue().AsText();
  request.masked = base::EqualsIgnoringCase(request.editorType, LoadText(TextId::kPassword)) ||
                   descriptor.Attributes().Has(TextId::kPassWordChar);
  if (PropertyEditor* const editor = Find(request.editorType)) editor->Prepare(&descriptor, request);
  const int width = descriptor.ColumnWidth();
  if (width > 0 && (request.maxChars <= 0 || request.maxChars > width)) request.maxChars = width;
  return request;
}

}  // namespace ui
