#include "platform/spread/grid_cells.h"

#include <algorithm>

#include "platform/spread/cell_text.h"

namespace kovra::spread {

bool GridCells::setColumns(LONG count) {
  if (count < 0) return false;
  columns_ = count;
  const auto kept = static_cast<std::size_t>(count) + 1;
  if (texts_.size() > kept) texts_.resize(kept);
  return true;
}

bool GridCells::deleteRow(LONG row) {
  if (row < 1 || row > rows_) return false;
  for (auto& column : texts_) {
    if (column.size() > static_cast<std::size_t>(row)) column.erase(column.begin() + row);
  }
  types.deleteRow(row);
  locks.deleteRow(row);
  if (rows_ > kFirstCount) --rows_;
  return true;
}

bool GridCells::has(LONG col, LONG row) const {
  return col >= 0 && row >= 0 && col <= columns_ && row <= rows_;
}

const std::wstring& GridCells::text(LONG col, LONG row) const {
  static const std::wstring kNone;
  if (col < 0 || row < 0 || static_cast<std::size_t>(col) >= texts_.size()) return kNone;
  const auto& column = texts_[static_cast<std::size_t>(col)];
  return static_cast<std::size_t>(row) < column.size() ? column[static_cast<std::size_t>(row)]
                                                       : kNone;
}

bool GridCells::setText(LONG col, LONG row, std::wstring_view text) {
  if (col < 0 || row < 0) return false;
  columns_ = std::max(columns_, col);
  rows_ = std::max(rows_, row);
  const auto c = static_cast<std::size_t>(col), r = static_cast<std::size_t>(row);
  if (texts_.size() <= c) texts_.resize(c + 1);
  auto& column = texts_[c];
  if (column.size() <= r) {
    if (text.empty()) return true;
    column.resize(r + 1);
  }
  column[r] = text;
  return true;
}

LONG GridCells::lastFilledRow() const {
  LONG last = 0;
  for (std::size_t c = 1; c < texts_.size(); ++c) {
    auto row = static_cast<LONG>(texts_[c].size()) - 1;
    while (row > last && texts_[c][static_cast<std::size_t>(row)].empty()) --row;
    last = std::max(last, row);
  }
  return last;
}

std::vector<SS_CELL> GridCells::filled() const {
  std::vector<SS_CELL> cells;
  const LONG last = lastFilledRow();
  const auto columns = static_cast<LONG>(texts_.size());
  for (LONG row = 1; row <= last; ++row)
    for (LONG col = 1; col < columns; ++col)
      if (!text(col, row).empty()) cells.push_back({col, row});
  return cells;
}

SS_CELLTYPE GridCells::type(LONG col, LONG row) const {
  const bool header = col == 0 || row == 0;
  const SS_CELLTYPE text{SS_TYPE_TEXT, 0, 0, 0, 0};
  return header ? text : types.at(col, row, text);
}

std::wstring GridCells::shown(LONG col, LONG row) const {
  return shownText(type(col, row), text(col, row));
}

}  // namespace kovra::spread
