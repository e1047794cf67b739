// Where the simulated terminal is seen and its keypad pressed.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

namespace platform::host {

struct KeyStroke {
  std::uint16_t virtualKey = 0;
  char16_t character = 0;  // what the key types; 0: nothing
  bool shift = false;
  bool control = false;
};

class Display {
 public:
  virtual ~Display() = default;

  // Called when no message is left: shows the windows as they are now and waits for a key. Nothing: Wake() was called
  // first, or the display has no more keys to give and asked the program to quit.
  virtual std::optional<KeyStroke> NextKey() = 0;

  // Ends a NextKey() that waits, or the next one. From any thread.
  virtual void Wake() = 0;

  // Shows the windows and lets the time pass.
  virtual void Pause(std::chrono::milliseconds duration) = 0;

  virtual void Beep() = 0;

  // Another instance was started on this terminal.
  virtual void ComeForward() = 0;
};

}  // namespace platform::host
