// The whole utility on a simulated terminal over a storage folder, until it has been left.
#pragma once

#include "simulator/debug_log.h"
#include "tests/app/failing_calls.h"
#include "tests/app/keypad.h"

#include <filesystem>
#include <string>

namespace tests {

struct UtilityRun {
  std::filesystem::path root;
  std::string commandLine = {};
  int widthPx = 240;
  int heightPx = 320;
  simulator::DebugLog* debug = nullptr;  // where debug lines go; null: nowhere
};

// After a warm reset it runs on. Empty, or why the storage cannot be used; then nothing ran.
std::string RunUtilityOn(const UtilityRun& run, Keypad& keypad, FailingCalls& calls);
std::string RunUtilityOn(const UtilityRun& run, Keypad& keypad);

}  // namespace tests
