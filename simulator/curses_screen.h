// A PC's text terminal as a screen of cells. It is as it was when this goes, or when a signal ends the process.
#pragma once

#include "simulator/screen_painter.h"
#include "simulator/terminal_signals.h"

#include <memory>
#include <string>

struct screen;  // of curses

namespace simulator {

class CursesScreen {
 public:
  CursesScreen() = default;
  ~CursesScreen();
  CursesScreen(const CursesScreen&) = delete;
  CursesScreen& operator=(const CursesScreen&) = delete;

  // Takes the terminal over. `wakeDescriptor` gets a byte when its size changes, or another terminal asks this one to
  // come forward. Empty, or why it cannot be used.
  std::string Start(int wakeDescriptor);

  // A text of the terminal's description, such as "kcuu1"; empty when it has none. After Start().
  static std::string Capability(const char* name);

  struct Size {
    int columns = 0;
    int rows = 0;
  };
  Size SizeNow();

  void Show(const PaintedScreen& painted);
  // The next Show() draws everything, whatever stands there.
  void DrawAnew();
  void Beep();

 private:
  void DrawCell(int column, int row, const Cell& cell) const;

  ::screen* screen_ = nullptr;
  std::unique_ptr<TerminalSignals> signals_;
  bool colors_ = false;
};

}  // namespace simulator
