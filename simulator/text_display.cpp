#include "simulator/text_display.h"

#include "simulator/screen_painter.h"
#include "simulator/viewport.h"

#include <signal.h>
#include <unistd.h>

#include <thread>
#include <utility>

namespace simulator {
namespace {

using platform::host::KeyStroke;

// The keys that the display takes for itself.
bool AsksToDrawAnew(const KeyStroke& stroke) { return stroke.control && stroke.virtualKey == 'L'; }

}  // namespace

TextDisplay::TextDisplay(DeviceScreen device, std::function<bool()> inserts, TextPanel& panel)
    : device_(std::move(device)), inserts_(std::move(inserts)), panel_(panel) {}

std::string TextDisplay::Start() {
  if (!wake_.IsOpen()) return "the text display cannot make a pipe";
  if (std::string problem = screen_.Start(wake_.WriteEnd()); !problem.empty()) return problem;
  keyboard_.emplace(STDIN_FILENO, KeyDecoder(DescribedKeySequences(CursesScreen::Capability)), EscapeDelay());
  return {};
}

void TextDisplay::Show() {
  const CursesScreen::Size size = screen_.SizeNow();
  screen_.Show(Paint(size.columns, size.rows));
}

PaintedScreen TextDisplay::Paint(int columns, int rows) {
  device_.inserts = inserts_();
  if (!panel_.IsOpen() || IsTooSmall(columns, rows)) return PaintScreen(columns, rows, device_);
  const int deviceRows = rows - panel_.Fit(columns, rows);
  PaintedScreen screen{CellGrid(columns, rows), std::nullopt, {}};
  if (deviceRows > 0) screen.grid.Copy(PaintScreen(columns, deviceRows, device_).grid, 0, 0);
  panel_.Paint(screen.grid);
  return screen;
}

std::optional<KeyStroke> TextDisplay::NextKey() {
  for (;;) {
    if (TerminalSignals::TakeForwardRequest()) ComeForward();
    Show();
    switch (keyboard_->Wait(wake_.ReadEnd())) {
      case TerminalKeyboard::Event::kKey:
        if (!AsksToDrawAnew(keyboard_->Pressed())) return keyboard_->Pressed();
        screen_.DrawAnew();
        break;
      case TerminalKeyboard::Event::kWoken: wake_.Empty(); return std::nullopt;
      // As the terminal itself would say, whoever took it away.
      case TerminalKeyboard::Event::kGone: raise(SIGHUP);
    }
  }
}

void TextDisplay::Wake() { wake_.Fill(); }

void TextDisplay::Pause(std::chrono::milliseconds duration) {
  Show();
  // Keys that are typed meanwhile stay where they are until they are asked for.
  std::this_thread::sleep_for(duration);
}

void TextDisplay::Beep() { screen_.Beep(); }

void TextDisplay::ComeForward() {
  screen_.Beep();
  screen_.DrawAnew();
  Show();
}

}  // namespace simulator
