// A display that presses the keys a test has written down, and quits the program when they are used up.
#pragma once

#include "base/wide_string.h"
#include "platform/host/display.h"
#include "platform/window.h"

#include <atomic>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace tests {

class ScriptedDisplay : public platform::host::Display {
 public:
  using KeyStroke = platform::host::KeyStroke;

  // Characters are typed, names in braces are keys: "12{Left}{Enter}". "{C-Tab}" holds Control.
  ScriptedDisplay& Press(std::string_view keys) {
    while (!keys.empty()) {
      const std::size_t length = keys.front() == '{' ? keys.find('}') + 1 : 1;
      Press(length == 1 ? KeyOf(static_cast<unsigned char>(keys.front())) : NamedKey(keys.substr(1, length - 2)));
      keys.remove_prefix(length);
    }
    return *this;
  }
  ScriptedDisplay& Press(const KeyStroke& stroke) {
    steps_.push_back({stroke, {}});
    return *this;
  }
  // A key by number, what it types derived from it.
  ScriptedDisplay& Key(std::uint16_t virtualKey, bool shift = false) {
    return Press(KeyStroke{.virtualKey = virtualKey, .shift = shift});
  }
  // Something to be done when all that was pressed before has been dealt with.
  ScriptedDisplay& Then(std::function<void()> action) {
    steps_.push_back({{}, std::move(action)});
    return *this;
  }
  void Forget() { steps_.clear(); }

  // The windows went away with the last step, not before, and wanted no more.
  bool PlayedToItsEnd() const { return steps_.empty() && !ranOut_; }

  std::optional<KeyStroke> NextKey() override {
    ++waits;
    if (steps_.empty()) return AtEnd();
    const Step step = std::move(steps_.front());
    steps_.pop_front();
    if (!step.action) return step.stroke;
    step.action();
    return std::nullopt;
  }
  void Wake() override { ++wakes; }
  void Pause(std::chrono::milliseconds duration) override {
    paused += duration;
    if (whilePaused) whilePaused();
  }
  void Beep() override { ++beeps; }
  void ComeForward() override {}

  int waits = 0;
  std::atomic<int> wakes = 0;
  int beeps = 0;
  std::chrono::milliseconds paused{0};
  std::function<void()> whilePaused;

 protected:
  // What is pressed when the script is used up.
  virtual std::optional<KeyStroke> AtEnd() {
    ranOut_ = true;
    platform::PostQuit(0);
    return std::nullopt;
  }

 private:
  struct Step {
    KeyStroke stroke;
    std::function<void()> action;  // none: the key is pressed
  };

  static KeyStroke NamedKey(std::string_view name) {
    namespace key = platform::key;
    static const std::map<std::string_view, std::uint16_t> keys = {
        {"Left", key::kLeft},     {"Right", key::kRight},         {"Up", key::kUp},
        {"Down", key::kDown},     {"Home", key::kHome},           {"End", key::kEnd},
        {"PageUp", key::kPageUp}, {"PageDown", key::kPageDown},   {"Insert", key::kInsert},
        {"Delete", key::kDelete}, {"Enter", key::kEnter},         {"Esc", key::kEscape},
        {"Tab", key::kTab},       {"Backspace", key::kBackspace},
    };
    const bool control = name.starts_with("C-");
    return {.virtualKey = keys.at(name.substr(control ? 2 : 0)), .control = control};
  }

  static KeyStroke KeyOf(char16_t character) {
    const char16_t upper = base::ToUpper(character);
    const bool isAlphanumeric = base::IsDigit(character) || (upper >= u'A' && upper <= u'Z') || character == u' ';
    // 0xBE, the period's key, stands for all the others: only the character matters.
    return {.virtualKey = static_cast<std::uint16_t>(isAlphanumeric ? upper : 0xBE), .character = character};
  }

  std::deque<Step> steps_;
  bool ranOut_ = false;
};

}  // namespace tests
