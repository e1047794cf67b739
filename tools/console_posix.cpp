#include "tools/console.h"

#include <unistd.h>

namespace tools {

class Console::Streams {};

Console::Console(int count, char** arguments)
    : arguments_(arguments + 1, arguments + count),
      wantsColours_(!RefusesColours() && isatty(STDOUT_FILENO) != 0),
      isErrorATerminal_(isatty(STDERR_FILENO) != 0) {}

Console::~Console() = default;

}  // namespace tools
