// The events that have a name.
#pragma once

namespace platform::host {

// Events made from now on share nothing with those made before.
void ForgetNamedEvents();

}  // namespace platform::host
