// An entry as the checks see it: its attributes by number, and what they come down to, worked out once.
#pragma once

#include "authoring/checks/attributes.h"
#include "authoring/checks/rule_text.h"
#include "authoring/entries.h"
#include "authoring/terminal_copy.h"
#include "values/choice_format.h"
#include "values/field_width_list.h"
#include "values/symbol_table.h"
#include "values/value_types.h"

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace authoring {

class Survey;

class Subject {
 public:
  Subject(const Survey& survey, const Entry& entry);

  const Survey& All() const { return *survey_; }
  const Entry& MenuEntry() const { return *entry_; }
  const config::ConfigKey& Key() const { return *entry_->key; }

  // As it is written; empty when it is not set.
  WideStringView Get(Attribute attribute) const {
    if (!set_.Has(attribute)) return {};
    const std::size_t place = places_[static_cast<std::size_t>(attribute)];
    return place < config::ConfigKey::kManyValues ? Key().Values()[place].text : Key().Value(NameOf(attribute));
  }
  bool Has(Attribute attribute) const { return set_.Has(attribute); }
  AttributeSet Set() const { return set_; }  // those with a text; kUnknown when there are others
  // "Table,..." looked up; its text, or values::kUnresolved.
  WideStringView Resolved(Attribute attribute) const;

  // OID, or without one the command OID.
  WideStringView Oid() const { return Get(Has(Attribute::kOid) ? Attribute::kOid : Attribute::kCmdOid); }
  bool IsProperty() const { return Has(Attribute::kOid) || Has(Attribute::kCmdOid); }
  bool IsField() const { return Has(Attribute::kCmdOid); }
  bool IsMenu() const { return entry_->IsMenu(); }
  bool IsCommand() const { return Has(Attribute::kFunction) || Has(Attribute::kAppName); }
  bool IsInteger() const { return isInteger_; }
  // The type as values are read by it; nothing when it is none that is edited.
  std::optional<values::TypeCode> Type() const { return type_; }
  // Enter opens an editor for its value.
  bool IsEditable() const;

  // The choice list through tables and symbols.
  WideStringView ChoiceText() const;
  const values::ChoiceFormat& Choices() const;
  // A list of choices is there and can be read, so that a value may be one of them or not.
  bool HasChoiceList() const;
  bool IsChoice(WideStringView value) const;
  // Of a command, its columns; null for others.
  const values::FieldWidthList* Layout() const;
  // How many characters can be typed, by mask and `MaxChars`; 0: any number.
  std::size_t TypedLimit() const;

  // `Dependency` and its followers as far as they run.
  const std::vector<RuleText>& Rules() const;
  // `_OnExit` and its followers, the same.
  std::vector<WideStringView> ExitCommands() const;

  // What the device holds under its own OID, with the active profile filled in. Null: it has no such OID, or nothing is
  // known about the device.
  const DeviceEntry* OnDevice() const;

  // Gives the memory back of what was worked out: views of that are gone, and it is worked out anew when asked for.
  void Forget() const { parsed_.reset(); }

 private:
  struct Parsed;
  Parsed& Cache() const;

  const Survey* survey_;
  const Entry* entry_;
  AttributeSet set_;
  std::array<std::uint8_t, kAttributeCount> places_;  // among the key's first values; kManyValues: elsewhere or nowhere
  bool isInteger_ = false;
  std::optional<values::TypeCode> type_;
  mutable std::unique_ptr<Parsed> parsed_;
};

struct Subject::Parsed {
  std::map<Attribute, WideString> resolved;  // of those that are looked up
  std::optional<values::ChoiceFormat> choices;
  std::optional<values::FieldWidthList> layout;
  std::optional<std::vector<RuleText>> rules;
  std::optional<const DeviceEntry*> onDevice;
};

}  // namespace authoring
