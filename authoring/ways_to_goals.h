// How what the plays have not reached can be reached: by edits at the terminal, or by other values of the device.
#pragma once

#include "authoring/goals.h"

#include <map>
#include <string>
#include <vector>

namespace authoring {

struct PreparedEdit {
  ItemPlace place;
  std::string choice;  // empty: `text` is typed
  std::string text;
};

struct PreparedWay {
  std::vector<PreparedEdit> edits;  // in this order
  std::string device;               // lines for the device's file, of what nobody can edit
};

struct WayToGoal {
  Goal goal;
  std::vector<PreparedWay> ways;  // the likeliest first
  std::string reason;             // in case they do not lead there
  bool impossible = false;        // proven
};

// Of all goals that were not reached, by their ids.
std::map<std::string, WayToGoal> FindWaysToGoals(const Configuration& configuration, const Goals& goals);

}  // namespace authoring
