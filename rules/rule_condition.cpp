#include "rules/rule_condition.h"

#include "rules/rule_listener.h"
#include "rules/rule_tokens.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace rules {
namespace {

using Join = Comparison::Join;

// The result so far with the comparison that begins with `left`; nothing without a comparing word.
std::optional<bool> Compare(std::optional<bool> soFar, Join join, const RuleToken& left, WideStringView& rest,
                            OperandSource& operands, RuleListener* listener) {
  const WideString value = operands.ResolveOperand(left.text);
  const RuleToken relation = NextRuleToken(rest);
  const bool wantsEqual = relation.text == u"EQ";
  if (!wantsEqual && relation.text != u"NEQ") return std::nullopt;
  const RuleToken right = NextRuleToken(rest);
  const bool holds = base::EqualsIgnoringCase(value, right.text) == wantsEqual;

  bool joined = holds;
  if (join == Join::kAnd) joined = *soFar && holds;
  if (join == Join::kOr) joined = *soFar || holds;
  if (listener != nullptr) {
    listener->OnComparison({join, left.text, value, right.text, wantsEqual, false, holds, joined});
  }
  return joined;
}

}  // namespace

std::optional<bool> EvaluateCondition(WideStringView& rest, OperandSource& operands, RuleListener* listener) {
  // A group stands first in its level, so the level around it has no result of its own yet and takes the group's over:
  // one result and the number of open groups are all that is to be remembered.
  std::optional<bool> result;
  Join join = Join::kFirst;
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

    result = Compare(result, join, left, rest, operands, listener);
    if (!result) return std::nullopt;

    RuleToken next = NextRuleToken(rest);
    // THEN ends whatever level is open, as a parenthesis does.
    while (next.ClosesGroup() || next.text == u"THEN") {
      if (openGroups == 0) return result;
      --openGroups;
      next = NextRuleToken(rest);
    }
    join = next.text == u"AND" ? Join::kAnd : Join::kOr;
    if (join == Join::kOr && next.text != u"OR") return std::nullopt;
  }
}

RuleActions TakeActions(WideStringView& rest) {
  RuleActions actions;
  actions.then = NextRuleToken(rest).text;
  WideStringView behind = rest;
  if (base::EqualsIgnoringCase(NextRuleToken(behind).text, u"ELSE")) {
    actions.otherwise = NextRuleToken(behind).text;
    rest = behind;
  }
  return actions;
}

std::optional<WideString> ChooseAction(WideStringView rule, OperandSource& operands, RuleListener* listener) {
  WideStringView rest = rule;
  if (NextRuleToken(rest).text != u"IF") return std::nullopt;
  const std::optional<bool> holds = EvaluateCondition(rest, operands, listener);
  if (!holds) return std::nullopt;
  if (listener != nullptr) listener->OnDecided(true, *holds);

  RuleActions actions = TakeActions(rest);
  return *holds ? std::move(actions.then) : std::move(actions.otherwise);
}

}  // namespace rules
