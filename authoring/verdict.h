// What decided how a line is shown, from what was traced when its menu was last opened.
#pragma once

#include "authoring/explanation.h"

namespace authoring {

Verdict VerdictOf(const Trial& trial, const RuleTrace& trace, const model::MenuItem& item);

}  // namespace authoring
