// A note that stands over the menu for a moment.
#pragma once

#include "platform/window.h"

namespace app {

// Shows the note in front of `list`, which is hidden meanwhile, and returns when it is gone.
void ShowPopupNote(platform::WindowHandle list, WideStringView text);

}  // namespace app
