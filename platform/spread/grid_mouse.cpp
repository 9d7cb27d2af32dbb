#include "platform/spread/grid_editor.h"
#include "platform/win/windows/window_api.h"

namespace kovra::spread {
namespace {

/// A header stands for its whole row or column.
SS_CELL meant(SS_CELL cell) {
  return {cell.col == 0 ? -1 : cell.col, cell.row == 0 ? -1 : cell.row};
}

/// The first cell of what is meant, which becomes active.
SS_CELL firstOf(SS_CELL cell, const GridLayout& layout) {
  return {cell.col > 0 ? cell.col : layout.leftColumn, cell.row > 0 ? cell.row : layout.topRow};
}

void press(HWND grid, POINT point, bool extend) {
  SetFocus(grid);
  GridState* state = gridOf(grid);
  if (state == nullptr) return;
  const auto cell = state->updated(grid).cellAt(point);
  if (!cell) return;
  const bool header = cell->col == 0 || cell->row == 0;
  if (!extend) state->selection.moveTo(firstOf(*cell, state->layout));
  if (extend || header) state->selection.extendTo(meant(*cell));
  state->dragging = true;
  SetCapture(grid);
  changed(grid);
}

void drag(HWND grid, POINT point) {
  GridState* state = gridOf(grid);
  if (!state->dragging) return;
  const auto cell = state->updated(grid).cellAt(point);
  if (!cell) return;
  const auto [col, row] = state->selection.active;
  const bool started = state->selection.block || cell->col != col || cell->row != row;
  if (!started) return;
  // A drag that began on a header goes on by whole rows or columns.
  SS_CELL to = meant(*cell);
  if (const auto& block = state->selection.block) {
    if (block->first.col < 0) to.col = -1;
    if (block->first.row < 0) to.row = -1;
  }
  state->selection.extendTo(to);
  changed(grid);
}

/// The right button takes the cell below it, unless that is selected already.
void pressRight(HWND grid, POINT point) {
  SetFocus(grid);
  GridState* state = gridOf(grid);
  const auto cell = state != nullptr ? state->updated(grid).cellAt(point) : std::nullopt;
  if (!cell) return;
  const auto& block = state->selection.block;
  const SS_CELL first = firstOf(*cell, state->layout);
  if (!block || !holds(*block, first)) goToCell(grid, first, false);
}

}  // namespace

void mouseMessage(HWND grid, UINT message, WPARAM held, POINT point) {
  switch (message) {
    case WM_LBUTTONDOWN:
      return press(grid, point, GetKeyState(VK_SHIFT) < 0);
    case WM_MOUSEMOVE:
      if ((held & MK_LBUTTON) != 0) drag(grid, point);
      return;
    case WM_LBUTTONUP:
      gridOf(grid)->dragging = false;
      if (GetCapture() == grid) ReleaseCapture();
      return;
    case WM_LBUTTONDBLCLK: {
      const auto cell = gridOf(grid)->updated(grid).cellAt(point);
      if (cell && cell->col > 0 && cell->row > 0) openEditor(grid);
      return;
    }
    default:
      return pressRight(grid, point);
  }
}

}  // namespace kovra::spread
