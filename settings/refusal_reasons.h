// Why a person at the menus cannot make a change now, in words, and which settings' values that comes from.
#pragma once

#include "authoring/rule_trace.h"
#include "settings/plan.h"

#include <set>

namespace settings {

struct Reason {
  std::string why;
  std::vector<std::string> because;
  std::set<WideString> levers;  // OIDs of settings whose values decided so
};

// Of a line that is hidden, blank or locked; a menu's, where it is not the setting's own.
Reason ReasonOfState(const authoring::RuleTrace& trace, const model::MenuItem& line, bool isMenu);
// Of a value that is none of the choices to which rules have narrowed them.
Reason ReasonOfChoices(const authoring::RuleTrace& trace, const model::MenuItem& line, std::string why);

}  // namespace settings
