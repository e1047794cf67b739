// An entry as the checks see it: its attributes by number, and what they come down to, worked out once.
#pragma once

#include "authoring/checks/attributes.h"
#include "authoring/checks/rule_text.h"
#include "authoring/entries.h"
#include "values/choice_format.h"
#include "values/field_width_list.h"
#include "values/symbol_table.h"
#include "values/value_types.h"

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
    return set_.Has(attribute) ? Key().Value(NameOf(attribute)) : WideStringView();
  }
  bool Has(Attribute attribute) const { return set_.Has(attribute); }
  AttributeSet Set() const { return set_; }  // those with a text; kUnknown when there are others
  // "Table,..." looked up; its text, or values::kUnresolved.
  const WideString& Resolved(Attribute attribute) const;

  // OID, or without one the command OID.
  WideStringView Oid() const { return entry_->Oid(); }
  bool IsProperty() const { return Has(Attribute::kOid) || Has(Attribute::kCmdOid); }
  bool IsField() const { return Has(Attribute::kCmdOid); }
  bool IsMenu() const { return entry_->IsMenu(); }
  bool IsCommand() const { return Has(Attribute::kFunction) || Has(Attribute::kAppName); }
  bool IsInteger() const { return Get(Attribute::kType) == LoadText(TextId::kInteger); }
  // The type as values are read by it; nothing when it is none that is edited.
  std::optional<values::TypeCode> Type() const { return values::TypeCodeOf(Get(Attribute::kType)); }
  // Enter opens an editor for its value.
  bool IsEditable() const;

  // The choice list through tables and symbols.
  const WideString& ChoiceText() const;
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

 private:
  struct Parsed;
  Parsed& Cache() const;

  const Survey* survey_;
  const Entry* entry_;
  AttributeSet set_;
  mutable std::unique_ptr<Parsed> parsed_;
};

struct Subject::Parsed {
  std::vector<std::pair<Attribute, WideString>> resolved;
  std::optional<WideString> choiceText;
  std::optional<values::ChoiceFormat> choices;
  std::optional<values::FieldWidthList> layout;
  std::optional<std::vector<RuleText>> rules;
};

}  // namespace authoring
