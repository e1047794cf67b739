// Debug output. Lines end in "\r\n" themselves. A line that there is no memory for is lost.
#pragma once

#include "base/wide_string.h"

namespace platform {

// To the debugger.
void DebugOutput(WideStringView line);

// To the kernel's debug port where the system has one, else to the debugger.
void KernelDebugOutput(WideStringView line);

}  // namespace platform
