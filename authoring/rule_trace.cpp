#include "authoring/rule_trace.h"

#include "authoring/checks/attributes.h"
#include "config/config_key.h"
#include "rules/rule_actions.h"
#include "rules/rule_tokens.h"
#include "values/property_descriptor.h"
#include "values/shown_value.h"

namespace authoring {

WideString SeenRule::Attribute() const { return NumberedName(authoring::Attribute::kDependency, number); }

void RuleTrace::Clear() {
  rules_.clear();
  current_ = nullptr;
  wireless_.clear();
}

const std::vector<SeenRule>& RuleTrace::RulesOf(const config::ConfigKey* key) const {
  static const std::vector<SeenRule> kNone;
  const auto found = rules_.find(key);
  return found == rules_.end() ? kNone : found->second;
}

void RuleTrace::OnNode(const config::ConfigKey& node, const model::MenuItem*) {
  current_ = &rules_[&node];
  current_->clear();
  wireless_.clear();  // the wireless rules run after those of a menu's lines
}

void RuleTrace::OnRule(int number, WideStringView text) {
  if (current_ == nullptr) return;
  SeenRule& rule = current_->emplace_back();
  rule.number = number;
  rule.text = text;
}

void RuleTrace::OnOperand(const rules::OperandReading& reading) {
  const WideString value(reading.value);
  operand_ = {WideString(reading.name), WideString(reading.oid), value, reading.origin, {}, {}, value};
  if (reading.property == nullptr) return;
  operand_.property = base::Trim(reading.property->DisplayName());
  if (reading.origin != rules::OperandOrigin::kProperty) return;
  operand_.shown = values::MaskedText(*reading.property, value);
  const values::ChoiceFormat choices = reading.property->Choices();
  if (const auto index = choices.IndexOf(reading.property->GetValue())) {
    operand_.choice = choices.Entries()[*index].text;
  }
}

void RuleTrace::OnComparison(const rules::Comparison& comparison) {
  SeenRule* rule = Current();
  if (rule == nullptr) return;
  rule->comparisons.push_back({comparison.join, std::move(operand_), WideString(comparison.wanted),
                               comparison.wantsEqual, comparison.exact, comparison.holds, comparison.holdsSoFar});
  operand_ = {};
}

void RuleTrace::OnDecided(bool isCondition, bool holds) {
  SeenRule* rule = Current();
  if (rule == nullptr) return;
  rule->holds = holds;
  if (isCondition) {
    rule->form = SeenRule::Form::kCondition;
  } else if (WideStringView rest = rule->text; rules::NextRuleToken(rest).text == u"IF") {
    // What breaks as a condition is run as a rule of the other kind, whose comparison is the last.
    const bool isFlagRule = rules::FindFlag(rules::ReadFlagRule(rule->text).flag) != nullptr;
    if (!isFlagRule) rule->form = SeenRule::Form::kMalformed;
    rule->comparisons.erase(rule->comparisons.begin(), rule->comparisons.end() - (isFlagRule ? 1 : 0));
  }
}

void RuleTrace::OnAction(const rules::RuleAction& action) {
  SeenRule* rule = Current();
  if (rule == nullptr) return;
  rule->action = action.text;
  rule->knownAction = action.known;
  rule->state = action.state;
}

void RuleTrace::OnChoices(const model::MenuItem&, WideStringView choices, WideStringView fallback) {
  SeenRule* rule = Current();
  if (rule == nullptr) return;
  rule->choices = choices;
  rule->fallback = fallback;
}

void RuleTrace::OnWireless(const rules::WirelessChange& change) {
  wireless_.push_back({change.kind, WideString(change.oid), WideString(change.text), change.settings});
}

}  // namespace authoring
