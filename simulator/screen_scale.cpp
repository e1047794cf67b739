#include "simulator/screen_scale.h"

#include <algorithm>
#include <cmath>

namespace simulator {
namespace {

// A cell stands for as much as a small character takes on the screen, a row for little more than a small line.
constexpr double kColumnPx = 4.2;
constexpr double kMinRowPx = 13.0;
constexpr double kMaxRowPx = 14.6;

int Rounded(double number) { return static_cast<int>(std::lround(number)); }

}  // namespace

ScreenScale::ScreenScale(int screenWidthPx, int screenHeightPx, int left, int top, int rows)
    : rowPx_(std::clamp(static_cast<double>(screenHeightPx) / std::max(rows, 1), kMinRowPx, kMaxRowPx)),
      screen_{left, top, left + Rounded(screenWidthPx / kColumnPx), top + Rounded(screenHeightPx / rowPx_)} {}

int ScreenScale::Column(int xPx) const { return screen_.left + Rounded(xPx / kColumnPx); }

int ScreenScale::Row(int yPx) const { return screen_.top + Rounded(yPx / rowPx_); }

CellRect ScreenScale::Cells(const platform::Rect& rectPx) const {
  CellRect cells{Column(rectPx.left), Row(rectPx.top), Column(rectPx.right), Row(rectPx.bottom)};
  cells.right = std::max(cells.right, cells.left + 1);
  cells.bottom = std::max(cells.bottom, cells.top + 1);
  return cells;
}

}  // namespace simulator
