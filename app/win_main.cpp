// The utility as the program that Windows starts.
#include "app/entry.h"
#include "platform/program.h"

int platform::RunProgram(WideStringView commandLine) { return app::RunUtility(commandLine); }
