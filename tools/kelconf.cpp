#include "tools/console.h"
#include "tools/kelconf_program.h"

#include <iostream>

int main(int count, char** arguments) {
  const tools::Console console(count, arguments);
  const tools::Streams streams{std::cout, std::cerr, console.WantsColours(), console.IsErrorATerminal()};
  return tools::RunKelconf(console.Arguments(), streams);
}
