#include "authoring/checks/rule_text.h"

#include "rules/rule_actions.h"
#include "rules/rule_condition.h"
#include "rules/rule_tokens.h"

#include <algorithm>

namespace authoring {
namespace {

class Nothing final : public rules::OperandSource {
 public:
  WideString ResolveOperand(WideStringView) override { return {}; }
};

class Recorder final : public rules::RuleListener {
 public:
  explicit Recorder(std::vector<RuleComparison>& comparisons) : comparisons_(comparisons) {}
  void OnComparison(const rules::Comparison& comparison) override {
    comparisons_.push_back(
        {WideString(comparison.name), WideString(comparison.wanted), comparison.wantsEqual, comparison.join});
  }

 private:
  std::vector<RuleComparison>& comparisons_;
};

// Where the last token before `left` units remained begins.
std::size_t LastTokenStart(WideStringView text, std::size_t left) {
  WideStringView rest = text;
  std::size_t start = 0;
  while (rest.size() > left) {
    start = text.size() - base::Trim(rest).size();
    const std::size_t before = rest.size();
    rules::NextRuleToken(rest);
    if (rest.size() == before) break;
  }
  return std::min(start, text.size());
}

const char* ReasonOf(WideStringView text, std::size_t broken) {
  const WideStringView at = text.substr(broken);
  if (at.empty()) return "it ends too early";
  if (at.starts_with(u'(')) return "a group must stand first";
  if (at.starts_with(u')')) return "there is no group to close";
  return "EQ, NEQ, AND, OR or THEN is expected here";
}

void ReadCondition(WideStringView rest, RuleText& rule) {
  Nothing nothing;
  Recorder recorder(rule.comparisons);
  if (!rules::EvaluateCondition(rest, nothing, &recorder)) {
    rule.form = RuleText::Form::kMalformed;
    rule.broken = rest.empty() && base::Trim(rule.text).ends_with(u"THEN") ? rule.text.size()
                                                                           : LastTokenStart(rule.text, rest.size());
    rule.reason = ReasonOf(rule.text, rule.broken);
    return;
  }
  rule.form = RuleText::Form::kCondition;
  rules::RuleActions actions = rules::TakeActions(rest);
  rule.thenAction = std::move(actions.then);
  rule.elseAction = std::move(actions.otherwise);
  if (!base::Trim(rest).empty()) rule.rest = static_cast<std::size_t>(base::Trim(rest).data() - rule.text.data());
}

void ReadFlagRule(RuleText& rule) {
  const rules::FlagRule parts = rules::ReadFlagRule(rule.text);
  rule.fields = static_cast<std::size_t>(std::count(rule.text.begin(), rule.text.end(), u'|')) + 1;
  rule.comparisons.push_back({WideString(parts.name), WideString(parts.wanted)});
  rule.type = parts.type;
  rule.flag = parts.flag;
}

}  // namespace

RuleText ReadRule(int number, WideStringView text) {
  RuleText rule;
  rule.number = number;
  rule.text = text;
  WideStringView rest = text;
  const rules::RuleToken first = rules::NextRuleToken(rest);
  if (first.text == u"IF") {
    ReadCondition(rest, rule);
    const bool isMalformed = rule.form == RuleText::Form::kMalformed;
    if (isMalformed && rules::FindFlag(rules::ReadFlagRule(text).flag) != nullptr) {
      // What breaks as a condition is run as a rule of the other kind.
      rule = RuleText();
      rule.number = number;
      rule.text = text;
      ReadFlagRule(rule);
    }
  } else if (text.find(u'|') != WideStringView::npos) {
    ReadFlagRule(rule);
  } else {
    rule.form = RuleText::Form::kMalformed;
    rule.reason = "a rule is IF, in capitals, and a condition, or OID|type|value|flag";
  }
  return rule;
}

}  // namespace authoring
