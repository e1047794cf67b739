#include "simulator/screen_scale.h"

#include <algorithm>
#include <cmath>

namespace simulator {
namespace {

// A cell stands for at least as much as a small character takes on the screen.
constexpr double kMinColumnPx = 4.2;
constexpr double kMinRowPx = 13.0;

int Rounded(double number) { return static_cast<int>(std::lround(number)); }

}  // namespace

ScreenScale::ScreenScale(int screenWidthPx, int screenHeightPx, int left, int top, int maxColumns, int maxRows)
    : columnPx_(std::max(kMinColumnPx, static_cast<double>(screenWidthPx) / std::max(maxColumns, 1))),
      rowPx_(std::max(kMinRowPx, static_cast<double>(screenHeightPx) / std::max(maxRows, 1))),
      screen_{left, top, left + Rounded(screenWidthPx / columnPx_), top + Rounded(screenHeightPx / rowPx_)} {}

int ScreenScale::Column(int xPx) const { return screen_.left + Rounded(xPx / columnPx_); }

int ScreenScale::Row(int yPx) const { return screen_.top + Rounded(yPx / rowPx_); }

CellRect ScreenScale::Cells(const platform::Rect& rectPx) const {
  CellRect cells{Column(rectPx.left), Row(rectPx.top), Column(rectPx.right), Row(rectPx.bottom)};
  cells.right = std::max(cells.right, cells.left + 1);
  cells.bottom = std::max(cells.bottom, cells.top + 1);
  return cells;
}

}  // namespace simulator
