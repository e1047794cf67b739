#include "settings/private_file.h"
#include "tools/console.h"
#include "tools/kelset_program.h"

#include <iostream>

int main(int count, char** arguments) {
  settings::LeaveNoCore();
  const tools::Console console(count, arguments);
  return tools::RunKelset(console.Arguments(), {std::cout, std::cerr, console.IsErrorATerminal()});
}
