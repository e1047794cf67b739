// A terminal's settings as a settings file.
#pragma once

#include "authoring/trial.h"

#include <ostream>

namespace settings {

// Every setting that a person at the menus could change, once, as the screen shows it, with comments on what it takes.
// Secrets, and what cannot be read, stand in comments. Reading the file back asks for exactly the values there are.
void WriteSettings(authoring::Trial& trial, std::ostream& out);

}  // namespace settings
