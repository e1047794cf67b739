#include "simulator/screen_painter.h"

#include "platform/host/desktop.h"
#include "simulator/control_painter.h"

#include <algorithm>

namespace simulator {
namespace {

namespace host = platform::host;
namespace style = platform::style;
using platform::WindowHandle;

constexpr WideStringView kDeviceName = u"Valtorix terminal";
constexpr int kHelpColumns = 20;

const WideStringView kHelp[] = {
    u"\u2191 \u2193    choose a line",
    u"1-9    enter a line",
    u"Enter  enter, save",
    u"Esc    back, cancel",
    u"Tab    next line",
    u"Home   the main menu",
    u"",
    u"Ctrl-C turn off",
};

// Beside the device, where there is room.
void PaintHelp(CellGrid& grid, int left) {
  if (left + kHelpColumns > grid.Columns()) return;
  int row = 2;
  grid.Text(left, row++, u"Keypad", CellStyle::kBold, grid.Whole());
  for (const WideStringView line : kHelp) grid.Text(left, row++, line, CellStyle::kFaint, grid.Whole());
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

PaintedScreen PaintScreen(int columns, int rows, int screenWidthPx, int screenHeightPx) {
  PaintedScreen screen{CellGrid(columns, rows), std::nullopt};
  const ScreenScale scale(screenWidthPx, screenHeightPx, 1, 1, columns - 2, rows - 2);
  const CellRect& device = scale.Screen();
  const CellRect frame{device.left - 1, device.top - 1, device.right + 1, device.bottom + 1};
  screen.grid.Box(frame, CellStyle::kFrame, screen.grid.Whole());
  PaintOnEdge(screen.grid, frame, frame.bottom - 1, kDeviceName);
  PaintHelp(screen.grid, frame.right + 1);
  bool isBottom = true;
  for (const WindowHandle window : host::TopLevelFromBottom()) {
    if (!platform::IsVisible(window)) continue;
    // What lies below a window can be seen, but not typed into.
    screen.caret.reset();
    PaintWindow(screen, scale, window, isBottom);
    if (isBottom) PaintOnEdge(screen.grid, frame, frame.top, platform::TextOf(window));
    isBottom = false;
  }
  return screen;
}

}  // namespace simulator
