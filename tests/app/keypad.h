// A scripted display that answers boxes on the way, if it is to, and at the end leaves the program by Esc.
#pragma once

#include "platform/window.h"
#include "tests/support/scripted_display.h"

#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace tests {

// "Caption: text" of a message box, its choices in brackets.
std::string BoxText(platform::WindowHandle box);

// What the program has open in front.
enum class Front { kNothing, kMainScreen, kEditDialog, kBox };
Front WhatIsInFront();

// Presses the keys of a script as the simulator reads it. Answers its first line that cannot be read, 0: none.
std::size_t PressKeysOf(const std::string& script, ScriptedDisplay& display);

class Keypad final : public ScriptedDisplay {
 public:
  using Keys = std::function<std::optional<KeyStroke>()>;

  Keypad() = default;
  // `keys` gives those behind the script, and nothing at its end.
  explicit Keypad(Keys keys) : keys_(std::move(keys)) {}

  bool waitsForWorker = true;  // before each key, as a patient user does
  bool answersBoxes = true;    // by Enter, also before the end; each is then in Boxes()
  int mostKeysToLeave = 200;   // the program that needs more cannot be left
  std::function<void()> beforeEachKey;

  const std::vector<std::string>& Boxes() const { return boxes_; }
  const std::vector<std::string>& Notes() const { return notes_; }
  bool IsStuck() const { return keysToLeave_ > mostKeysToLeave; }

  std::optional<KeyStroke> NextKey() override;
  void Wake() override;
  void Pause(std::chrono::milliseconds duration) override;

 private:
  std::optional<KeyStroke> AtEnd() override;
  std::optional<KeyStroke> KeyToLeave();
  void WaitUntilWoken();

  const Keys keys_ = [] { return std::nullopt; };
  std::vector<std::string> boxes_;
  std::vector<std::string> notes_;  // texts of popup notes
  bool leaving_ = false;
  int keysToLeave_ = 0;
  std::mutex mutex_;
  std::condition_variable wakes_;
  bool woken_ = false;
};

}  // namespace tests
