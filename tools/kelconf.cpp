#include "tools/console.h"
#include "tools/kelconf_program.h"

#include <iostream>

int main(int count, char** arguments) {
  const tools::Streams streams{std::cout, std::cerr, tools::WantsColours(), tools::IsErrorATerminal()};
  return tools::RunKelconf({arguments + 1, arguments + count}, streams);
}
