#include "simulator/viewport.h"

#include "base/number.h"

#include <algorithm>

namespace simulator {
namespace {

// Every box, and every page of text, is in sight in rows that are so many.
constexpr int kFewestColumns = 40;
constexpr int kFewestRows = 10;

// The nearest start of a range of `length` that has [from, to) in it; its beginning where it is too long.
int Moved(int start, int length, int from, int to) {
  start = std::max(start, to - length);
  return std::min(start, from);
}

CellRect Part(const PaintedScreen& whole, int columns, int rows) {
  int left = 0;
  int top = 0;
  for (const CellRect& place : whole.toSee) {
    left = Moved(left, columns, place.left, place.right);
    top = Moved(top, rows, place.top, place.bottom);
  }
  left = std::clamp(left, 0, std::max(whole.grid.Columns() - columns, 0));
  top = std::clamp(top, 0, std::max(whole.grid.Rows() - rows, 0));
  return {left, top, left + columns, top + rows};
}

}  // namespace

bool IsTooSmall(int columns, int rows) { return columns < kFewestColumns || rows < kFewestRows; }

PaintedScreen TooSmallScreen(int columns, int rows) {
  PaintedScreen screen{CellGrid(columns, rows), std::nullopt, {}};
  const WideString needed = base::ToText(kFewestColumns) + u"x" + base::ToText(kFewestRows);
  screen.grid.Text(0, 0, u"Too small: " + needed + u" is needed", CellStyle::kBold, screen.grid.Whole());
  return screen;
}

PaintedScreen InViewport(PaintedScreen whole, int columns, int rows) {
  if (columns >= whole.grid.Columns() && rows >= whole.grid.Rows()) return whole;
  const CellRect part = Part(whole, columns, rows);
  PaintedScreen screen{CellGrid(columns, rows), std::nullopt, {}};
  screen.grid.Copy(whole.grid, part.left, part.top);
  if (whole.caret && whole.caret->column >= part.left && whole.caret->column < part.right &&
      whole.caret->row >= part.top && whole.caret->row < part.bottom) {
    screen.caret = {whole.caret->column - part.left, whole.caret->row - part.top};
  }
  return screen;
}

}  // namespace simulator
