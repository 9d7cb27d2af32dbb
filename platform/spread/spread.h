#pragma once

#include "platform/win/base/windows_types.h"

/// The functions on grid windows, windows of the class "fpUSpread80". The column stands before the
/// row in all of them; both count from 1, 0 is the header, and -1 means all columns or all rows
/// where that is said. A handle that isn't a grid's makes every function fail: FALSE, null, 0.
/// docs/windows.md says what the options mean and what a grid tells.

/// A cell; in a block -1 is a whole row or column.
struct SS_CELL {
  LONG col;
  LONG row;
};

// Kinds of cells.
inline constexpr SHORT SS_TYPE_TEXT = 1;
inline constexpr SHORT SS_TYPE_NUMBER = 15;

/// What a cell holds.
struct SS_CELLTYPE {
  SHORT type;    ///< SS_TYPE_...
  SHORT digits;  ///< of a number behind its point
  DWORD style;   ///< of a number, SS_NUMBER_...
  double min;    ///< least and greatest number
  double max;
};

// Styles of numbers.
inline constexpr DWORD SS_NUMBER_LEADING_ZERO = 0x010000;  ///< "0.70" rather than ".70"
inline constexpr DWORD SS_NUMBER_NEGATIVE = 0x400000;      ///< may have a minus sign

// Options of SSSetBool.
inline constexpr SHORT SS_BOOL_COLUMN_HEADERS = 3;
inline constexpr SHORT SS_BOOL_ROW_HEADERS = 4;
inline constexpr SHORT SS_BOOL_REDRAW = 8;
inline constexpr SHORT SS_BOOL_USER_RESIZES = 10;
inline constexpr SHORT SS_BOOL_TAB_LEAVES = 21;
inline constexpr SHORT SS_BOOL_EDIT_SELECTS = 22;
inline constexpr SHORT SS_BOOL_EDIT_CLIPBOARD = 25;
inline constexpr SHORT SS_BOOL_GROWS = 33;

// What Enter does (SSSetEditEnterAction).
inline constexpr SHORT SS_ENTER_STAYS = 0;
inline constexpr SHORT SS_ENTER_NEXT = 5;

// What a grid tells, sent to the grid window itself. The second parameter points to an SS_CELL; of
// SSN_KEY its low word is the key, with the flags below.
inline constexpr UINT SSN_EDIT_OPENED = 0x502;
inline constexpr UINT SSN_EDIT_CLOSED = 0x503;
inline constexpr UINT SSN_DATA_CHANGED = 0x508;
inline constexpr UINT SSN_KEY = 0x50B;
inline constexpr UINT SSN_CONTEXT_MENU = 0x50D;
inline constexpr LPARAM SS_KEY_SHIFT = 0x10000;
inline constexpr LPARAM SS_KEY_CONTROL = 0x20000;

/// The font of the cells named (-1: all); a grid has one font. The last parameter is reserved.
BOOL SSSetFont(HWND grid, LONG col, LONG row, HFONT font, BOOL reserved);
BOOL SSSetBool(HWND grid, SHORT option, BOOL value);
BOOL SSGetBool(HWND grid, SHORT option);

// The active cell and the block. Pointers may be null.
BOOL SSGetActiveCell(HWND grid, LONG* col, LONG* row);
/// Makes a cell active and drops the block; an open editor takes its text into its cell first.
BOOL SSSetActiveCell(HWND grid, LONG col, LONG row);
/// FALSE when no block is selected: the active cell alone is none.
BOOL SSGetSelectBlock(HWND grid, SS_CELL* first, SS_CELL* last);
BOOL SSSetSelectBlock(HWND grid, const SS_CELL* first, const SS_CELL* last);

// How much there is now. A grid grows: a text behind the last row or column makes them, and with
// the option SS_BOOL_GROWS a text in the last row brings another row behind it.
LONG SSGetMaxCols(HWND grid);
LONG SSGetMaxRows(HWND grid);
/// What lies in columns beyond is lost.
BOOL SSSetMaxCols(HWND grid, LONG count);
/// The rows below move up.
BOOL SSDelRow(HWND grid, LONG row);

// Cells. Their texts are what was put in: a number is shown with its digits, and written so only
// when the user edits it.
BOOL SSGetCellType(HWND grid, LONG col, LONG row, SS_CELLTYPE* type);
BOOL SSSetCellType(HWND grid, LONG col, LONG row, const SS_CELLTYPE* type);
/// Fills `type` for numbers with these digits in this range.
BOOL SSSetTypeNumber(HWND grid, SS_CELLTYPE* type, DWORD style, SHORT digits, double min,
                     double max);
BOOL SSGetLock(HWND grid, LONG col, LONG row);
BOOL SSSetLock(HWND grid, LONG col, LONG row, BOOL lock);
/// Characters without the null at the end.
LONG SSGetDataLen(HWND grid, LONG col, LONG row);
/// `buffer` takes SSGetDataLen() characters and a null.
BOOL SSGetData(HWND grid, LONG col, LONG row, LPWSTR buffer);
/// Also into a locked cell; nothing is told.
BOOL SSSetData(HWND grid, LONG col, LONG row, LPCWSTR text);

// The editor in the active cell.
BOOL SSGetEditMode(HWND grid);
/// FALSE when the cell is locked. 0 closes the editor, which takes its text into the cell.
BOOL SSSetEditMode(HWND grid, BOOL edit);
BOOL SSSetEditEnterAction(HWND grid, SHORT action);
/// The selected text of the open editor, for the caller to free with GlobalFree; null if there is
/// none.
HGLOBAL SSGetSelText(HWND grid);
/// Puts a text in the place of the editor's selection, as if it were pasted; FALSE when the cell
/// can't take it.
BOOL SSReplaceSel(HWND grid, LPCWSTR text);

/// The block, else the active cell, as text: tabs between cells, a line feed behind each row.
BOOL SSClipboardCopy(HWND grid);
/// The same, and the cells that aren't locked become empty.
BOOL SSClipboardCut(HWND grid);

// Sizes in pixels.
/// The part of the client area that shows cells.
BOOL SSGetClientRect(HWND grid, RECT* rect);
BOOL SSSetColWidthInPixels(HWND grid, LONG col, LONG width);
