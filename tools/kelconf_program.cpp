#include "tools/kelconf_program.h"

#include "version.h"

namespace tools {

int RunKelconf(const std::vector<std::string>& arguments, Streams streams) {
  const auto with = [&streams](void (*describe)(Command, Streams&)) {
    return [&streams, describe](Command command) { describe(command, streams); };
  };
  const Program program{
      "kelconf",
      "What a configuration does, before a terminal does it.",
      "kelconf of KelLocalCfg Version " KEL_VERSION,
      "Exit status: 0 all is well, 1 something was found or is not there, 2 unusable arguments or files.\n"
      "Example: kelconf check examples/small",
      {
          {"check", "every slip of a configuration, with file, line and column", with(DescribeCheck)},
          {"find", "entries by name, OID, value, choice or attribute, and their keys", with(DescribeFind)},
          {"tree", "the menus as text, each line with its type, OID and rules", with(DescribeTree)},
          {"diff", "what changed between two configurations, in an author's words", with(DescribeDiff)},
          {"why", "why this line looks as it does now, and what would change it", with(DescribeWhy)},
          {"explore", "plays the utility through everything it can do and reports what was never seen",
           with(DescribeExplore)},
          {"manual", "the manual for the people at the terminal, one HTML file", with(DescribeManual)},
      }};
  return RunCommandLine(program, arguments, streams.out, streams.errors);
}

}  // namespace tools
