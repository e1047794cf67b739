// The search for the smallest changes that bring a line into a wanted state.
#pragma once

#include "authoring/explanation.h"
#include "authoring/levers.h"

#include <functional>

namespace authoring {

// What is to be brought about, and by which changes it was.
struct Aim {
  std::function<bool(const Look& look)> isReached;    // after the item was looked at
  std::vector<std::vector<SettingChange>> ways = {};  // of the fewest changes there are
  bool complete = false;                              // no way, and nothing was left untried
};
void FindChanges(Trial& trial, const ItemPlace& place, const std::vector<Lever>& levers, std::vector<Aim>& aims,
                 const Tried& tried);

// The change in people's words, and the keys to its editor now. The trial stands as it was made.
Step Describe(Trial& trial, const SettingChange& change);

// Fills in the ways of the wishes, trying values of the levers together. The wishes are not fulfilled as it is.
void FindWays(Trial& trial, const ItemPlace& place, const std::vector<Lever>& levers, std::vector<Wish>& wishes,
              const Tried& tried);

}  // namespace authoring
