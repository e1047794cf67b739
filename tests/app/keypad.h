// A display that presses keys, answers boxes on the way if it is to, and at the end leaves the program by Esc.
#pragma once

#include "platform/host/display.h"
#include "platform/window.h"

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

class Keypad final : public platform::host::Display {
 public:
  using Keys = std::function<std::optional<platform::host::KeyStroke>()>;

  // `keys` gives nothing at its end.
  explicit Keypad(Keys keys) : keys_(std::move(keys)) {}

  bool waitsForWorker = true;  // before each key, as a patient user does
  bool answersBoxes = true;    // by Enter, also before the end; each is then in Boxes()
  int mostKeysToLeave = 200;   // the program that needs more cannot be left
  std::function<void()> beforeEachKey;

  const std::vector<std::string>& Boxes() const { return boxes_; }
  const std::vector<std::string>& Notes() const { return notes_; }
  int KeysPressed() const { return pressed_; }
  bool IsStuck() const { return keysToLeave_ > mostKeysToLeave; }

  std::optional<platform::host::KeyStroke> NextKey() override;
  void Wake() override;
  void Pause(std::chrono::milliseconds duration) override;
  void Beep() override {}
  void ComeForward() override {}

 private:
  void WaitUntilWoken();
  std::optional<platform::host::KeyStroke> KeyToLeave();

  const Keys keys_;
  std::vector<std::string> boxes_;
  std::vector<std::string> notes_;  // texts of popup notes
  int pressed_ = 0;
  bool leaving_ = false;
  int keysToLeave_ = 0;
  std::mutex mutex_;
  std::condition_variable wakes_;
  bool woken_ = false;
};

}  // namespace tests
