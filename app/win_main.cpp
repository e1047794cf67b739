// The utility as the program that Windows starts. Its exit code says nothing.
#include "app/entry.h"
#include "platform/program.h"

int platform::RunProgram(WideStringView commandLine) {
  app::RunUtility(commandLine);
  return 0;
}
