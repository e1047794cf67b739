// Plays the utility through everything that a configuration lets a person do.
#pragma once

#include "authoring/goals.h"
#include "authoring/player.h"

#include <array>
#include <functional>
#include <string>
#include <vector>

namespace authoring {

struct ExploreTerms {
  std::size_t mostKeys = 300'000;
  int widthPx = 240;
  int heightPx = 320;
  std::function<void(std::size_t reached, std::size_t all)> progress;
};

// One play that led somewhere new, from a fresh start.
struct PlayedScript {
  std::string name;                   // of its file, without an extension
  std::vector<std::string> findings;  // what was new
  std::string text;                   // the UI script
};

struct Unreached {
  Goal goal;
  std::string reason;
  bool impossible = false;  // proven: no value that the settings can take leads there
};

struct Exploration {
  std::string problem;  // why nothing was played; empty: it was
  std::array<std::size_t, kGoalKinds> reached{};
  std::array<std::size_t, kGoalKinds> all{};
  std::vector<Unreached> unreached;
  std::size_t tooDeep = 0;  // entries that lie deeper than is played
  std::vector<PlayedScript> scripts;
  std::size_t keys = 0;
  bool usedUp = false;  // the keys did not suffice

  // Of all that is not proven to be impossible.
  bool IsComplete() const;
};

// The same keys every time for one configuration. The storage is only read.
Exploration Explore(const Configuration& configuration, const ExploreTerms& terms);

}  // namespace authoring
