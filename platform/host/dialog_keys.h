// Keys of dialogs and the order of their controls.
#pragma once

#include "platform/host/session.h"

namespace platform::host {

// The next control that Tab stops at, or null. With no `from` the first (or last) one.
WindowHandle NextTabStop(WindowHandle dialog, WindowHandle from, bool backwards);
// The control that a dialog focuses by itself: the first that Tab stops at, or else the first that can be seen, be it
// only a text.
WindowHandle FirstControl(WindowHandle dialog);
// The next control that an arrow moves to, in the group of `from`; `from` itself when there is no other.
WindowHandle NextInGroup(WindowHandle dialog, WindowHandle from, bool backwards);

// False when the message is for another window. Else it is done: keys that the dialog knows and its control does not
// claim are acted on, everything else was translated and dispatched.
bool HandleDialogMessage(WindowHandle dialog, const QueuedMessage& queued);

}  // namespace platform::host
