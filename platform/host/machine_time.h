// The machine's clock.
#pragma once

#include "platform/controls.h"

namespace platform::host {

SystemTime MachineTime();  // of the place where it stands

}  // namespace platform::host
