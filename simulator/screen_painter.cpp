#include "simulator/screen_painter.h"

#include "platform/host/desktop.h"
#include "simulator/control_painter.h"
#include "simulator/keypad_legend.h"
#include "simulator/viewport.h"

#include <algorithm>
#include <utility>

namespace simulator {
namespace {

namespace host = platform::host;
namespace style = platform::style;
using platform::WindowHandle;

// Beside the device, where there is room.
void PaintLegend(CellGrid& grid, int left, bool inserts) {
  if (left + kLegendColumns > grid.Columns()) return;
  int row = 2;
  grid.Text(left, row++, u"Keypad", CellStyle::kBold, grid.Whole());
  for (const WideString& line : KeypadLegend(inserts)) {
    grid.Text(left, row++, line, CellStyle::kFaint, grid.Whole());
  }
}

// The window's name: in its caption, whose rows hold nothing else.
void PaintTitle(PaintedScreen& screen, const CellRect& row, WideStringView title, const CellRect& clip) {
  screen.grid.Fill(row, {U' ', CellStyle::kTitleBar}, clip);
  screen.grid.Text(row.left + 1, row.top, title, CellStyle::kTitleBar, Intersection(row, clip));
}

void PaintWindow(PaintedScreen& screen, const ScreenScale& scale, WindowHandle window, bool isBottom) {
  const CellRect& device = scale.Screen();
  const CellRect client = scale.Cells(host::ClientRectOnScreen(window));
  const bool hasCaption = (platform::StyleOf(window) & style::kCaption) == style::kCaption;
  // The frame lies around the client area, a caption in the row above it; the lowest window has the device's frame.
  CellRect frame{client.left - 1, client.top - 1, client.right + 1, client.bottom + 1};
  if (frame.top < device.top) frame.top = device.top;
  screen.grid.Fill(frame, {}, device);
  // What lies below a window can be seen, but not typed into.
  screen.caret.reset();
  screen.toSee = {frame};
  if (!isBottom) screen.grid.Box(frame, CellStyle::kFrame, device);
  const CellRect clip = Intersection(client, device);
  const ControlCanvas canvas{screen, scale, clip};
  for (const bool background : {true, false}) {
    for (const WindowHandle child : host::ChildrenOf(window)) {
      if (platform::IsVisible(child) && IsBackground(child) == background) PaintControl(canvas, child);
    }
  }
  if (hasCaption && frame.top < client.top) {
    PaintTitle(screen, {frame.left, frame.top, frame.right, frame.top + 1}, platform::TextOf(window), device);
  }
}

// A text in the middle of one of the frame's edges.
void PaintOnEdge(CellGrid& grid, const CellRect& frame, int row, WideStringView text) {
  if (text.empty()) return;
  const int left = frame.left + std::max(1, (frame.Width() - CellsOf(text) - 2) / 2);
  const CellRect clip = Intersection({frame.left + 1, row, frame.right - 1, row + 1}, grid.Whole());
  grid.Text(left, row, u" " + WideString(text) + u" ", CellStyle::kFrame, clip);
}

}  // namespace

PaintedScreen PaintScreen(int columns, int rows, const DeviceScreen& device) {
  if (IsTooSmall(columns, rows)) return TooSmallScreen(columns, rows);
  const ScreenScale scale(device.widthPx, device.heightPx, 1, 1, rows - 2);
  const CellRect& cells = scale.Screen();
  const CellRect frame{cells.left - 1, cells.top - 1, cells.right + 1, cells.bottom + 1};
  PaintedScreen whole{CellGrid(std::max(columns, frame.right), std::max(rows, frame.bottom)), std::nullopt, {}};
  whole.grid.Box(frame, CellStyle::kFrame, whole.grid.Whole());
  PaintOnEdge(whole.grid, frame, frame.bottom - 1, device.name);
  bool isBottom = true;
  for (const WindowHandle window : host::TopLevelFromBottom()) {
    if (!platform::IsVisible(window)) continue;
    PaintWindow(whole, scale, window, isBottom);
    if (isBottom) PaintOnEdge(whole.grid, frame, frame.top, platform::TextOf(window));
    isBottom = false;
  }
  PaintedScreen screen = InViewport(std::move(whole), columns, rows);
  PaintLegend(screen.grid, frame.right + 1, device.inserts);
  return screen;
}

}  // namespace simulator
