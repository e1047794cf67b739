// Asks the person at the terminal for what nobody may see.
#pragma once

#include <optional>
#include <string>

namespace simulator {

// What is typed up to Enter, which shows nothing. Nothing when there is no terminal to ask at, or it was closed. Before
// a display takes the terminal over.
std::optional<std::string> AskHidden(const std::string& question);

}  // namespace simulator
