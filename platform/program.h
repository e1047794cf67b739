// The seam between a platform's entry point and the program.
#pragma once

#include "base/wide_string.h"

namespace platform {

// Runs the program to its end and returns the process' status. The platform's entry point calls it, the program defines
// it. `commandLine` is all that follows the program's name.
int RunProgram(WideStringView commandLine);

}  // namespace platform
