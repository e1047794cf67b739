#include "simulator/text_panel.h"

#include "base/number.h"
#include "base/utf8.h"
#include "platform/messages.h"

#include <algorithm>

namespace simulator {
namespace {

namespace key = platform::key;
using platform::host::KeyStroke;

constexpr int kFrame = 2;  // columns, and rows, of both edges
constexpr int kFewestDeviceRows = 10;
constexpr int kFewestRows = 6;
constexpr int kFewestColumns = 10;

}  // namespace

std::vector<WideString> Wrapped(const WideString& line, int width) {
  const auto limit = static_cast<std::size_t>(std::max(width, kFewestColumns));
  std::size_t indent = std::min(line.find_first_not_of(u' '), line.size());
  indent = std::min(indent + 2, limit / 2);
  std::vector<WideString> pieces;
  WideString rest = line;
  while (rest.size() > limit) {
    const std::size_t start = rest.find_first_not_of(u' ');
    std::size_t end = rest.rfind(u' ', limit);
    std::size_t next = end + 1;
    if (end == WideString::npos || end <= start) {
      const bool splitsPair = (rest[limit] & 0xFC00) == 0xDC00;
      next = end = limit - (splitsPair ? 1 : 0);
    }
    pieces.push_back(rest.substr(0, end));
    rest = WideString(indent, u' ') + rest.substr(next);
  }
  pieces.push_back(std::move(rest));
  return pieces;
}

void TextPanel::Open(WideString title, const std::string& text) {
  isOpen_ = true;
  title_ = std::move(title);
  lines_.clear();
  const WideString all = base::FromUtf8(text);
  for (std::size_t at = 0; at < all.size();) {
    const std::size_t end = std::min(all.find(u'\n', at), all.size());
    lines_.push_back(all.substr(at, end - at));
    at = end + 1;
  }
  wrapped_ = lines_;
  columns_ = 0;
  top_ = 0;
}

int TextPanel::Fit(int columns, int rows) {
  if (!isOpen_) return 0;
  if (columns_ != columns) {
    columns_ = columns;
    wrapped_.clear();
    for (const WideString& line : lines_) {
      for (WideString& piece : Wrapped(line, columns - kFrame)) wrapped_.push_back(std::move(piece));
    }
  }
  const int most = rows - kFewestDeviceRows >= kFewestRows ? rows - kFewestDeviceRows : rows;
  rows_ = std::min(static_cast<int>(wrapped_.size()) + kFrame, most);
  ScrollTo(top_);
  return rows_;
}

void TextPanel::ScrollTo(int line) {
  top_ = std::clamp(line, 0, std::max(static_cast<int>(wrapped_.size()) - TextRows(), 0));
}

void TextPanel::Press(const KeyStroke& stroke) {
  if (stroke.control && stroke.virtualKey == 'W') return Close();
  const int page = std::max(TextRows() - 1, 1);
  switch (stroke.virtualKey) {
    case key::kEscape: return Close();
    case key::kUp: return ScrollTo(top_ - 1);
    case key::kDown: return ScrollTo(top_ + 1);
    case key::kPageUp: return ScrollTo(top_ - page);
    case key::kPageDown: return ScrollTo(top_ + page);
    case key::kHome: return ScrollTo(0);
    case key::kEnd: return ScrollTo(static_cast<int>(wrapped_.size()));
    default: return;
  }
}

void TextPanel::Paint(CellGrid& grid) const {
  const CellRect frame{0, grid.Rows() - rows_, grid.Columns(), grid.Rows()};
  grid.Fill(frame, {}, grid.Whole());
  grid.Box(frame, CellStyle::kFrame, grid.Whole());
  const CellRect inside{1, frame.top + 1, frame.right - 1, frame.bottom - 1};
  for (int row = 0; row < inside.Height(); ++row) {
    const auto line = static_cast<std::size_t>(top_) + static_cast<std::size_t>(row);
    if (line >= wrapped_.size()) break;
    grid.Text(inside.left, inside.top + row, wrapped_[line], line == 0 ? CellStyle::kBold : CellStyle::kNormal, inside);
  }
  const CellRect edges{2, frame.top, frame.right - 2, frame.bottom};
  grid.Text(edges.left, frame.top, u" " + title_ + u" ", CellStyle::kBold, edges);
  const int last = std::min(top_ + inside.Height(), static_cast<int>(wrapped_.size()));
  WideString keys = u" Esc close ";
  if (static_cast<int>(wrapped_.size()) > inside.Height()) {
    keys = u" ↑ ↓ PgUp PgDn " + base::ToText(last) + u" of " + base::ToText(static_cast<int>(wrapped_.size())) +
           u"  Esc close ";
  }
  grid.Text(edges.left, frame.bottom - 1, keys, CellStyle::kFaint, edges);
}

}  // namespace simulator
