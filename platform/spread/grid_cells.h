#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/spread/cell_rules.h"
#include "platform/spread/spread.h"

namespace kovra::spread {

/// The cells of a grid: texts by column and row, headers as column and row 0, and what kind of
/// cells they are. Only texts that were put in take room.
class GridCells {
 public:
  LONG columns() const { return columns_; }
  LONG rows() const { return rows_; }
  /// False for a negative count. What lies beyond goes.
  bool setColumns(LONG count);
  void addRow() { ++rows_; }
  /// False if there is no such row. A grid keeps the rows that it began with.
  bool deleteRow(LONG row);

  /// True for a cell, header or corner that there is.
  bool has(LONG col, LONG row) const;
  /// Empty also for what there isn't.
  const std::wstring& text(LONG col, LONG row) const;
  /// False for negative numbers; else the grid grows as far as needed.
  bool setText(LONG col, LONG row, std::wstring_view text);

  /// The last row with a text that isn't empty, 0 when there is none.
  LONG lastFilledRow() const;
  /// The cells with a text, row by row; headers aren't among them.
  std::vector<SS_CELL> filled() const;

  SS_CELLTYPE type(LONG col, LONG row) const;
  std::wstring shown(LONG col, LONG row) const;

  CellRules<SS_CELLTYPE> types;
  CellRules<bool> locks;

  /// Rows and columns of a new grid.
  static constexpr LONG kFirstCount = 500;

 private:
  LONG columns_ = kFirstCount;
  LONG rows_ = kFirstCount;
  std::vector<std::vector<std::wstring>> texts_;  ///< by column, each as far as it was filled
};

}  // namespace kovra::spread
