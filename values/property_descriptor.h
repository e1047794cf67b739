// The live object behind one property: what the configuration says of it, its value on the device, and whether it can
// be edited.
#pragma once

#include "base/string_table.h"
#include "base/wide_string.h"
#include "values/attributes.h"
#include "values/choice_format.h"
#include "values/descriptor_map.h"
#include "values/device_access.h"
#include "values/field_width_list.h"
#include "values/property_value.h"
#include "values/symbol_table.h"

#include <cstdint>
#include <memory>
#include <optional>

namespace config {
class ConfigKey;
}

namespace values {

class PropertyDescriptor {
 public:
  // Takes its attributes from `key` (null: it has none), enters itself into `descriptors` under its OID or command OID,
  // in place of an earlier one, and reads its value: from the device, from the command that it is a field of (when
  // that is in `descriptors` already), or from the program for a pseudo-OID. A value that cannot be read makes it
  // unavailable and read only. Key, device, symbols, map and the earlier one must outlive it.
  PropertyDescriptor(const config::ConfigKey* key, DeviceAccess& device, const SymbolTable& symbols,
                     DescriptorMap& descriptors);
  ~PropertyDescriptor();
  PropertyDescriptor(const PropertyDescriptor&) = delete;
  PropertyDescriptor& operator=(const PropertyDescriptor&) = delete;

  // Descriptors alive in this process.
  static int LiveCount();

  // The one whose place in `descriptors` it took, null for none: the same setting on another line.
  PropertyDescriptor* Earlier() const { return earlier_; }

  const config::ConfigKey* Key() const { return key_; }
  WideString Path() const;  // of its key; empty without one
  WideStringView DisplayName() const { return ownDisplayName_ ? *ownDisplayName_ : displayName_; }
  void SetDisplayName(WideString text) { ownDisplayName_ = std::move(text); }
  // Under which the property's editor is found; "None": it cannot be edited.
  WideStringView EditorName() const;
  WideStringView PageName() const { return attributes_.Get(TextId::kCustPage); }  // empty: no page of its own
  bool IsReadOnly() const { return readOnly_ || !available_; }
  void SetReadOnly(bool readOnly) { readOnly_ = readOnly; }
  // False while the value could not be read. Any value that the device gives or takes makes it available.
  bool IsAvailable() const { return available_; }
  // Not available only because the device did not answer in time: another try may help.
  bool IsMissed() const { return !available_ && missed_; }

  const AttributeMap& Attributes() const { return attributes_; }
  WideString Resolve(TextId name) const { return ResolveAttribute(attributes_, name); }
  WideString Resolve(WideStringView name) const { return ResolveAttribute(attributes_, name); }
  WideString GetOID() const { return Resolve(TextId::kOid); }

  // The type that goes to the device with each value.
  WideString GetType() const { return Resolve(TextId::kType); }
  TextId GetTypeId() const;
  // The type by which the value is held, shown and edited, as the configuration writes it; "None" when there is no type
  // or the value is not available.
  WideStringView HeldType() const;
  WideStringView SubType() const;  // empty when the value is not available
  // Gives the property another type from now on. The value stays as it is.
  void ReplaceType(WideString type);

  int GetMaxChars() const;  // 0: no limit
  int ColumnWidth() const;  // of a command's field, in characters; 0: the property is none
  // The mask for typed entry: a "#" for each character or digit, or the configuration's own; may be empty.
  WideString GetTextFormat() const;

  // The choice list's text, through the symbols; empty: a free value.
  WideString ChoiceText() const;
  // The choice list in the mode of the property's type.
  ChoiceFormat Choices() const;
  // Rules narrow the choices of a live property; the configuration stays as it was.
  void ReplaceChoices(WideString text) { attributes_.Set(TextId::kChoiceFmt, std::move(text)); }

  // An edit that waits to be sent, else what the device last gave or took.
  const PropertyValue& GetValue() const { return value_; }
  // What the property's own editor starts with: an edit that the device refused, else the value.
  const PropertyValue& OfferedValue() const { return refused_ ? *refused_ : value_; }
  const std::optional<PropertyValue>& RefusedValue() const { return refused_; }
  // An edit waits to be sent, or was refused.
  bool IsChanged() const { return beforeEdit_ || refused_; }

  // The value becomes an edit that waits to be sent, until one of those below.
  void SetNewValue(PropertyValue value);
  void SetTaken(PropertyValue value);    // the device has taken it
  void SetRefused(PropertyValue value);  // the value before the edit is back
  void DropEdit();                       // as if there had been none
  // The device has it now. A refused edit is still offered as long as that is what the device had.
  void SetRead(PropertyValue value);

  // Reads a value of the property's type from its text. An empty text leaves `value` as it is.
  void ParseValue(WideStringView text, PropertyValue& value) const;

  // Reads the value from the device. Nothing happens for a pseudo-OID or without an OID.
  void InitValue();

  // False: the value lies outside the range, and `message` says so.
  bool TestRange(const PropertyValue& value, WideString& message) const;

  // A command property's layout; null for any other.
  const FieldWidthList* CommandLayout() const { return layout_.get(); }

  // The command that a field belongs to and the field's place in it, counted from 0.
  struct CommandField {
    WideString commandOid;
    std::int32_t index = 0;
  };
  // Nothing unless the property has both a command OID and an ordinal.
  std::optional<CommandField> GetCommandField() const;
  // Takes a field's value out of its command's, and is available when that is.
  void InitFromCommand();
  // Puts a field's value into its command's, as far as the command has a place for it. False: the property is no field
  // or `parent` no command, and nothing was done.
  bool WriteToCommand(PropertyDescriptor* parent, const PropertyValue& value) const;

 private:
  std::shared_ptr<const FieldWidthList> MakeLayout() const;
  void EnterInto(DescriptorMap& descriptors, WideString oid);
  void InitFromPseudoOid(WideStringView oid);

  DeviceAccess& device_;
  const SymbolTable& symbols_;
  const DescriptorMap& descriptors_;
  const config::ConfigKey* key_;
  PropertyDescriptor* earlier_ = nullptr;
  AttributeMap attributes_;
  WideStringView displayName_;  // the key's, or its symbol's
  std::optional<WideString> ownDisplayName_;
  PropertyValue value_;
  std::optional<PropertyValue> beforeEdit_;  // the device's value while an edit waits
  std::optional<PropertyValue> refused_;
  std::shared_ptr<const FieldWidthList> layout_;  // shared by the lines of one command
  bool readOnly_ = false;
  bool available_ = true;
  bool missed_ = false;
};

// The OID as the device knows it: that of a property with the active profile in its place.
WideString DeviceOid(const DescriptorMap& descriptors, DeviceAccess& device, const WideString& oid);

}  // namespace values
