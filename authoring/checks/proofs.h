// What can be proven about rules: the utility's own evaluator is run over all values that matter.
#pragma once

#include "authoring/checks/check.h"
#include "authoring/followed_trial.h"

#include <functional>

namespace authoring {

// The trial is of the survey's configuration. Its values are of no use afterwards.
void ProveRules(const Survey& survey, FollowedTrial& trial, Findings& findings,
                const std::function<void(std::size_t done, std::size_t all)>& progress);

}  // namespace authoring
