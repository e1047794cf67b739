// The terminal's own IPv4 address.
#pragma once

#include "base/wide_string.h"

namespace values {

// Starts the sockets. They are running exactly when the result is true.
bool WsInit();

// 0: `text` is the address, dotted, or "?" when name or address cannot be found out. 1: there are no sockets, `text`
// is "?".
int GetHostIPString(WideString& text);

}  // namespace values
