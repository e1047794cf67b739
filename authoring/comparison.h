// What changed between two configurations, in an author's words.
#pragma once

#include "authoring/configuration.h"

#include <string>
#include <vector>

namespace authoring {

struct Change {
  std::string kind;      // "added", "removed", "renamed", "moved", "choice-added", "rule-changed", ...
  WideString path;       // the entry's, in the new configuration; of one that was removed in the old one
  std::string sentence;  // without the entry's name
  Position position;     // of the entry, in the configuration that `path` is of
};

// In the order of the new menus, what was removed last.
std::vector<Change> Compare(const Configuration& before, const Configuration& after);

}  // namespace authoring
