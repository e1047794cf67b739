// UI scripts: either commands in the order of their lines or one broken line.
#include "simulator/script.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const simulator::Script script = simulator::ParseScript({reinterpret_cast<const char*>(data), size});
  if ((script.brokenLine > 0) != !script.problem.empty()) std::abort();
  if (script.brokenLine > 0 && !script.commands.empty()) std::abort();
  std::size_t line = 0;
  for (const simulator::Command& command : script.commands) {
    if (command.line <= line) std::abort();
    line = command.line;
  }
  return 0;
}
