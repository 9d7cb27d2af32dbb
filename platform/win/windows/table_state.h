#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/win/windows/window.h"

namespace kovra::win {

/// What a table of cells keeps beside the fields of a window, as far as a user sees it and gets at
/// it. Columns and rows count from 1; 0 is a header, -1 a whole row or column.
class TableState : public WindowState {
 public:
  struct Cell {
    int column = 0;
    int row = 0;
  };
  struct FilledCell {
    Cell place;
    std::wstring text;   ///< what it holds
    std::wstring shown;  ///< what is seen of it
  };

  const char* kind(const Window& /*window*/) const override { return "grid"; }
  /// How many columns and rows there are now.
  virtual Cell size() const = 0;
  virtual Cell activeCell() const = 0;
  /// First and last cell; nothing when no block is selected.
  virtual std::optional<std::pair<Cell, Cell>> selectedBlock() const = 0;
  /// Row by row.
  virtual std::vector<FilledCell> filledCells() const = 0;
  virtual bool isLocked(Cell cell) const = 0;
  /// The field in the active cell; null when none is open.
  virtual HWND openEditor() const = 0;
  /// Scrolls until the cell can be seen.
  virtual void scrollTo(HWND table, Cell cell) = 0;
  /// The place of a cell in sight, or of a header, in the client area; empty for others.
  virtual RECT placeOf(Cell cell) const = 0;
};

}  // namespace kovra::win
