// The few fonts of the terminal's screens, with the metrics that Windows reports for them.
#pragma once

#include "platform/window.h"

#include <array>
#include <cstdint>

namespace platform::host {

// Widths of the characters U+0020 to U+007E and U+00A0 to U+00FF; any other is as wide as the average.
struct FontMetrics {
  int heightPx;
  int averageWidthPx;
  int dialogUnitX;   // pixels of four horizontal dialog units; eight vertical ones are heightPx
  int editMarginPx;  // that edit fields keep free at both sides
  std::array<std::uint8_t, 95> ascii;
  std::array<std::uint8_t, 96> latin;
};

// A font as it was asked for and as it came out. Lives as long as the program.
struct Font {
  WideString face;
  int heightPx;
  int weight;
  const FontMetrics* metrics;
};

// Null and unknown faces give the system font.
const Font& FontFor(WideStringView face, int heightPx, int weight);
const Font& FontForPoints(WideStringView face, int points);
const Font& SystemFont();
// The font behind the wParam of message::kSetFont; null when it is none.
const Font* FontFromParam(WParam parameter);

int WidthOf(const Font& font, WideStringView text);

inline constexpr int kCaptionHeightPx = 19;

// How much wider and higher than its client area a window of these styles is.
struct FrameWidths {
  int side = 0;  // left, right and bottom
  int top = 0;
};
FrameWidths FrameOf(style::Bits style, style::Bits extendedStyle);

}  // namespace platform::host
