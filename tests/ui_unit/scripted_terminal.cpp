#include "tests/ui_unit/scripted_terminal.h"

#include "base/utf8.h"

#include <map>

namespace ui_test {
namespace {

namespace key = platform::key;
using platform::host::KeyStroke;

const std::map<std::string, KeyStroke, std::less<>>& NamedKeys() {
  static const std::map<std::string, KeyStroke, std::less<>> keys = {
      {"Left", {.virtualKey = key::kLeft}},
      {"Right", {.virtualKey = key::kRight}},
      {"Up", {.virtualKey = key::kUp}},
      {"Down", {.virtualKey = key::kDown}},
      {"Home", {.virtualKey = key::kHome}},
      {"End", {.virtualKey = key::kEnd}},
      {"PageUp", {.virtualKey = key::kPageUp}},
      {"PageDown", {.virtualKey = key::kPageDown}},
      {"Insert", {.virtualKey = key::kInsert}},
      {"Delete", {.virtualKey = key::kDelete}},
      {"Enter", {.virtualKey = key::kEnter, .character = u'\r'}},
      {"Esc", {.virtualKey = key::kEscape, .character = 27}},
      {"Tab", {.virtualKey = key::kTab, .character = u'\t'}},
      {"C-Tab", {.virtualKey = key::kTab, .character = u'\t', .control = true}},
      {"Backspace", {.virtualKey = key::kBackspace, .character = 8}},
  };
  return keys;
}

KeyStroke KeyOf(char16_t character) {
  const char16_t upper = base::ToUpper(character);
  const bool isAlphanumeric = base::IsDigit(character) || (upper >= u'A' && upper <= u'Z') || character == u' ';
  // 0xBE, the period's key, stands for all the others: only the character matters.
  return {.virtualKey = static_cast<std::uint16_t>(isAlphanumeric ? upper : 0xBE), .character = character};
}

}  // namespace

void ScriptedDisplay::Press(const std::string& keys) {
  for (std::size_t at = 0; at < keys.size(); ++at) {
    KeyStroke stroke;
    if (keys[at] == '{') {
      const std::size_t end = keys.find('}', at);
      stroke = NamedKeys().at(keys.substr(at + 1, end - at - 1));
      at = end;
    } else {
      stroke = KeyOf(static_cast<unsigned char>(keys[at]));
    }
    steps_.push_back({stroke, nullptr});
  }
}

void ScriptedDisplay::Look(std::function<void()> action) { steps_.push_back({{}, std::move(action)}); }

std::optional<KeyStroke> ScriptedDisplay::NextKey() {
  if (steps_.empty()) {
    ranOut_ = true;
    platform::PostQuit(0);
    return std::nullopt;
  }
  const Step step = std::move(steps_.front());
  steps_.pop_front();
  if (!step.action) return step.key;
  step.action();
  return std::nullopt;
}

int RecordingBoxes::Show(WideStringView text, WideStringView caption, int kind) {
  shown.push_back(base::ToUtf8(caption) + ": " + base::ToUtf8(text) + " (" + std::to_string(kind) + ")");
  if (whileShown) whileShown();
  return 0;
}

void ScriptedTerminal::DebugObserver::Debug(WideStringView line) { lines_.push_back(base::ToUtf8(line)); }

ScriptedTerminal::ScriptedTerminal() : installed_(MakeEnvironment()) {}

platform::host::Environment ScriptedTerminal::MakeEnvironment() {
  platform::host::Environment environment;
  environment.observer = &observer_;
  environment.display = &display;
  return environment;
}

}  // namespace ui_test
