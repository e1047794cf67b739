// Paints the simulated terminal's windows as character cells.
#pragma once

#include "simulator/cell_grid.h"

#include <optional>

namespace simulator {

struct PaintedScreen {
  CellGrid grid;
  struct Caret {
    int column = 0;
    int row = 0;
  };
  std::optional<Caret> caret;  // where what is typed will stand
};

// The device with its frame and what its screen shows now, on a terminal of so many cells. On the thread of the
// windows, between messages.
PaintedScreen PaintScreen(int columns, int rows, int screenWidthPx, int screenHeightPx);

}  // namespace simulator
