// Which of the two layouts the screen has room for.
#pragma once

#include "platform/window.h"

namespace app {

inline constexpr int kTallestSmallScreenPx = 160;

// `bottom`: of the probe, in pixels.
inline bool IsLargeLayout(int bottom) { return bottom > kTallestSmallScreenPx; }

// The window by which the screen is measured: at its corner, of the size that windows have by default.
platform::WindowSpec ScreenProbe();

// Measures the screen; the probe is gone again at once.
bool MeasureLargeLayout();

}  // namespace app
