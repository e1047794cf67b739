#include "authoring/rule_words.h"

#include "authoring/checks/rule_text.h"
#include "authoring/secrets.h"
#include "base/format.h"
#include "base/utf8.h"
#include "rules/operands.h"
#include "rules/rule_tokens.h"
#include "values/value_types.h"

#include <algorithm>
#include <optional>

namespace authoring {
namespace {

using rules::NextRuleToken;
using rules::RuleToken;

std::string NameOf(const Trial& trial, WideStringView oid, WideStringView written) {
  const auto* property = trial.Model().FindDescriptor(oid);
  return base::ToUtf8(property == nullptr ? written : base::Trim(property->DisplayName()));
}

std::string Compared(const Trial& trial, WideStringView oid, WideStringView written, WideStringView value, bool equal) {
  return NameOf(trial, oid, written) + (equal ? " is " : " is not ") + ValueInWords(trial, oid, value);
}

// A condition up to and including its THEN; nothing when it is malformed.
std::optional<std::string> ConditionInWords(const Trial& trial, WideStringView& rest) {
  std::string words;
  std::size_t open = 0;  // groups, whose parentheses stand in front
  WideString join;
  for (;;) {
    RuleToken left = NextRuleToken(rest);
    if (left.text.empty()) return std::nullopt;
    while (left.OpensGroup() && !left.quoted) {
      words += "(";
      ++open;
      left.text.erase(0, 1);
      if (left.text.empty()) left = NextRuleToken(rest);
    }
    const RuleToken relation = NextRuleToken(rest);
    if (relation.text != u"EQ" && relation.text != u"NEQ") return std::nullopt;
    const RuleToken right = NextRuleToken(rest);
    words += Compared(trial, trial.Model().OidByName(left.text), left.text, right.text, relation.text == u"EQ");
    RuleToken next = NextRuleToken(rest);
    while (next.ClosesGroup()) {
      words += ")";
      open -= open > 0 ? 1 : 0;
      join.clear();  // what joined the group's parts
      next = NextRuleToken(rest);
    }
    if (next.text == u"THEN") return words;
    if (next.text != u"AND" && next.text != u"OR") return std::nullopt;
    // They are taken from left to right.
    if (!join.empty() && join != next.text) words = words.substr(0, open) + "(" + words.substr(open) + ")";
    join = next.text;
    words += next.text == u"AND" ? " and " : " or ";
  }
}

std::string ChoicesInWords(const Trial& trial, const NarrowedChoices& narrowed) {
  const values::ChoiceFormat choices(trial.Symbols().TextOf(narrowed.choices), values::KeyMode::kText);
  std::string words;
  for (const auto& entry : choices.Entries()) words += (words.empty() ? "" : ", ") + base::ToUtf8(entry.text);
  return words.empty() ? "there are no choices" : "the choices are " + words;
}

// What happens to the line; empty for nothing that a person notices.
std::string ActionInWords(const Trial& trial, WideStringView action) {
  static const struct {
    WideStringView action;
    const char* words;
  } kActions[] = {
      {u"Display", "the line is shown"},
      {u"NoDisplay", "the line is not shown"},
      {u"Blank", "the line is empty"},
      {u"NoEdit", "it cannot be changed"},
      {u"CheckMark", "a check mark stands in front"},
      {u"UnCheckMark", "no check mark stands in front"},
      {u"Refresh", "it is read from the terminal again"},
  };
  if (const auto narrowed = ChoicesOf(action)) return ChoicesInWords(trial, *narrowed);
  const auto* found = std::find_if(std::begin(kActions), std::end(kActions),
                                   [&](const auto& known) { return base::EqualsIgnoringCase(known.action, action); });
  return found == std::end(kActions) ? "" : found->words;
}

std::string ConditionalRule(const Trial& trial, WideStringView rest) {
  const auto condition = ConditionInWords(trial, rest);
  if (!condition) return {};
  const std::string action = ActionInWords(trial, NextRuleToken(rest).text);
  const bool hasElse = base::EqualsIgnoringCase(NextRuleToken(rest).text, u"ELSE");
  const std::string otherwise = hasElse ? ActionInWords(trial, NextRuleToken(rest).text) : "";
  std::string words = action.empty() ? "" : "When " + *condition + ", " + action + ".";
  if (!otherwise.empty()) {
    words += words.empty() ? "Unless " + *condition + ", " + otherwise + "." : " Otherwise " + otherwise + ".";
  }
  return words;
}

std::string FlagRule(const Trial& trial, const config::ConfigKey& key, WideStringView rest) {
  const WideStringView name = rules::NextRuleField(rest);
  rules::NextRuleField(rest);
  WideStringView wanted = rules::NextRuleField(rest);
  const WideStringView flag = rules::NextRuleField(rest);
  if (base::EqualsIgnoringCase(wanted, rules::kEmptyName)) wanted = {};
  const WideString oid = rules::Operands::OidOfName(name, &key);
  if (base::EqualsIgnoringCase(flag, u"Refresh")) return "It is read from the terminal again each time it is shown.";
  const std::string action = ActionInWords(trial, flag);
  if (action.empty() || base::EqualsIgnoringCase(flag, u"UnCheckMark")) return {};
  if (oid.empty()) return wanted.empty() ? "Always: " + action + "." : std::string();
  if (base::EqualsIgnoringCase(flag, u"Display")) {
    return "Shown only when " + Compared(trial, oid, name, wanted, true) + ".";
  }
  return "When " + Compared(trial, oid, name, wanted, true) + ", " + action + ".";
}

}  // namespace

std::string ValueInWords(const Trial& trial, WideStringView oid, WideStringView value) {
  const auto* property = trial.Model().FindDescriptor(oid);
  if (property != nullptr) {
    if (!value.empty() && IsSecret(*property)) return "a certain value";
    values::PropertyValue parsed;
    property->ParseValue(value, parsed);
    const values::ChoiceFormat choices = property->Choices();
    if (const auto index = choices.IndexOf(parsed)) return base::ToUtf8(choices.Entries()[*index].text);
    const bool isFlag = values::TypeCodeOf(property->HeldType()) == values::TypeCode::kBool;
    if (isFlag && !value.empty()) return value == u"0" ? "FALSE" : "TRUE";
  }
  return value.empty() ? "empty" : "\"" + base::ToUtf8(value) + "\"";
}

std::vector<std::string> RulesInWords(const Trial& trial, const model::MenuItem& item) {
  std::vector<std::string> sentences;
  const config::ConfigKey* key = trial.Model().FindKey(item.Path());
  if (key == nullptr) return sentences;
  WideStringView rule = key->Value(u"Dependency");
  for (int number = 1; !rule.empty(); ++number) {
    WideStringView rest = rule;
    const bool isConditional = NextRuleToken(rest).text == u"IF";
    std::string sentence = isConditional ? ConditionalRule(trial, rest) : FlagRule(trial, *key, rule);
    if (!sentence.empty()) sentences.push_back(std::move(sentence));
    rule = key->Value(base::Format(u"Dependency%d", number));
  }
  return sentences;
}

}  // namespace authoring
