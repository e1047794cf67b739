// Paints one control as character cells.
#pragma once

#include "platform/window.h"
#include "simulator/cell_grid.h"
#include "simulator/screen_painter.h"
#include "simulator/screen_scale.h"

namespace simulator {

struct ControlCanvas {
  PaintedScreen& screen;
  const ScreenScale& scale;
  CellRect clip;  // the client area of the window that the control lies in
};

// The control with what lies in it, whatever its kind.
void PaintControl(const ControlCanvas& canvas, platform::WindowHandle control);

// Statics are background: whatever shares cells with them lies in front.
bool IsBackground(platform::WindowHandle control);

}  // namespace simulator
