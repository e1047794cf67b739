// The parts of a rule, found by the rules' own reader.
#pragma once

#include "base/wide_string.h"
#include "rules/rule_listener.h"

#include <cstddef>
#include <vector>

namespace authoring {

struct RuleComparison {
  WideString name;    // as the rule has it
  WideString wanted;  // on the right
  bool wantsEqual = true;
  rules::Comparison::Join join = rules::Comparison::Join::kFirst;  // with all before it
};

struct RuleText {
  enum class Form { kFlag, kCondition, kMalformed };

  int number = 0;  // 0: `Dependency`, 1: `Dependency1`, ...
  WideStringView text;
  Form form = Form::kFlag;
  std::vector<RuleComparison> comparisons;  // of a flag rule its one
  // Of a flag rule.
  WideString type;
  WideString flag;
  std::size_t fields = 0;
  // Of a condition: its actions, and what stands behind them.
  WideString thenAction;
  WideString elseAction;
  std::size_t rest = WideStringView::npos;  // where what is not read begins; npos: nothing is left
  // Of a malformed one: where it breaks, and why.
  std::size_t broken = 0;
  const char* reason = "";
};

RuleText ReadRule(int number, WideStringView text);

}  // namespace authoring
