// Where a message box's text goes, and what stands below it, so that the whole text is seen.
#pragma once

#include "platform/window.h"

namespace app {

// The font of a box's text, its answers and what to press.
inline constexpr platform::FontSpec kMessageFont{.face = u"System", .heightPx = 13, .weight = 400};

struct BoxParts {
  platform::WindowHandle box = nullptr;
  platform::WindowHandle message = nullptr;
  platform::WindowHandle below = nullptr;  // the answers, or what to press
};

// The templates are sized for a short text and a long one; the program's longest are longer. So the box is made as much
// higher as its text needs lines, and wider first when it would not fit on the screen; what then still does not fit is
// cut, never what stands below it. No line of the text goes beyond the screen's right edge, as the box itself does on
// the small layout. A text that needs less than its room stands in the middle of it when it is `centred`.
void FitToText(const BoxParts& parts, WideStringView text, bool centred);

// How many lines a text takes when it is broken between words.
int LinesOf(platform::WindowHandle window, WideStringView text, int widthPx);

}  // namespace app
