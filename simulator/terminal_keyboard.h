// The keyboard of a PC's terminal, read byte by byte. A lone Esc acts when nothing has followed it for a moment, since
// the bytes of other keys begin with it; a key that has begun otherwise may take its time.
#pragma once

#include "simulator/key_decoder.h"

#include <chrono>

namespace simulator {

class TerminalKeyboard {
 public:
  using Milliseconds = std::chrono::milliseconds;

  // Reads from `descriptor`, which must block.
  TerminalKeyboard(int descriptor, KeyDecoder decoder, Milliseconds escapeDelay);

  enum class Event { kKey, kWoken, kGone };
  // Waits until a key is there, `wakeDescriptor` can be read, or the terminal is gone.
  Event Wait(int wakeDescriptor);

  // The key of the last Wait() that said kKey.
  const platform::host::KeyStroke& Pressed() const { return pressed_; }

 private:
  using Clock = std::chrono::steady_clock;

  bool TakeKey();
  int PatienceMs() const;
  bool ReadBytes();

  int descriptor_;
  KeyDecoder decoder_;
  Milliseconds escapeDelay_;
  Clock::time_point lastByte_;
  platform::host::KeyStroke pressed_;
};

// How long a lone Esc waits: $ESCDELAY in milliseconds as other programs have it, else short enough not to be noticed.
std::chrono::milliseconds EscapeDelay();

}  // namespace simulator
