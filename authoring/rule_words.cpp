#include "authoring/rule_words.h"

#include "authoring/checks/rule_text.h"
#include "authoring/entries.h"
#include "authoring/secrets.h"
#include "base/utf8.h"
#include "rules/operands.h"
#include "rules/rule_actions.h"
#include "values/value_types.h"

namespace authoring {
namespace {

std::string NameOf(const Trial& trial, WideStringView oid, WideStringView written) {
  const auto* property = trial.Model().FindDescriptor(oid);
  return base::ToUtf8(property == nullptr ? written : base::Trim(property->DisplayName()));
}

std::string Compared(const Trial& trial, WideStringView oid, WideStringView written, WideStringView value, bool equal) {
  return NameOf(trial, oid, written) + (equal ? " is " : " is not ") + ValueInWords(trial, oid, value);
}

// They are taken from left to right, however they are grouped: what belongs together where AND and OR change stands in
// parentheses.
std::string ConditionInWords(const Trial& trial, const std::vector<RuleComparison>& comparisons) {
  using Join = rules::Comparison::Join;
  std::string words;
  Join before = Join::kFirst;
  for (const RuleComparison& comparison : comparisons) {
    if (comparison.join != Join::kFirst) {
      if (before != Join::kFirst && before != comparison.join) words = "(" + words + ")";
      words += comparison.join == Join::kAnd ? " and " : " or ";
    }
    words += Compared(trial, trial.Model().OidByName(comparison.name), comparison.name, comparison.wanted,
                      comparison.wantsEqual);
    before = comparison.join;
  }
  return words;
}

std::string ChoicesInWords(const Trial& trial, WideStringView list) {
  const values::ChoiceFormat choices(trial.Symbols().TextOf(list), values::KeyMode::kText);
  std::string words;
  for (const auto& entry : choices.Entries()) words += (words.empty() ? "" : ", ") + base::ToUtf8(entry.text);
  return words.empty() ? "there are no choices" : "the choices are " + words;
}

// What happens to the line; empty for nothing that a person notices.
std::string EffectInWords(rules::Effect effect) {
  using rules::Effect;
  switch (effect) {
    case Effect::kNothing: return {};
    case Effect::kShow: return "the line is shown";
    case Effect::kHide: return "the line is not shown";
    case Effect::kBlank: return "the line is empty";
    case Effect::kLock: return "it cannot be changed";
    case Effect::kMark: return "a check mark stands in front";
    case Effect::kUnmark: return "no check mark stands in front";
    case Effect::kRefresh: return "it is read from the terminal again";
  }
  return {};
}

std::string ActionInWords(const Trial& trial, WideStringView action) {
  if (const auto narrowed = rules::ReadChoicesAction(action)) return ChoicesInWords(trial, narrowed->choices);
  const rules::ActionRow* known = rules::FindAction(action);
  return known == nullptr ? std::string() : EffectInWords(known->effect);
}

std::string ConditionalRule(const Trial& trial, const RuleText& rule) {
  const std::string condition = ConditionInWords(trial, rule.comparisons);
  const std::string action = ActionInWords(trial, rule.thenAction);
  const std::string otherwise = ActionInWords(trial, rule.elseAction);
  std::string words = action.empty() ? "" : "When " + condition + ", " + action + ".";
  if (!otherwise.empty()) {
    words += words.empty() ? "Unless " + condition + ", " + otherwise + "." : " Otherwise " + otherwise + ".";
  }
  return words;
}

std::string FlagRule(const Trial& trial, const config::ConfigKey& key, const RuleText& rule) {
  using rules::Effect;
  const rules::FlagRow* flag = rules::FindFlag(rule.flag);
  if (flag == nullptr) return {};
  if (flag->whenMatched == Effect::kRefresh) return "It is read from the terminal again each time it is shown.";
  const RuleComparison& comparison = rule.comparisons.front();
  const WideString oid = rules::Operands::OidOfName(comparison.name, &key);
  if (oid.empty()) {
    // A name that stands for nothing has no value: the comparison comes out the same for ever.
    const Effect effect = comparison.wanted.empty() ? flag->whenMatched : flag->otherwise;
    const std::string words = EffectInWords(effect);
    return words.empty() ? words : "Always: " + words + ".";
  }
  const std::string condition = Compared(trial, oid, comparison.name, comparison.wanted, true);
  if (flag->otherwise == Effect::kHide) return "Shown only when " + condition + ".";
  return "When " + condition + ", " + EffectInWords(flag->whenMatched) + ".";
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
  const config::ConfigKey* key = item.Key();
  if (key == nullptr) return sentences;
  int number = 0;
  for (const WideStringView text : RulesOf(*key)) {
    const RuleText rule = ReadRule(number++, text);
    std::string sentence;
    if (rule.form == RuleText::Form::kCondition) sentence = ConditionalRule(trial, rule);
    if (rule.form == RuleText::Form::kFlag) sentence = FlagRule(trial, *key, rule);
    if (!sentence.empty()) sentences.push_back(std::move(sentence));
  }
  return sentences;
}

}  // namespace authoring
