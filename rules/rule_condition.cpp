#include "rules/rule_condition.h"

#include "rules/rule_tokens.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace rules {
namespace {

// The comparison that begins with `left`; nothing without a comparing word.
std::optional<bool> Compare(const RuleToken& left, WideStringView& rest, OperandSource& operands) {
  const WideString value = operands.ResolveOperand(left.text);
  const RuleToken relation = NextRuleToken(rest);
  const bool wantsEqual = relation.text == u"EQ";
  if (!wantsEqual && relation.text != u"NEQ") return std::nullopt;
  const RuleToken right = NextRuleToken(rest);
  return base::EqualsIgnoringCase(value, right.text) == wantsEqual;
}

}  // namespace

std::optional<bool> EvaluateCondition(WideStringView& rest, OperandSource& operands) {
  // A group stands first in its level, so the level around it has no result of its own yet and takes the group's over:
  // one result and the number of open groups are all that is to be remembered.
  std::optional<bool> result;
  bool joinWithAnd = false;
  std::size_t openGroups = 0;

  for (;;) {
    const WideStringView before = base::Trim(rest);
    const RuleToken left = NextRuleToken(rest);
    if (left.OpensGroup()) {
      if (result || left.quoted) return std::nullopt;
      // However many parentheses stand together, they open one group.
      ++openGroups;
      rest = before.substr(std::min(before.find_first_not_of(u'('), before.size()));
      continue;
    }

    const std::optional<bool> comparison = Compare(left, rest, operands);
    if (!comparison) return std::nullopt;
    if (!result) {
      result = comparison;
    } else {
      result = joinWithAnd ? *result && *comparison : *result || *comparison;
    }

    RuleToken next = NextRuleToken(rest);
    // THEN ends whatever level is open, as a parenthesis does.
    while (next.ClosesGroup() || next.text == u"THEN") {
      if (openGroups == 0) return result;
      --openGroups;
      next = NextRuleToken(rest);
    }
    joinWithAnd = next.text == u"AND";
    if (!joinWithAnd && next.text != u"OR") return std::nullopt;
  }
}

std::optional<WideString> ChooseAction(WideStringView rule, OperandSource& operands) {
  WideStringView rest = rule;
  if (NextRuleToken(rest).text != u"IF") return std::nullopt;
  const std::optional<bool> holds = EvaluateCondition(rest, operands);
  if (!holds) return std::nullopt;

  RuleToken action = NextRuleToken(rest);
  if (*holds) return std::move(action.text);
  if (!base::EqualsIgnoringCase(NextRuleToken(rest).text, u"ELSE")) return WideString();
  return NextRuleToken(rest).text;
}

}  // namespace rules
