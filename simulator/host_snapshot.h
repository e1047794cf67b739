// Takes the picture of the simulated terminal's screen that scripts dump.
#pragma once

#include "platform/window.h"
#include "simulator/dump.h"

namespace simulator {

// On the thread of the windows, between messages.
ScreenPicture TakeScreenPicture();

}  // namespace simulator
