#include "tools/kelset_program.h"

#include "version.h"

namespace tools {

int RunKelset(const std::vector<std::string>& arguments, SetStreams streams) {
  const auto with = [&streams](void (*describe)(Command, SetStreams&)) {
    return [&streams, describe](Command command) { describe(command, streams); };
  };
  const Program program{
      "kelset",
      "Sets terminals without anyone at the keypad: what a person at the menus could do, from a file.",
      "kelset of KelLocalCfg Version " KEL_VERSION,
      "Exit status: 0 as asked, 1 some settings are refused or differ, 2 unusable arguments or files and nothing was "
      "touched, 3 the device failed on the way, 4 another program works on the device.\n"
      "Example: kelset export examples/small",
      {
          {"export", "the settings of a terminal as a file to edit", with(DescribeExport)},
          {"plan", "what a settings file would set, in which order, and what is refused and why", with(DescribePlan)},
          {"apply", "sets what a settings file wants, reads it back and reports", with(DescribeApply)},
          {"verify", "which settings a terminal has otherwise than a file wants them", with(DescribeVerify)},
          {"undo", "takes back what an apply has set", with(DescribeUndo)},
          {"resume", "goes on with an apply that was cut short", with(DescribeResume)},
      }};
  return RunCommandLine(program, arguments, streams.out, streams.errors);
}

}  // namespace tools
