#include "simulator/curses_screen.h"

#include "simulator/shown_character.h"

#include <curses.h>
#include <sys/ioctl.h>
#include <term.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace simulator {
namespace {

enum Pair : short { kTitlePair = 1, kFieldPair, kFramePair };

std::string_view Variable(const char* name) {
  const char* text = std::getenv(name);
  return text == nullptr ? "" : text;
}

// Empty, or why a terminal of the kind that TERM names cannot show a screen.
std::string ProblemOfTheKind() {
  const std::string kind(Variable("TERM"));
  if (kind.empty()) return "the text display needs TERM to name the kind of terminal; use --script without one";
  int found = 0;
  if (setupterm(nullptr, STDOUT_FILENO, &found) == ERR) {
    return "the text display does not know terminals of the kind \"" + kind + "\"; is TERM right?";
  }
  const bool canShow = !CursesScreen::Capability("cup").empty();
  del_curterm(set_curterm(nullptr));
  return canShow ? "" : "a terminal of the kind \"" + kind + "\" cannot show the text display; is TERM right?";
}

// Whether there are colours to use: NO_COLOR asks every program to leave them.
bool PrepareColors() {
  if (!Variable("NO_COLOR").empty() || !has_colors() || start_color() == ERR) return false;
  use_default_colors();
  init_pair(kTitlePair, COLOR_WHITE, COLOR_BLUE);
  init_pair(kFieldPair, COLOR_BLACK, COLOR_CYAN);
  init_pair(kFramePair, COLOR_CYAN, -1);
  return true;
}

// Every style stands out without colours too.
attr_t AttributesOf(CellStyle style, bool colors) {
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

}  // namespace

CursesScreen::~CursesScreen() {
  if (screen_ == nullptr) return;
  signals_.reset();
  endwin();
  delscreen(screen_);
}

std::string CursesScreen::Start(int wakeDescriptor) {
  if (!isatty(STDIN_FILENO) || !isatty(STDOUT_FILENO)) {
    return "the text display needs a terminal; use --script, or --display none";
  }
  if (std::string problem = ProblemOfTheKind(); !problem.empty()) return problem;
  screen_ = newterm(nullptr, stdout, stdin);
  if (screen_ == nullptr) return "the text display cannot use this terminal";
  signals_ =
      std::make_unique<TerminalSignals>(Capability("sgr0") + Capability("cnorm") + Capability("rmcup"), wakeDescriptor);
  cbreak();
  noecho();
  nonl();
  // What is typed stays for the keyboard, which does not read by curses.
  typeahead(-1);
  colors_ = PrepareColors();
  return {};
}

std::string CursesScreen::Capability(const char* name) {
  const char* text = tigetstr(name);
  return text == nullptr || text == reinterpret_cast<const char*>(-1) ? "" : text;
}

CursesScreen::Size CursesScreen::SizeNow() {
  struct winsize size = {};
  const bool isKnown = ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 && size.ws_row > 0;
  if (isKnown && is_term_resized(size.ws_row, size.ws_col)) resizeterm(size.ws_row, size.ws_col);
  return {COLS, LINES};
}

void CursesScreen::DrawCell(int column, int row, const Cell& cell) const {
  const std::array<wchar_t, 2> text = {ShownCharacter(cell.character), L'\0'};
  attrset(static_cast<int>(AttributesOf(cell.style, colors_)));
  mvaddnwstr(row, column, text.data(), 1);
}

void CursesScreen::Show(const PaintedScreen& painted) {
  erase();
  for (int row = 0; row < painted.grid.Rows(); ++row) {
    for (int column = 0; column < painted.grid.Columns(); ++column) {
      if (painted.grid.At(column, row) != Cell{}) DrawCell(column, row, painted.grid.At(column, row));
    }
  }
  attrset(A_NORMAL);
  curs_set(painted.caret ? 1 : 0);
  if (painted.caret) move(painted.caret->row, painted.caret->column);
  refresh();
}

void CursesScreen::DrawAnew() { clearok(curscr, TRUE); }

void CursesScreen::Beep() { beep(); }

}  // namespace simulator
