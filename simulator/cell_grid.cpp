#include "simulator/cell_grid.h"

#include "base/utf8.h"

#include <algorithm>

namespace simulator {
namespace {

char32_t NextCodePoint(WideStringView text, std::size_t& at) {
  const char16_t unit = text[at++];
  const bool high = unit >= 0xD800 && unit <= 0xDBFF;
  if (high && at < text.size() && text[at] >= 0xDC00 && text[at] <= 0xDFFF) {
    return 0x10000 + ((static_cast<char32_t>(unit) - 0xD800) << 10) + (static_cast<char32_t>(text[at++]) - 0xDC00);
  }
  if (unit >= 0xD800 && unit <= 0xDFFF) return 0xFFFD;
  return unit;
}

bool IsPrintable(char32_t character) { return character >= 0x20 && (character < 0x7F || character >= 0xA0); }

std::string Encode(char32_t character) {
  WideString units;
  if (character >= 0x10000) {
    units.push_back(static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10)));
    units.push_back(static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF)));
  } else {
    units.push_back(static_cast<char16_t>(character));
  }
  return base::ToUtf8(units);
}

}  // namespace

CellRect Intersection(const CellRect& a, const CellRect& b) {
  return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right), std::min(a.bottom, b.bottom)};
}

CellGrid::CellGrid(int columns, int rows)
    : columns_(std::max(columns, 0)),
      rows_(std::max(rows, 0)),
      cells_(static_cast<std::size_t>(columns_) * static_cast<std::size_t>(rows_)) {}

const Cell& CellGrid::At(int column, int row) const {
  return cells_[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) + static_cast<std::size_t>(column)];
}

void CellGrid::Put(int column, int row, Cell cell, const CellRect& clip) {
  const CellRect inside = Intersection(clip, Whole());
  if (column < inside.left || column >= inside.right || row < inside.top || row >= inside.bottom) return;
  cells_[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) + static_cast<std::size_t>(column)] = cell;
}

void CellGrid::Copy(const CellGrid& other, int left, int top) {
  for (int row = 0; row < std::min(rows_, other.rows_ - top); ++row) {
    for (int column = 0; column < std::min(columns_, other.columns_ - left); ++column) {
      Put(column, row, other.At(left + column, top + row), Whole());
    }
  }
}

void CellGrid::Fill(const CellRect& rect, Cell cell, const CellRect& clip) {
  const CellRect inside = Intersection(Intersection(rect, clip), Whole());
  for (int row = inside.top; row < inside.bottom; ++row) {
    for (int column = inside.left; column < inside.right; ++column) Put(column, row, cell, inside);
  }
}

void CellGrid::Text(int column, int row, WideStringView text, CellStyle style, const CellRect& clip) {
  for (std::size_t at = 0; at < text.size() && column < clip.right;) {
    const char32_t character = NextCodePoint(text, at);
    Put(column++, row, {IsPrintable(character) ? character : U' ', style}, clip);
  }
}

void CellGrid::Box(const CellRect& rect, CellStyle style, const CellRect& clip) {
  if (rect.Width() < 2 || rect.Height() < 2) return;
  const int right = rect.right - 1;
  const int bottom = rect.bottom - 1;
  Fill({rect.left, rect.top, rect.right, rect.top + 1}, {U'─', style}, clip);
  Fill({rect.left, bottom, rect.right, rect.bottom}, {U'─', style}, clip);
  Fill({rect.left, rect.top, rect.left + 1, rect.bottom}, {U'│', style}, clip);
  Fill({right, rect.top, rect.right, rect.bottom}, {U'│', style}, clip);
  Put(rect.left, rect.top, {U'┌', style}, clip);
  Put(right, rect.top, {U'┐', style}, clip);
  Put(rect.left, bottom, {U'└', style}, clip);
  Put(right, bottom, {U'┘', style}, clip);
}

std::string CellGrid::ToUtf8() const {
  std::string text;
  for (int row = 0; row < rows_; ++row) {
    std::string line;
    for (int column = 0; column < columns_; ++column) line += Encode(At(column, row).character);
    line.erase(line.find_last_not_of(' ') + 1);
    text += line + "\n";
  }
  return text;
}

int CellsOf(WideStringView text) {
  int cells = 0;
  for (std::size_t at = 0; at < text.size(); ++cells) NextCodePoint(text, at);
  return cells;
}

}  // namespace simulator
