#include "tests/app/utility_run.h"

#include "app/entry.h"
#include "base/utf8.h"
#include "simulator/instance_lock.h"
#include "simulator/storage.h"
#include "simulator/terminal.h"

namespace tests {

std::string RunUtilityOn(const UtilityRun& run, Keypad& keypad, FailingCalls& calls) {
  simulator::Storage storage;
  std::string problem = simulator::OpenStorage(run.root, storage);
  if (!problem.empty()) return problem;
  simulator::InstanceLock instance(run.root);
  simulator::LineLog effects(false);
  simulator::DebugLog unheard(false);
  const auto program = [&calls](WideStringView commandLine) {
    calls.Install(platform::host::CurrentEnvironment());
    app::RunUtility(commandLine);
    return 0;
  };
  simulator::Terminal terminal({storage, instance, effects, run.debug == nullptr ? unheard : *run.debug, keypad},
                               run.widthPx, run.heightPx, program);
  terminal.Run(base::FromUtf8(run.commandLine));
  return {};
}

std::string RunUtilityOn(const UtilityRun& run, Keypad& keypad) {
  FailingCalls calls([](std::size_t) { return false; });
  return RunUtilityOn(run, keypad, calls);
}

}  // namespace tests
