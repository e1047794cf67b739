#include "simulator/text_display.h"

#include "simulator/curses_keys.h"
#include "simulator/screen_painter.h"
#include "simulator/terminal_signals.h"

#include <curses.h>
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <term.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cwchar>

namespace simulator {
namespace {

using platform::host::KeyStroke;

// A lone Esc acts after this time; the bytes of a key that begins with Esc come closer together.
constexpr int kEscapeDelayMs = 25;

enum Pair : short { kTitlePair = 1, kFieldPair, kFramePair };

void PrepareColors() {
  if (!has_colors() || start_color() == ERR) return;
  use_default_colors();
  init_pair(kTitlePair, COLOR_WHITE, COLOR_BLUE);
  init_pair(kFieldPair, COLOR_BLACK, COLOR_CYAN);
  init_pair(kFramePair, COLOR_CYAN, -1);
}

// Every style stands out without colours too.
attr_t AttributesOf(CellStyle style) {
  const bool colors = has_colors();
  switch (style) {
    case CellStyle::kBold: return A_BOLD;
    case CellStyle::kInverse: return A_REVERSE;
    case CellStyle::kTitleBar: return A_BOLD | (colors ? COLOR_PAIR(kTitlePair) : A_REVERSE);
    case CellStyle::kField: return colors ? COLOR_PAIR(kFieldPair) : A_UNDERLINE;
    case CellStyle::kFaint: return A_DIM;
    case CellStyle::kFrame: return colors ? COLOR_PAIR(kFramePair) : A_NORMAL;
    default: return A_NORMAL;
  }
}

void DrawCell(int row, int column, const Cell& cell) {
  // A character that would not fill one cell would shift the rest of the row.
  const auto character = static_cast<wchar_t>(cell.character);
  const std::array<wchar_t, 2> text = {wcwidth(character) == 1 ? character : L'?', L'\0'};
  attrset(static_cast<int>(AttributesOf(cell.style)));
  mvaddnwstr(row, column, text.data(), 1);
}

std::string Capability(const char* name) {
  const char* text = tigetstr(name);
  return text == nullptr || text == reinterpret_cast<const char*>(-1) ? "" : text;
}

class Pipe {
 public:
  Pipe() { open_ = pipe2(ends_.data(), O_CLOEXEC | O_NONBLOCK) == 0; }
  ~Pipe() {
    if (!open_) return;
    close(ends_[0]);
    close(ends_[1]);
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;

  bool IsOpen() const { return open_; }
  int ReadEnd() const { return ends_[0]; }
  int WriteEnd() const { return ends_[1]; }

  void Fill() const {
    const char byte = 'W';
    // A full pipe is as good as one more byte in it.
    [[maybe_unused]] const auto written = write(ends_[1], &byte, 1);
  }
  bool Empty() const {
    std::array<char, 64> bytes = {};
    bool any = false;
    while (read(ends_[0], bytes.data(), bytes.size()) > 0) any = true;
    return any;
  }

 private:
  std::array<int, 2> ends_ = {-1, -1};
  bool open_ = false;
};

}  // namespace

struct TextDisplay::State {
  State(int width, int height) : widthPx(width), heightPx(height) {}

  void Show() const;
  std::optional<KeyStroke> TypedKey();

  const int widthPx;
  const int heightPx;
  Pipe wake;
  bool started = false;
  SCREEN* screen = nullptr;
  std::unique_ptr<TerminalSignals> signals;
};

TextDisplay::TextDisplay(int screenWidthPx, int screenHeightPx)
    : state_(std::make_unique<State>(screenWidthPx, screenHeightPx)) {}

TextDisplay::~TextDisplay() {
  if (!state_->started) return;
  state_->signals.reset();
  endwin();
  delscreen(state_->screen);
}

std::string TextDisplay::Start() {
  if (!isatty(STDIN_FILENO) || !isatty(STDOUT_FILENO)) {
    return "the text display needs a terminal; use --script, or --display none";
  }
  if (!state_->wake.IsOpen()) return "the text display cannot make a pipe";
  set_escdelay(kEscapeDelayMs);
  state_->screen = newterm(nullptr, stdout, stdin);
  if (state_->screen == nullptr) return "the text display does not know this kind of terminal; is TERM right?";
  state_->started = true;
  state_->signals = std::make_unique<TerminalSignals>(
      Capability("sgr0") + Capability("cnorm") + Capability("rmcup") + Capability("rmkx"), state_->wake.WriteEnd());
  cbreak();
  noecho();
  nonl();
  keypad(stdscr, TRUE);
  nodelay(stdscr, TRUE);
  PrepareColors();
  return {};
}

void TextDisplay::State::Show() const {
  const PaintedScreen painted = PaintScreen(COLS, LINES, widthPx, heightPx);
  erase();
  for (int row = 0; row < painted.grid.Rows(); ++row) {
    for (int column = 0; column < painted.grid.Columns(); ++column) {
      if (painted.grid.At(column, row) != Cell{}) DrawCell(row, column, painted.grid.At(column, row));
    }
  }
  attrset(A_NORMAL);
  curs_set(painted.caret ? 1 : 0);
  if (painted.caret) move(painted.caret->row, painted.caret->column);
  refresh();
}

// Nothing when no key was typed that the keypad has; what was typed and means nothing is passed over.
std::optional<KeyStroke> TextDisplay::State::TypedKey() {
  for (;;) {
    wint_t code = 0;
    const int kind = get_wch(&code);
    if (kind == ERR) return std::nullopt;
    if (kind == KEY_CODE_YES && code == KEY_RESIZE) {
      Show();
    } else if (kind == OK && code == ('L' & 0x1F)) {
      clearok(curscr, TRUE);
      Show();
    } else if (const auto stroke = KeyStrokeOf(code, kind == KEY_CODE_YES)) {
      return stroke;
    }
  }
}

std::optional<KeyStroke> TextDisplay::NextKey() {
  state_->Show();
  for (;;) {
    if (TerminalSignals::TakeForwardRequest()) ComeForward();
    if (const auto stroke = state_->TypedKey()) return stroke;
    std::array<pollfd, 2> waits = {pollfd{STDIN_FILENO, POLLIN, 0}, pollfd{state_->wake.ReadEnd(), POLLIN, 0}};
    // Interrupted by a signal, such as that of a new size: what it means shows when the keys are read.
    if (poll(waits.data(), waits.size(), -1) <= 0) continue;
    if ((waits[0].revents & (POLLHUP | POLLERR | POLLNVAL)) != 0) raise(SIGHUP);
    if (state_->wake.Empty() && !TerminalSignals::TakeForwardRequest()) return std::nullopt;
  }
}

void TextDisplay::Wake() { state_->wake.Fill(); }

void TextDisplay::Pause(std::chrono::milliseconds duration) {
  state_->Show();
  // Keys that are typed meanwhile stay where they are until they are asked for.
  napms(static_cast<int>(duration.count()));
}

void TextDisplay::Beep() { beep(); }

void TextDisplay::ComeForward() {
  beep();
  clearok(curscr, TRUE);
  state_->Show();
}

}  // namespace simulator
