// The program's entry, behind the platform's own.
#pragma once

#include "app/run_report.h"
#include "base/wide_string.h"

namespace app {

// Runs the utility to its end: the source is `commandLine`, all that follows the program's name. A second instance
// brings the first to the foreground and ends at once.
RunReport RunUtility(WideStringView commandLine);

}  // namespace app
