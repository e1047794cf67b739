// The settings that have a say in how a line looks, and the other values of each that are worth a try.
#pragma once

#include "authoring/checks/survey.h"
#include "authoring/rule_trace.h"
#include "authoring/trial.h"

#include <vector>

namespace authoring {

struct Lever {
  WideString oid;
  WideString current;
  std::vector<WideString> values;  // that matter, each other than the current one
};

// The settings that these rules read, and those that the wireless rules read when `wireless`, each once.
std::vector<Lever> LeversOf(const Survey& survey, const Trial& trial, const std::vector<SeenRule>& rules,
                            bool wireless);

// At most this many settings, and values of one setting: more would not be tried anyway.
inline constexpr std::size_t kMostLevers = 64;
inline constexpr std::size_t kMostValues = 32;

}  // namespace authoring
