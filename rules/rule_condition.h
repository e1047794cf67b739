// Conditional rules: IF condition THEN action [ELSE action]. A condition is comparisons "name EQ value" or "name NEQ
// value" joined by AND and OR, strictly from left to right; a group in parentheses may stand only first.
#pragma once

#include "base/wide_string.h"

#include <optional>

namespace rules {

class RuleListener;

// Knows the current value of what a rule names.
class OperandSource {
 public:
  virtual ~OperandSource() = default;
  virtual WideString ResolveOperand(WideStringView displayName) = 0;
};

// Takes a condition up to and including its THEN from `rest`. Nothing when it is malformed.
std::optional<bool> EvaluateCondition(WideStringView& rest, OperandSource& operands, RuleListener* listener = nullptr);

// The actions that stand behind a condition.
struct RuleActions {
  WideString then;
  WideString otherwise;  // empty without an ELSE
};
// Takes as much of `rest` as is read, for `then` alone or for both.
RuleActions TakeActions(WideStringView& rest);

// The action that a conditional rule asks for now, empty for none. Nothing when the text is no conditional rule or its
// condition is malformed.
std::optional<WideString> ChooseAction(WideStringView rule, OperandSource& operands, RuleListener* listener = nullptr);

}  // namespace rules
