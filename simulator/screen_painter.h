// Paints the simulated terminal's windows as character cells.
#pragma once

#include "simulator/cell_grid.h"

#include <optional>
#include <vector>

namespace simulator {

struct PaintedScreen {
  CellGrid grid;
  struct Caret {
    int column = 0;
    int row = 0;
  };
  std::optional<Caret> caret;   // where what is typed will stand
  std::vector<CellRect> toSee;  // what should be in sight, the most important last
};

// What is shown, and how the device stands.
struct DeviceScreen {
  int widthPx = 240;
  int heightPx = 320;
  bool inserts = false;  // typing inserts, and does not overwrite
  WideString name = u"Valtorix terminal";
};

// The device with its frame and what its screen shows now, on a terminal of so many cells. On the thread of the
// windows, between messages.
PaintedScreen PaintScreen(int columns, int rows, const DeviceScreen& device);

}  // namespace simulator
