// What of a text is in sight on the device, whose characters are of different widths: the text display cuts and breaks
// texts where the device does.
#pragma once

#include "platform/window.h"

#include <vector>

namespace simulator {

// The part of a line that is in sight within so many pixels, in the control's font. Of a character that is cut, half
// must be.
WideStringView InSight(platform::WindowHandle control, WideStringView line, int widthPx);

// How many lines are in sight within so many pixels.
int LinesInSight(platform::WindowHandle control, int heightPx);

// Breaks a text as a static does: at line ends, and at blanks where a line would be too wide. A word is never broken.
std::vector<WideString> BrokenIntoLines(platform::WindowHandle control, WideStringView text, int widthPx);

}  // namespace simulator
