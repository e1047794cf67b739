// How an edit field's text lies in lines.
#pragma once

#include "platform/host/text_metrics.h"

#include <vector>

namespace platform::host {

struct EditLine {
  int start = 0;   // in the text
  int length = 0;  // without the line end
  int ending = 0;  // units of the line end: 2 for "\r\n", 1 for "\n", 0 where a line is wrapped and at the end

  int End() const { return start + length; }
  int Next() const { return start + length + ending; }
};

// At least one line. A width of 0 or less does not wrap; else lines break after the last blank that fits, and inside a
// word only when the word is wider than the line.
std::vector<EditLine> BreakIntoLines(WideStringView text, const Font& font, int widthPx);

// The line that a position is in; at a wrap, the later one.
int LineOfPosition(const std::vector<EditLine>& lines, int position);

}  // namespace platform::host
