#pragma once

#include <string>
#include <vector>

#include "module/frame/seam.h"

namespace kovra {

/// A clipboard text as a table: tabs between cells, a line feed behind each row. The tabs before
/// the first line feed give the columns. The line feeds give the rows, so what stands behind the
/// last one isn't a row; a text without one is a single row. A carriage return ends a cell's text.
///
/// A row with fewer cells than the first one is filled up with empty cells, and of one with more
/// the rest is left out: whatever else happens, rows stay rows.
class ClipTable {
 public:
  explicit ClipTable(const ACHAR* text);

  int Columns() const { return columns_; }
  int Rows() const { return static_cast<int>(rows_.size()); }
  bool IsOneCell() const { return Columns() == 1 && Rows() == 1; }

  /// Row and column from 0 within the table.
  const ACHAR* Cell(int row, int col) const;
  /// The first cell as it stands, with its carriage returns.
  const ACHAR* WholeFirstCell() const { return wholeFirstCell_.c_str(); }

 private:
  /// Where its first cell begins, and how many it has.
  struct Row {
    std::size_t firstCell;
    int cells;
  };

  void split();
  void cutAtCarriageReturns();

  std::wstring text_;               // each cell ends with a null
  std::vector<std::size_t> cells_;  // where they begin
  std::vector<Row> rows_;
  int columns_ = 1;
  std::wstring wholeFirstCell_;
};

}  // namespace kovra
