// What terminals send for the keys that type no character.
#pragma once

#include "platform/host/display.h"

#include <functional>
#include <string>
#include <vector>

namespace simulator {

struct KeySequence {
  std::string bytes;  // begins with Esc
  platform::host::KeyStroke stroke;
};

// Those that most kinds of terminals send, in both of their modes.
std::vector<KeySequence> UsualKeySequences();

// Those that one kind of terminal has in its description. `capability` answers for a name of the description such as
// "kcuu1", or with an empty text.
std::vector<KeySequence> DescribedKeySequences(const std::function<std::string(const char* name)>& capability);

}  // namespace simulator
