#include "simulator/text_fit.h"

#include "platform/host/desktop.h"

#include <algorithm>

namespace simulator {
namespace {

using platform::WindowHandle;

bool IsLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

// Where the first line of a paragraph ends: at its end, or at the last blank from which on it would be too wide.
std::size_t LineEnd(WindowHandle control, WideStringView paragraph, int widthPx) {
  std::size_t end = 0;
  for (std::size_t blank = paragraph.find(u' ', 1); end < paragraph.size(); blank = paragraph.find(u' ', end + 1)) {
    const std::size_t next = std::min(blank, paragraph.size());
    if (end > 0 && platform::host::TextWidthIn(control, paragraph.substr(0, next)) > widthPx) break;
    end = next;
  }
  return end;
}

}  // namespace

WideStringView InSight(WindowHandle control, WideStringView line, int widthPx) {
  int left = 0;
  std::size_t end = 0;
  for (; end < line.size(); ++end) {
    const int width = platform::host::TextWidthIn(control, line.substr(end, 1));
    if (!IsLowSurrogate(line[end]) && left + width / 2 > widthPx) break;
    left += width;
  }
  return line.substr(0, end);
}

int LinesInSight(WindowHandle control, int heightPx) {
  const int linePx = std::max(platform::host::FontOf(control).linePx, 1);
  return std::max((heightPx + linePx / 2) / linePx, 1);
}

std::vector<WideString> BrokenIntoLines(WindowHandle control, WideStringView text, int widthPx) {
  std::vector<WideString> lines;
  while (!text.empty()) {
    const WideStringView paragraph = text.substr(0, text.find_first_of(u"\r\n"));
    const std::size_t end = LineEnd(control, paragraph, widthPx);
    lines.emplace_back(text.substr(0, end));
    text.remove_prefix(end);
    // The blank at which a line was broken goes, and a line end, "\r\n" as one.
    if (end < paragraph.size()) {
      text.remove_prefix(1);
    } else {
      if (text.starts_with(u'\r')) text.remove_prefix(1);
      if (text.starts_with(u'\n')) text.remove_prefix(1);
    }
  }
  return lines;
}

}  // namespace simulator
