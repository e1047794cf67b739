// Carrying out a plan's Sets under its journal, going on with one that was cut short, and taking one back.
#pragma once

#include "settings/journal.h"
#include "settings/target.h"

#include <string>
#include <vector>

namespace settings {

struct SetResult {
  enum class Kind {
    kDone,        // set, and read back
    kRefused,     // by the device, which goes on; the code says how
    kKeptOld,     // the device said yes, and has another value
    kLeftOut,     // it would have followed from one that was refused
    kFailed,      // the device failed here, and nothing behind it was tried
    kNotReached,  // that is one behind it
    kNotNeeded,   // the device has it already
    kUnknown,     // what stood before is not known, so it is not taken back
  };
  Kind kind = Kind::kNotReached;
  platform::ResultCode code = platform::kOk;
};

struct CarriedOut {
  std::vector<SetResult> results;  // one for each Set
  std::string problem;             // empty, or one line that says why it ended before the end

  bool HasFailed() const { return !problem.empty(); }
  // All are done, or need not be; or, where only `begun` of them may have been set, those.
  bool IsComplete() const { return IsComplete(results.size()); }
  bool IsComplete(std::size_t begun) const;
};

// From the first Set on. The journal is fresh.
CarriedOut CarryOut(const std::vector<PlannedSet>& sets, Target& target, Journal& journal);

// What the record says was cut short.
CarriedOut Resume(const JournalRecord& record, Target& target, Journal& journal);

// Puts back what stood before all that the device may have, last things first, then has the device take that over where
// the plan told it to. May be cut short itself, and done again.
CarriedOut Undo(const JournalRecord& record, Target& target, Journal& journal);

}  // namespace settings
