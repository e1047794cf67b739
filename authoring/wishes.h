// The search for the smallest changes that bring a line into a wanted state.
#pragma once

#include "authoring/explanation.h"
#include "authoring/values_that_matter.h"

namespace authoring {

// Fills in the ways of the wishes, trying values of the levers together. The wishes are not fulfilled as it is.
void FindWays(Trial& trial, const ItemPlace& place, const std::vector<Lever>& levers, std::vector<Wish>& wishes,
              const Tried& tried);

}  // namespace authoring
