#pragma once

#include "platform/win/controls/list_control.h"
#include "platform/win/windows/window_api.h"

/// What happens to the rows of a list view, with what its parent is told of it. Every notification
/// may end with the row, the list or the dialog gone.
namespace kovra::win {

inline constexpr UINT kUncheckedState = INDEXTOSTATEIMAGEMASK(1);
inline constexpr UINT kCheckedState = INDEXTOSTATEIMAGEMASK(2);

/// WM_NOTIFY with a record that begins with an NMHDR; the parent's answer.
template <typename Record>
LRESULT tellListParent(HWND list, UINT code, Record& record) {
  record.hdr = {list, static_cast<UINT_PTR>(GetDlgCtrlID(list)), code};
  return SendMessageW(GetParent(list), WM_NOTIFY, record.hdr.idFrom,
                      reinterpret_cast<LPARAM>(&record));
}

/// The list's record, as long as the list and this row of it are there; else null.
ListState* listWithRow(HWND list, int row);

/// Changes the masked bits of one row; the parent may refuse. False when there is no such row.
bool changeRowBits(HWND list, int row, UINT bits, UINT mask);
/// The same, and only one row keeps the focus and, with LVS_SINGLESEL, the selection.
bool setRowBits(HWND list, int row, UINT bits, UINT mask);
/// Takes the bit from every row but one (-1: from all).
void takeFromOtherRows(HWND list, int row, UINT bit);
/// The masked state of the item for one row, or for all (-1).
LRESULT setRowState(HWND list, int row, const LVITEMW& item);
/// Nothing happens without check boxes.
void toggleRowCheck(HWND list, int row);
void scrollToRow(HWND list, int row);
/// The user goes to a row: it is in sight, has the focus and alone is selected.
void goToRow(HWND list, int row);

// The messages for items, with their answers.
int insertRow(HWND list, ListState& state, const LVITEMW& item);
LRESULT setRow(HWND list, ListState& state, const LVITEMW& item);
LRESULT getRow(const ListState& state, LVITEMW& item);
LRESULT deleteRow(HWND list, int row);
LRESULT deleteAllRows(HWND list);
/// Copies a text into an item's buffer, cut to its size; the length copied.
LRESULT copyRowText(const std::wstring& text, const LVITEMW& item);

}  // namespace kovra::win
