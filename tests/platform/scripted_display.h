// A display that presses the keys a test has written down, and quits the program when they are used up.
#pragma once

#include "base/utf8.h"
#include "platform/host/display.h"
#include "platform/host/environment.h"
#include "platform/window.h"

#include <atomic>
#include <deque>
#include <functional>
#include <string>
#include <variant>
#include <vector>

class ScriptedDisplay : public platform::host::Display {
 public:
  using Step = std::variant<platform::host::KeyStroke, std::function<void()>>;

  // A key by number, what it types derived from it.
  ScriptedDisplay& Key(std::uint16_t virtualKey, bool shift = false, bool control = false) {
    steps_.push_back(platform::host::KeyStroke{virtualKey, 0, shift, control});
    return *this;
  }
  ScriptedDisplay& Keys(std::initializer_list<std::uint16_t> virtualKeys) {
    for (const std::uint16_t virtualKey : virtualKeys) Key(virtualKey);
    return *this;
  }
  ScriptedDisplay& Type(std::u16string_view text) {
    for (const char16_t unit : text) steps_.push_back(platform::host::KeyStroke{0, unit, false, false});
    return *this;
  }
  // Something to be done when the program has settled.
  ScriptedDisplay& Then(std::function<void()> action) {
    steps_.push_back(std::move(action));
    return *this;
  }

  std::optional<platform::host::KeyStroke> NextKey() override {
    ++waits;
    if (steps_.empty()) {
      platform::PostQuit(0);
      return std::nullopt;
    }
    const Step step = std::move(steps_.front());
    steps_.pop_front();
    if (const auto* stroke = std::get_if<platform::host::KeyStroke>(&step)) return *stroke;
    std::get<std::function<void()>>(step)();
    return std::nullopt;
  }

  void Wake() override { ++wakes; }
  void Pause(std::chrono::milliseconds duration) override { paused += duration; }
  void Beep() override { ++beeps; }
  void ComeForward() override {}

  int waits = 0;
  std::atomic<int> wakes = 0;
  int beeps = 0;
  std::chrono::milliseconds paused{0};

 private:
  std::deque<Step> steps_;
};
