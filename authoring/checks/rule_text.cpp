#include "authoring/checks/rule_text.h"

#include "rules/rule_condition.h"
#include "rules/rule_listener.h"
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
    comparisons_.push_back({WideString(comparison.name), WideString(comparison.wanted), comparison.wantsEqual});
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
  rule.thenAction = rules::NextRuleToken(rest).text;
  WideStringView behind = rest;
  if (base::EqualsIgnoringCase(rules::NextRuleToken(behind).text, u"ELSE")) {
    rule.elseAction = rules::NextRuleToken(behind).text;
    rest = behind;
  }
  if (!base::Trim(rest).empty()) rule.rest = static_cast<std::size_t>(base::Trim(rest).data() - rule.text.data());
}

void ReadFlagRule(RuleText& rule) {
  std::vector<WideStringView> fields;
  WideStringView rest = rule.text;
  for (std::size_t bar = rest.find(u'|'); bar != WideStringView::npos; bar = rest.find(u'|')) {
    fields.push_back(rest.substr(0, bar));
    rest.remove_prefix(bar + 1);
  }
  fields.push_back(rest);
  rule.fields = fields.size();
  fields.resize(std::max<std::size_t>(fields.size(), 4));
  WideString wanted(base::EqualsIgnoringCase(fields[2], u"Empty") ? WideStringView() : fields[2]);
  rule.comparisons.push_back({WideString(fields[0]), std::move(wanted), true});
  rule.type = fields[1];
  rule.flag = fields[3];
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
  } else if (text.find(u'|') != WideStringView::npos) {
    ReadFlagRule(rule);
  } else {
    rule.form = RuleText::Form::kMalformed;
    rule.reason = "a rule is IF, in capitals, and a condition, or OID|type|value|flag";
  }
  return rule;
}

std::optional<NarrowedChoices> ChoicesOf(WideStringView action) {
  constexpr WideStringView kPrefix = u"ChoiceFmt=";
  if (!base::EqualsIgnoringCase(action.substr(0, kPrefix.size()), kPrefix)) return std::nullopt;
  action.remove_prefix(kPrefix.size());
  action.remove_prefix(std::min(action.find_first_not_of(u'"'), action.size()));
  action = action.substr(0, action.find(u'"'));
  const std::size_t colon = action.find(u':');
  NarrowedChoices narrowed{WideString(action.substr(0, colon)), std::nullopt};
  // Nothing behind the colon, and the value stays.
  if (colon != WideStringView::npos && colon + 1 < action.size())
    narrowed.fallback = WideString(action.substr(colon + 1));
  return narrowed;
}

}  // namespace authoring
