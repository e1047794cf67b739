#include "authoring/screen_svg.h"

#include "base/utf8.h"

namespace authoring {
namespace {

using simulator::Cell;
using simulator::CellGrid;
using simulator::CellStyle;

constexpr int kCellWidth = 8;
constexpr int kCellHeight = 17;
constexpr int kBaseline = 13;

const char* ClassOf(CellStyle style) {
  switch (style) {
    case CellStyle::kBold: return "b";
    case CellStyle::kInverse: return "i";
    case CellStyle::kTitleBar: return "t";
    case CellStyle::kField: return "f";
    case CellStyle::kFaint: return "d";
    case CellStyle::kFrame: return "r";
    default: return "n";
  }
}

bool HasGround(CellStyle style) {
  return style == CellStyle::kInverse || style == CellStyle::kTitleBar || style == CellStyle::kField;
}

std::string Utf8(char32_t character) {
  WideString units;
  if (character < 0x10000) {
    units.push_back(static_cast<char16_t>(character));
  } else {
    units.push_back(static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10)));
    units.push_back(static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF)));
  }
  return base::ToUtf8(units);
}

// The device's frame ends where its first row does.
int ColumnsOf(const CellGrid& grid) {
  int columns = grid.Columns();
  while (columns > 1 && grid.At(columns - 1, 0) == Cell{}) --columns;
  return columns;
}

int RowsOf(const CellGrid& grid, int columns) {
  const auto isBlank = [&](int row) {
    for (int column = 0; column < columns; ++column) {
      if (grid.At(column, row) != Cell{}) return false;
    }
    return true;
  };
  int rows = grid.Rows();
  while (rows > 1 && isBlank(rows - 1)) --rows;
  return rows;
}

void AddRun(std::string& svg, int row, int from, int to, const std::string& text, CellStyle style) {
  const std::string x = std::to_string(from * kCellWidth);
  const std::string width = std::to_string((to - from) * kCellWidth);
  if (HasGround(style)) {
    svg += "<rect class=\"" + std::string(ClassOf(style)) + "\" x=\"" + x + "\" y=\"" +
           std::to_string(row * kCellHeight) + "\" width=\"" + width + "\" height=\"" + std::to_string(kCellHeight) +
           "\"/>";
  }
  if (text.find_first_not_of(' ') == std::string::npos) return;
  svg += "<text class=\"" + std::string(ClassOf(style)) + "\" x=\"" + x + "\" y=\"" +
         std::to_string(row * kCellHeight + kBaseline) + "\" textLength=\"" + width + "\">" + EscapedHtml(text) +
         "</text>";
}

void AddRow(std::string& svg, const CellGrid& grid, int row, int columns) {
  for (int column = 0; column < columns;) {
    const CellStyle style = grid.At(column, row).style;
    // A run begins with a character: blanks in front would be lost.
    const bool isBlank = grid.At(column, row).character == U' ';
    if (isBlank && !HasGround(style)) {
      ++column;
      continue;
    }
    const int from = column;
    std::string text;
    int blanks = 0;
    while (column < columns && grid.At(column, row).style == style && blanks < 2) {
      blanks = grid.At(column, row).character == U' ' && !HasGround(style) ? blanks + 1 : 0;
      text += Utf8(grid.At(column, row).character);
      ++column;
    }
    AddRun(svg, row, from, column, text, style);
  }
}

}  // namespace

const char* const kScreenStyles =
    "svg.screen{background:#fff;border-radius:6px;box-shadow:0 1px 4px #0004;max-width:100%;height:auto}\n"
    "svg.screen text{font:13px ui-monospace,'DejaVu Sans Mono',Consolas,monospace;white-space:pre;fill:#111}\n"
    "svg.screen text.b{font-weight:bold}svg.screen text.d{fill:#667}svg.screen text.r{fill:#89a}\n"
    "svg.screen rect.i{fill:#111}svg.screen text.i{fill:#fff}\n"
    "svg.screen rect.t{fill:#1d4f91}svg.screen text.t{fill:#fff;font-weight:bold}svg.screen rect.f{fill:#d8eef2}\n";

std::string EscapedHtml(std::string_view text) {
  std::string escaped;
  for (const char byte : text) {
    switch (byte) {
      case '&': escaped += "&amp;"; break;
      case '<': escaped += "&lt;"; break;
      case '>': escaped += "&gt;"; break;
      case '"': escaped += "&quot;"; break;
      default:
        if (static_cast<unsigned char>(byte) >= 0x20 || byte == '\n' || byte == '\t') escaped.push_back(byte);
    }
  }
  return escaped;
}

std::string ScreenSvg(const CellGrid& shown, std::string_view label) {
  const int columns = ColumnsOf(shown);
  const int rows = RowsOf(shown, columns);
  CellGrid grid = shown;
  // The simulated terminal's name stands on the lower edge; that of the reader's is another.
  for (int column = 2; column < columns - 1; ++column) grid.Put(column, rows - 1, grid.At(1, rows - 1), grid.Whole());
  const std::string width = std::to_string(columns * kCellWidth);
  const std::string height = std::to_string(rows * kCellHeight);
  std::string svg = "<svg class=\"screen\" role=\"img\" aria-label=\"" + EscapedHtml(label) + "\" width=\"" + width +
                    "\" height=\"" + height + "\" viewBox=\"0 0 " + width + " " + height + "\">";
  for (int row = 0; row < rows; ++row) AddRow(svg, grid, row, columns);
  return svg + "</svg>";
}

}  // namespace authoring
