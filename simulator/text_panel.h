// A text for the author over the lower part of the text display. It is wrapped to the terminal's width, scrolled by the
// cursor keys, and nothing of the device's: the program in it does not know that it is there.
#pragma once

#include "platform/host/display.h"
#include "simulator/cell_grid.h"

#include <string>
#include <vector>

namespace simulator {

class TextPanel {
 public:
  // `text` in lines; one of them that is too long goes on below, further in.
  void Open(WideString title, const std::string& text);
  void Close() { isOpen_ = false; }
  bool IsOpen() const { return isOpen_; }

  // Of an open one: scrolls, or closes by Esc and Ctrl-W. All other keys mean nothing to it.
  void Press(const platform::host::KeyStroke& stroke);

  // Takes its part of a terminal: as few rows as it needs, and not those in which the device can still be worked on,
  // unless they are all too few. The number of its rows, which are the lowest.
  int Fit(int columns, int rows);
  // Over the rows that Fit() took.
  void Paint(CellGrid& grid) const;

 private:
  int TextRows() const { return rows_ - 2; }
  void ScrollTo(int line);

  bool isOpen_ = false;
  WideString title_;
  std::vector<WideString> lines_;
  std::vector<WideString> wrapped_;  // to columns_
  int columns_ = 0;
  int rows_ = 0;
  int top_ = 0;  // the first of the wrapped lines that is in sight
};

// A line in pieces that are no longer than `width`, broken at blanks where there are some.
std::vector<WideString> Wrapped(const WideString& line, int width);

}  // namespace simulator
