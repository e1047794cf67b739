// A marker in the place of every secret of the demonstration terminal: where it is seen, a secret would have been.
#pragma once

#include "base/wide_string.h"

#include <filesystem>
#include <string>

namespace tests {

// Plants the marker in a copy of the demonstration: in the device's values and in the defaults of its configurations.
// Empty, or which secret is not where it was, or not known.
std::string PlantSecrets(const std::filesystem::path& root);

// In the device's values alone, where what was typed since has replaced it.
void PlantSecretsAgain(const std::filesystem::path& root);

// Whether a text has the marker in it, as it is or as the hex digits of its characters.
bool HasSecret(WideStringView text);

// Empty, or the text of the visible windows that has the marker in it. A secret's own edit field may show it.
std::string SecretOnScreen();

}  // namespace tests
