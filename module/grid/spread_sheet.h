#pragma once

#include "module/frame/seam.h"

namespace kovra {

/// A grid window as a window of the platform's classes.
class TSpread : public CWnd {
 public:
  /// Where the window procedure of all grids is kept, to which the messages go that their objects
  /// don't handle; null until the first grid is tied to its object.
  WNDPROC* GetSuperWndProcAddr();

 protected:
  void PreSubclassWindow() override;
};

/// A grid with a current cell: a pair of numbers that the operations on single cells act on. It is
/// independent of the grid's active cell, which the user moves.
class CSpreadSheet : public TSpread {
 public:
  /// Puts a new grid window in the place of a control that the template reserves for it: with the
  /// same number, place and style, and at its turn in the tab order.
  /// @return 0, with the dialog left without this grid, when there is no such control or the window
  ///         can't be made
  int ReplaceDlgItem(CDialog* parent, UINT id);

  // The current cell. Rows and columns count from 1; column 0 is the row header.
  void SetRow(int row) { GridRow = row; }
  void SetCol(int col) { GridCol = col; }
  CString GetCellText() const;
  void SetCellText(const ACHAR* text);
  bool IsCellLocked() const;

  /// -1 when the grid has no active cell.
  int GetActiveCol() const;
  int GetActiveRow() const;
  /// The selected block, and without one the active cell as a block of one; in either corner -1
  /// stands for a whole row or column. Pointers may be null.
  /// @return false, with nothing filled in, when there is no active cell either
  bool GetBlock(SS_CELL* first, SS_CELL* last) const;

  /// The selected text of the open cell editor; empty without one.
  CString GetEditSelection() const;
  void SetGridRedraw(bool redraw);
  /// Whether the keys of the clipboard are the cell editor's own.
  bool GetEditFlag() const;
  void SetEditFlag(bool on);

  /// The texts of a row with line feeds between them; `withHeader` begins with column 0. The row
  /// and its last column are current afterwards.
  CString GetRowText(int row, int withHeader);
  /// Puts such a text into the cells of a row; cells that it has no field for become empty.
  /// @return 1
  int SetRowText(int row, const CString& text, int withHeader);

 private:
  int GridRow = -1;
  int GridCol = -1;

 protected:
  CDialog* GridOwner = nullptr;  ///< the dialog that the grid is in
};

/// Keeps a grid from painting while many of its cells change.
class GridRedrawOff {
 public:
  explicit GridRedrawOff(CSpreadSheet& grid) : grid_(grid) { grid_.SetGridRedraw(false); }
  ~GridRedrawOff() { grid_.SetGridRedraw(true); }
  GridRedrawOff(const GridRedrawOff&) = delete;
  GridRedrawOff& operator=(const GridRedrawOff&) = delete;

 private:
  CSpreadSheet& grid_;
};

}  // namespace kovra
