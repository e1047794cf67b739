// The keypad's keys by name.
#pragma once

#include "base/wide_string.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace simulator {

struct Key {
  std::uint16_t virtualKey = 0;  // 0: a character that no key of the keypad types
  char16_t character = 0;        // what the key types; 0: nothing
  bool shift = false;
  bool operator==(const Key&) const = default;
};

// "Down", "ShiftTab", "F1" ... or one character. Nothing for any other text.
std::optional<Key> KeyByName(std::string_view name);

// The key that types a character.
Key KeyForCharacter(char16_t character);

// "Up Down Left ...", for messages.
std::string KeyNames();

}  // namespace simulator
