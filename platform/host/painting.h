// Painting: nothing is drawn here, what is drawn is kept for the display.
#pragma once

#include "platform/host/session.h"

namespace platform::host {

// Asks the window that answers for a control's colours and keeps the answer; the control is up to date then.
void PaintControl(WindowRecord& control, message::Id colorMessage);

}  // namespace platform::host
