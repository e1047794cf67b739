// The keys of a PC's terminal as those of the keypad.
#pragma once

#include "platform/host/display.h"

#include <optional>

namespace simulator {

// `isFunctionKey`: `code` is one of the library's key codes, else a character. Nothing for a key that the keypad lacks.
std::optional<platform::host::KeyStroke> KeyStrokeOf(unsigned code, bool isFunctionKey);

}  // namespace simulator
