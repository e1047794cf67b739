// The program's entry, behind the platform's own.
#pragma once

#include "app/run_report.h"
#include "base/wide_string.h"

#include <functional>

namespace rules {
class RuleListener;
}

namespace app {

class CKelConfigApp;

// Told of the running application before it shows anything, and of none (null) when it has ended: for whoever shows the
// terminal around it.
using Watcher = std::function<void(const CKelConfigApp*)>;

// Runs the utility to its end: the source is `commandLine`, all that follows the program's name. A second instance
// brings the first to the foreground and ends at once. `listener` follows the rules; null: nobody does.
RunReport RunUtility(WideStringView commandLine, const Watcher& watcher = {}, rules::RuleListener* listener = nullptr);

}  // namespace app
