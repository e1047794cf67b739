// A terminal that is smaller than what it is to show: the part in sight follows what the user works on.
#pragma once

#include "simulator/screen_painter.h"

namespace simulator {

// Whether a terminal has fewer columns or rows than a box or a page of text may take.
bool IsTooSmall(int columns, int rows);

// What such a terminal shows instead.
PaintedScreen TooSmallScreen(int columns, int rows);

// The part of `whole` that a terminal of this size shows: its top left, moved as far as each of the places to see asks,
// the last one most.
PaintedScreen InViewport(PaintedScreen whole, int columns, int rows);

}  // namespace simulator
