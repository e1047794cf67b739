// UI scripts: one command a line, in order; see docs/ui-scripts.md.
#pragma once

#include "simulator/keys.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace simulator {

struct Command {
  enum class Kind { kKey, kType, kPress, kDump, kEffects, kDebug, kExpect, kWait };
  Kind kind = Kind::kWait;
  std::size_t line = 0;   // of the script, from 1
  std::vector<Key> keys;  // kKey, kType
  int controlId = 0;      // kPress
  std::string text;       // kExpect, in UTF-8
};

struct Script {
  std::vector<Command> commands;
  std::size_t brokenLine = 0;  // 0: none; else no command counts, and the problem is that of the first broken line
  std::string problem;
};

Script ParseScript(std::string_view bytes);

}  // namespace simulator
