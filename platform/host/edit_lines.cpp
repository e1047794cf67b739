#include "platform/host/edit_lines.h"

#include <algorithm>

namespace platform::host {

namespace {

// The units of `text` that go on one line of `widthPx`; at least one.
std::size_t FittingLength(WideStringView text, const Font& font, int widthPx) {
  int width = 0;
  std::size_t afterBlank = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    width += WidthOf(font, text.substr(i, 1));
    if (text[i] == u' ') {
      afterBlank = i + 1;  // a blank may hang over the edge
      continue;
    }
    if (width > widthPx) return afterBlank > 0 ? afterBlank : std::max<std::size_t>(i, 1);
  }
  return text.size();
}

}  // namespace

std::vector<EditLine> BreakIntoLines(WideStringView text, const Font& font, int widthPx) {
  std::vector<EditLine> lines;
  std::size_t start = 0;
  while (true) {
    const std::size_t newline = std::min(text.find(u'\n', start), text.size());
    const bool ends = newline < text.size();
    const bool carriageReturn = ends && newline > start && text[newline - 1] == u'\r';
    std::size_t remaining = newline - start - (carriageReturn ? 1 : 0);
    while (widthPx > 0) {
      const std::size_t fitting = FittingLength(text.substr(start, remaining), font, widthPx);
      if (fitting >= remaining) break;
      lines.push_back({static_cast<int>(start), static_cast<int>(fitting), 0});
      start += fitting;
      remaining -= fitting;
    }
    lines.push_back({static_cast<int>(start), static_cast<int>(remaining), ends ? (carriageReturn ? 2 : 1) : 0});
    if (!ends) return lines;
    start = newline + 1;
  }
}

int LineOfPosition(const std::vector<EditLine>& lines, int position) {
  const auto after = std::upper_bound(lines.begin(), lines.end(), position,
                                      [](int value, const EditLine& line) { return value < line.start; });
  return std::max(0, static_cast<int>(after - lines.begin()) - 1);
}

}  // namespace platform::host
