#pragma once

#include <bitset>

#include "platform/spread/grid_block.h"
#include "platform/spread/grid_cells.h"
#include "platform/spread/grid_layout.h"
#include "platform/win/windows/table_state.h"

namespace kovra::spread {

/// What a grid keeps beside the fields of a window.
class GridState : public win::TableState {
 public:
  GridState();

  GridCells cells;
  Selection selection;
  GridLayout layout;  ///< its counts follow the cells in updated()
  SHORT enterAction = SS_ENTER_STAYS;
  HWND editor = nullptr;
  std::wstring editorStart;  ///< what the editor showed when it opened
  bool dragging = false;

  bool option(SHORT index) const;
  bool setOption(SHORT index, bool on);

  Extent extent() const;
  /// The layout with the size and options of now.
  GridLayout& updated(HWND grid);
  /// Puts a text in; a grid with the option to grow gets a row behind its last one.
  bool setText(SS_CELL cell, std::wstring_view text);
  bool locked(SS_CELL cell) const { return cells.locks.at(cell.col, cell.row, false); }

  Cell size() const override { return {cells.columns(), cells.rows()}; }
  Cell activeCell() const override { return {selection.active.col, selection.active.row}; }
  std::optional<std::pair<Cell, Cell>> selectedBlock() const override;
  std::vector<FilledCell> filledCells() const override;
  bool isLocked(Cell cell) const override { return locked({cell.column, cell.row}); }
  HWND openEditor() const override { return editor; }
  void scrollTo(HWND grid, Cell cell) override;
  RECT placeOf(Cell cell) const override { return layout.placeOf(cell.column, cell.row); }

 private:
  static constexpr SHORT kOptions = 64;
  std::bitset<kOptions> options_;
};

/// Null when the window isn't a grid.
GridState* gridOf(HWND grid);

/// Tells the grid of something about its active cell; false when that has ended the window.
bool tellActive(HWND grid, UINT message);
/// The grid is to be painted anew, unless its redraw is off.
void changed(HWND grid);

/// Makes a cell active, or with `extend` the other corner of the block, and shows it.
void goToCell(HWND grid, SS_CELL cell, bool extend);

// Keys, mouse, painting: what the window procedure gets.
/// True when the key meant something to the grid; `inEditor`: it was pressed in the open editor.
bool keyPressed(HWND grid, WPARAM key, bool inEditor);
void characterTyped(HWND grid, wchar_t character);
/// What keys the grid or its editor want of the dialog; `message` may be null.
LRESULT dialogCode(HWND grid, const MSG* message, bool inEditor);
void mouseMessage(HWND grid, UINT message, WPARAM held, POINT point);
void paint(HWND grid);

/// The block, else the active cell, as a text for the clipboard.
std::wstring selectedText(const GridState& grid);
/// The cells of the block, else the active one, that can be cleared become empty.
void clearSelected(GridState& grid);

}  // namespace kovra::spread
