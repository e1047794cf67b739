// A screen of character cells.
#pragma once

#include "base/wide_string.h"

#include <string>
#include <vector>

namespace simulator {

struct CellRect {
  int left = 0;
  int top = 0;
  int right = 0;  // right and bottom lie outside
  int bottom = 0;
  int Width() const { return right - left; }
  int Height() const { return bottom - top; }
  bool operator==(const CellRect&) const = default;
};

CellRect Intersection(const CellRect& a, const CellRect& b);

// How a cell stands out; a display decides what each looks like.
enum class CellStyle : unsigned char { kNormal, kBold, kInverse, kTitleBar, kField, kFaint, kFrame };

struct Cell {
  char32_t character = U' ';
  CellStyle style = CellStyle::kNormal;
  bool operator==(const Cell&) const = default;
};

class CellGrid {
 public:
  CellGrid(int columns, int rows);

  int Columns() const { return columns_; }
  int Rows() const { return rows_; }
  const Cell& At(int column, int row) const;

  // Nothing outside `clip` and the grid is touched.
  void Put(int column, int row, Cell cell, const CellRect& clip);
  // The part of another grid that begins at this cell of it, as far as there is room.
  void Copy(const CellGrid& other, int left, int top);
  void Fill(const CellRect& rect, Cell cell, const CellRect& clip);
  // One cell a code point, from a column on; what is no printable character shows as a blank.
  void Text(int column, int row, WideStringView text, CellStyle style, const CellRect& clip);
  void Box(const CellRect& rect, CellStyle style, const CellRect& clip);

  CellRect Whole() const { return {0, 0, columns_, rows_}; }

  // The rows without the blanks at their ends, for tests and for people without a terminal.
  std::string ToUtf8() const;

 private:
  int columns_;
  int rows_;
  std::vector<Cell> cells_;
};

// The number of cells that a text takes.
int CellsOf(WideStringView text);

}  // namespace simulator
