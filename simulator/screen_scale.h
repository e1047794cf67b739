// From the pixels of the device's screen to cells.
#pragma once

#include "platform/window.h"
#include "simulator/cell_grid.h"

namespace simulator {

class ScreenScale {
 public:
  // The screen is to lie at `left`, `top` and to take so many rows, as far as its lines are neither torn apart nor
  // pushed together by it.
  ScreenScale(int screenWidthPx, int screenHeightPx, int left, int top, int rows);

  // The cells of the screen.
  const CellRect& Screen() const { return screen_; }

  int Column(int xPx) const;
  int Row(int yPx) const;
  // At least one cell.
  CellRect Cells(const platform::Rect& rectPx) const;

 private:
  double rowPx_;
  CellRect screen_;
};

}  // namespace simulator
