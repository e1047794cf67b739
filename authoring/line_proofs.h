// What can never be of a line, whatever values the settings have that rules read.
#pragma once

#include "authoring/assumption.h"
#include "authoring/checks/survey.h"
#include "authoring/followed_trial.h"

#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

namespace authoring {

// A line after its rules have run, in one case of the values.
struct LineCase {
  const model::MenuItem& item;
  const std::vector<bool>& holds;  // of its rules in their order, whether each holds

  bool IsShown() const;
  bool IsEditable() const;
};

struct Ruling {
  bool impossible = false;  // proven
  std::string reason;       // of which settings no values lead there; or why that is not decided, empty when it can be
};

class LineProofs {
 public:
  // The trial is of the survey's configuration; both live longer.
  LineProofs(const Survey& survey, FollowedTrial& trial);

  // For each of the goals, whether a person can ever stand before the line with the goal fulfilled: in some case of all
  // values that matter, with every menu above the line open when it was entered. The trial is built anew.
  using IsThere = std::function<bool(const LineCase& line)>;
  std::vector<Ruling> Decide(const ItemPlace& place, const std::vector<IsThere>& goals);

 private:
  const Subject* SubjectOf(const model::MenuItem& item) const;

  const Survey& survey_;
  FollowedTrial& trial_;
  std::unordered_map<const config::ConfigKey*, const Subject*> subjects_;
};

}  // namespace authoring
