#include "platform/spread/grid_state.h"

namespace kovra::spread {
namespace {

Block selectedCells(const GridState& grid) {
  const SS_CELL active = grid.selection.active;
  const Block block = grid.selection.block.value_or(Block{active, active});
  return bounded(block, {grid.cells.columns(), grid.cells.rows(), 0, 1});
}

}  // namespace

std::wstring selectedText(const GridState& grid) {
  const Block block = selectedCells(grid);
  std::wstring text;
  for (LONG row = block.first.row; row <= block.last.row; ++row) {
    for (LONG col = block.first.col; col <= block.last.col; ++col) {
      if (col > block.first.col) text += L'\t';
      text += grid.cells.text(col, row);
    }
    text += L'\n';
  }
  return text;
}

void clearSelected(GridState& grid) {
  const Block block = selectedCells(grid);
  for (LONG row = block.first.row; row <= block.last.row; ++row)
    for (LONG col = block.first.col; col <= block.last.col; ++col)
      if (!grid.locked({col, row})) grid.cells.setText(col, row, {});
}

}  // namespace kovra::spread
