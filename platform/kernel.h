// The device itself.
#pragma once

namespace platform {

// Restarts the device at once. Does not return when it does; a failure is not reported.
void WarmReset();

}  // namespace platform
