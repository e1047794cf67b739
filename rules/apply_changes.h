// Applying edits: to the device, to the programs that wait for the events of what was edited, and in words to the user.
#pragma once

#include "model/defaults_walk.h"
#include "rules/change_queue.h"
#include "rules/dependencies.h"

namespace rules {

// What an apply came to, as a code. Any other code is plain success too.
enum class ApplyOutcome {
  kApplied = 0,
  kAfterAdapterResume = 1,
  kAfterBoot = 2,
  kMissingSubnetMask = 3,
  kNoMessage = 4,  // of a restore
};

class ChangeApplier {
 public:
  ChangeApplier(const Context& context, ChangeQueue& queue, Dependencies& dependencies)
      : context_(context), queue_(queue), dependencies_(dependencies) {}

  // Submits the pending changes: true when the device has taken them all. Whatever it says, the first edited property
  // is forgotten and the events are pulsed.
  bool ApplyChanges(int& outcome);

  void ShowApplyResult(int outcome);

  // Sends every factory value and what the exit rules ask for.
  void RestoreAllDefaults();

  // Asks about pending changes before the program is left: false to stay.
  bool ConfirmLeaving();

 private:
  void PulseEvents();

  Context context_;
  ChangeQueue& queue_;
  Dependencies& dependencies_;
};

}  // namespace rules
