// Starting the programs that a configuration names.
#pragma once

#include "base/wide_string.h"
#include "values/message_boxes.h"

namespace rules {

struct CommandLine {
  WideString program;    // quotes and all, at most 519 characters
  WideString arguments;  // all that follows the blank after the program
};

// Blanks in front do not count; within quotes in front they do not divide.
CommandLine SplitCommandLine(WideStringView text);

// Does not wait for the program. When it cannot be started, that is shown with the command as `named`.
void StartProgram(const CommandLine& command, WideStringView named, values::MessageBoxes& boxes);

// Starts the program that keeps changed settings over a cold boot.
void StartFlashWriter(values::MessageBoxes& boxes);

}  // namespace rules
