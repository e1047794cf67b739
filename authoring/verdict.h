// What decided how a line is shown, from what was traced when its menu was last opened.
#pragma once

#include "authoring/explanation.h"

namespace authoring {

Verdict VerdictOf(const RuleTrace& trace, const model::MenuItem& item);

// The rules of a line and of the menus above it. Those of an open menu count as well: another value may close it.
struct RulesThatCount {
  std::vector<SeenRule> rules;
  bool wireless = false;  // the wireless rules changed one of them

  void Add(const Verdict& verdict);
};

}  // namespace authoring
