// The display in a text terminal: it shows the simulated terminal's screen as character cells and takes its keys.
#pragma once

#include "platform/host/display.h"
#include "simulator/curses_screen.h"
#include "simulator/terminal_keyboard.h"
#include "simulator/text_panel.h"
#include "simulator/wake_pipe.h"

#include <functional>
#include <optional>
#include <string>

namespace simulator {

class TextDisplay : public platform::host::Display {
 public:
  // `inserts` says whether typing in the program's fields inserts now. While `panel` is open the device has the rows
  // above it.
  TextDisplay(DeviceScreen device, std::function<bool()> inserts, TextPanel& panel);

  // Takes the terminal over, until this goes. Empty, or why it cannot be used.
  std::string Start();

  std::optional<platform::host::KeyStroke> NextKey() override;
  void Wake() override;
  void Pause(std::chrono::milliseconds duration) override;
  void Beep() override;
  void ComeForward() override;

 private:
  void Show();
  PaintedScreen Paint(int columns, int rows);

  DeviceScreen device_;
  const std::function<bool()> inserts_;
  TextPanel& panel_;
  WakePipe wake_;
  CursesScreen screen_;
  std::optional<TerminalKeyboard> keyboard_;
};

}  // namespace simulator
