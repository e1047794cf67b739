// The display in a text terminal. It draws the simulated terminal as character cells and takes its keys; the terminal
// is as it was when the display goes, or when a signal ends the process.
#pragma once

#include "platform/host/display.h"

#include <memory>
#include <string>

namespace simulator {

class TextDisplay : public platform::host::Display {
 public:
  TextDisplay(int screenWidthPx, int screenHeightPx);
  ~TextDisplay() override;
  TextDisplay(const TextDisplay&) = delete;
  TextDisplay& operator=(const TextDisplay&) = delete;

  // Takes the terminal over. Empty, or why it cannot be used.
  std::string Start();

  std::optional<platform::host::KeyStroke> NextKey() override;
  void Wake() override;
  void Pause(std::chrono::milliseconds duration) override;
  void Beep() override;
  void ComeForward() override;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace simulator
