#include "simulator/script_player.h"

#include "base/utf8.h"

#include <utility>

namespace simulator {
namespace {

std::string Joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

// Debug lines end themselves; an end within one is shown.
std::string DebugText(const std::vector<WideString>& lines) {
  std::string text;
  for (const WideString& line : lines) {
    WideStringView rest = line;
    if (rest.ends_with(u'\n')) rest.remove_suffix(1);
    if (rest.ends_with(u'\r')) rest.remove_suffix(1);
    for (const char byte : base::ToUtf8(rest)) {
      if (byte == '\n') {
        text += "\\n";
      } else if (byte == '\r') {
        text += "\\r";
      } else {
        text.push_back(byte);
      }
    }
    text.push_back('\n');
  }
  return text;
}

}  // namespace

ScriptPlayer::ScriptPlayer(Script script, std::string name, ScriptDriver& driver, Print print)
    : script_(std::move(script)), name_(std::move(name)), driver_(driver), print_(std::move(print)) {}

ScriptPlayer::Step ScriptPlayer::Next() {
  if (!failure_.empty() || command_ >= script_.commands.size()) return Step::kFinished;
  // A thread that still works may change the screen under any command, not only under one that waits for it.
  if (driver_.IsRunning() && !driver_.HasSettled()) return Step::kWaits;
  const Command& command = script_.commands[command_];
  const bool severalKeys = command.kind == Command::Kind::kKey || command.kind == Command::Kind::kType;
  if (severalKeys) return NextKey(command);
  ++command_;
  return Run(command);
}

ScriptPlayer::Step ScriptPlayer::Run(const Command& command) {
  switch (command.kind) {
    case Command::Kind::kPress:
      if (driver_.IsRunning() && driver_.Click(command.controlId)) return Step::kInput;
      return Fail(command, "there is no button " + std::to_string(command.controlId) + " to click");
    case Command::Kind::kDump: return Printed(Dump(driver_.Screen()));
    case Command::Kind::kEffects: return Printed(Joined(driver_.TakeEffects()));
    case Command::Kind::kDebug: return Printed(DebugText(driver_.TakeDebugLines()));
    case Command::Kind::kExpect:
      if (printed_.find(command.text) != std::string::npos) return Step::kRan;
      return Fail(command, "expected \"" + command.text + "\"");
    default: return Step::kRan;
  }
}

ScriptPlayer::Step ScriptPlayer::NextKey(const Command& command) {
  if (!driver_.IsRunning()) return Fail(command, "the program has ended");
  const Key& key = command.keys[key_];
  if (++key_ == command.keys.size()) {
    key_ = 0;
    ++command_;
  }
  if (command.kind == Command::Kind::kType) {
    driver_.Type(key);
  } else {
    driver_.Press(key);
  }
  return Step::kInput;
}

ScriptPlayer::Step ScriptPlayer::Printed(std::string text) {
  print_(text);
  printed_ = std::move(text);
  return Step::kRan;
}

ScriptPlayer::Step ScriptPlayer::Fail(const Command& command, const std::string& why) {
  failure_ = name_ + ":" + std::to_string(command.line) + ": " + why;
  return Step::kFinished;
}

}  // namespace simulator
