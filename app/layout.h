// Which of the two layouts the screen has room for.
#pragma once

namespace app {

inline constexpr int kTallestSmallScreenPx = 160;

// `bottom`: of a window at its default place, in pixels.
inline bool IsLargeLayout(int bottom) { return bottom > kTallestSmallScreenPx; }

// Measures the screen by a window that is gone again at once.
bool MeasureLargeLayout();

}  // namespace app
