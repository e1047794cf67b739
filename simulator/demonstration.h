// The demonstration terminal: a storage that comes with the program and is copied for each user.
#pragma once

#include <filesystem>
#include <string>

namespace simulator {

// What is kept for the user between runs: kelterm under $XDG_STATE_HOME, else under ~/.local/state. Empty when neither
// that nor $HOME is set.
std::filesystem::path StateFolder();

// Where the user's copy lives in it.
std::filesystem::path DemonstrationRoot();

// The original that came with the executable; empty when there is none.
std::filesystem::path DemonstrationOriginal();

// Copies the original to `root` when there is nothing yet. Whenever it is interrupted, `root` is whole or not there.
// Empty, or one line that says what went wrong.
std::string ProvideDemonstration(const std::filesystem::path& original, const std::filesystem::path& root);

// The same in place of what is there.
std::string ResetDemonstration(const std::filesystem::path& original, const std::filesystem::path& root);

}  // namespace simulator
