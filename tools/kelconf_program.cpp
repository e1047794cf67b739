#include "tools/kelconf_program.h"

#include <algorithm>
#include <ostream>

namespace tools {
namespace {

constexpr AddCommand kCommands[] = {
    AddCheck, AddFind, AddTree, AddDiff, AddWhy, AddExplore, AddManual,
};

}  // namespace

int RunKelconf(const std::vector<std::string>& arguments, Streams streams) {
  CLI::App program("What a configuration does, before a terminal does it.", "kelconf");
  program.require_subcommand(1);
  program.set_version_flag("--version", "kelconf of KelLocalCfg Version 1.0");
  program.footer(
      "Exit status: 0 all is well, 1 something was found or is not there, 2 unusable arguments or files.\n"
      "Example: kelconf check examples/small");
  int status = kFine;
  for (const AddCommand add : kCommands) add(program, streams, status);
  try {
    std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());
    program.parse(std::move(reversed));
  } catch (const CLI::ParseError& error) {
    return program.exit(error, streams.out, streams.errors) == 0 ? kFine : kUnusable;
  }
  return status;
}

}  // namespace tools
