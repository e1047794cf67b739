// Which window has the keyboard, and the messages that tell of it.
#pragma once

#include "platform/host/session.h"

namespace platform::host {

// The top-level window that a window belongs to.
WindowHandle RootOf(WindowHandle window);
bool IsInside(WindowHandle ancestor, WindowHandle window);  // a child of any depth, not the window itself

// Makes a top-level window active and gives the focus into it, unless it has it. Null: no window is active.
bool SetActive(WindowHandle window);

// A window that is active goes: its owner becomes active, or the next window that can.
void ActivateAnother(WindowHandle window);

// Puts a top-level window on top of the others.
void RaiseToTop(WindowHandle window);

}  // namespace platform::host
