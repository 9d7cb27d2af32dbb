#include "platform/spread/grid_state.h"

#include "platform/win/windows/window_api.h"

namespace kovra::spread {

GridState::GridState() {
  for (const SHORT on : {SS_BOOL_COLUMN_HEADERS, SS_BOOL_ROW_HEADERS, SS_BOOL_REDRAW,
                         SS_BOOL_USER_RESIZES, SS_BOOL_EDIT_CLIPBOARD})
    setOption(on, true);
}

bool GridState::option(SHORT index) const {
  return index >= 0 && index < kOptions && options_[static_cast<std::size_t>(index)];
}

bool GridState::setOption(SHORT index, bool on) {
  if (index < 0 || index >= kOptions) return false;
  options_.set(static_cast<std::size_t>(index), on);
  return true;
}

Extent GridState::extent() const {
  return {cells.columns(), cells.rows(), cells.lastFilledRow(), layout.pageRows()};
}

GridLayout& GridState::updated(HWND grid) {
  RECT client{};
  GetClientRect(grid, &client);
  layout.client = {client.right, client.bottom};
  layout.columnHeaders = option(SS_BOOL_COLUMN_HEADERS);
  layout.rowHeaders = option(SS_BOOL_ROW_HEADERS);
  layout.columns = cells.columns();
  layout.rows = cells.rows();
  layout.topRow = std::min(layout.topRow, std::max<LONG>(1, layout.rows));
  layout.leftColumn = std::min(layout.leftColumn, std::max<LONG>(1, layout.columns));
  return layout;
}

bool GridState::setText(SS_CELL cell, std::wstring_view text) {
  if (!cells.setText(cell.col, cell.row, text)) return false;
  if (option(SS_BOOL_GROWS) && cell.row == cells.rows()) cells.addRow();
  return true;
}

std::optional<std::pair<win::TableState::Cell, win::TableState::Cell>> GridState::selectedBlock()
    const {
  if (!selection.block) return std::nullopt;
  const auto& [first, last] = *selection.block;
  return std::pair{Cell{first.col, first.row}, Cell{last.col, last.row}};
}

std::vector<win::TableState::FilledCell> GridState::filledCells() const {
  std::vector<FilledCell> filled;
  for (const SS_CELL& cell : cells.filled())
    filled.push_back(
        {{cell.col, cell.row}, cells.text(cell.col, cell.row), cells.shown(cell.col, cell.row)});
  return filled;
}

void GridState::scrollTo(HWND grid, Cell cell) {
  updated(grid).scrollTo({cell.column, cell.row});
  changed(grid);
}

GridState* gridOf(HWND grid) {
  return win::stateOf<GridState>(grid);
}

bool tellActive(HWND grid, UINT message) {
  const GridState* state = gridOf(grid);
  if (state == nullptr) return false;
  SS_CELL cell = state->selection.active;
  SendMessageW(grid, message, static_cast<WPARAM>(GetDlgCtrlID(grid)),
               reinterpret_cast<LPARAM>(&cell));
  return gridOf(grid) != nullptr;
}

void changed(HWND grid) {
  const GridState* state = gridOf(grid);
  if (state != nullptr && state->option(SS_BOOL_REDRAW))
    win::tellObservers(grid, win::Change::content);
}

void goToCell(HWND grid, SS_CELL cell, bool extend) {
  GridState* state = gridOf(grid);
  if (state == nullptr) return;
  if (extend) {
    state->selection.extendTo(cell);
  } else {
    state->selection.moveTo(cell);
  }
  state->updated(grid).scrollTo(cell);
  changed(grid);
}

}  // namespace kovra::spread
