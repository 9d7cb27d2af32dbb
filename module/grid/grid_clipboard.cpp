// Between a grid and the clipboard.
#include <algorithm>
#include <optional>
#include <string>

#include "module/grid/kovra_spread_sheet.h"

namespace kovra {
namespace {

/// The clipboard, closed again at the end of the scope.
class OpenedClipboard {
 public:
  OpenedClipboard() : open_(OpenClipboard(nullptr)) {}
  ~OpenedClipboard() {
    if (open_) CloseClipboard();
  }
  OpenedClipboard(const OpenedClipboard&) = delete;
  OpenedClipboard& operator=(const OpenedClipboard&) = delete;
  explicit operator bool() const { return open_ != FALSE; }

 private:
  BOOL open_;
};

/// Up to its null; nothing without a text. Memory of others needn't have a null at its end.
std::optional<std::wstring> clipboardText() {
  const OpenedClipboard clipboard;
  if (!clipboard) return std::nullopt;
  const HANDLE memory = GetClipboardData(CF_UNICODETEXT);
  if (memory == nullptr) return std::nullopt;
  const auto* const text = static_cast<const ACHAR*>(GlobalLock(memory));
  if (text == nullptr) return std::nullopt;
  const ACHAR* const end = text + GlobalSize(memory) / sizeof(ACHAR);
  std::wstring copied(text, std::find(text, end, L'\0'));
  GlobalUnlock(memory);
  return copied;
}

bool toClipboard(const CString& text) {
  const OpenedClipboard clipboard;
  if (!clipboard) return false;
  EmptyClipboard();
  const std::size_t length = static_cast<std::size_t>(text.GetLength()) + 1;
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, length * sizeof(ACHAR));
  auto* const target = static_cast<ACHAR*>(memory != nullptr ? GlobalLock(memory) : nullptr);
  if (target == nullptr) return false;
  std::copy_n(text.GetString(), length, target);
  GlobalUnlock(memory);
  SetClipboardData(CF_UNICODETEXT, memory);
  return true;
}

}  // namespace

void KovraSpreadSheet::takeClipboardKeys() {
  if (GetEditFlag()) SetEditFlag(false);
}

void KovraSpreadSheet::NormalizeBlock(SS_CELL& first, SS_CELL& last) const {
  if (first.col == -1) {
    first.col = 1;
    last.col = SSGetMaxCols(m_hWnd);
  }
  if (first.row == -1) {
    first.row = 1;
    last.row = SSGetMaxRows(m_hWnd);
  }
}

bool KovraSpreadSheet::CopyEditSelection() {
  const CString text = GetEditSelection();
  return !text.IsEmpty() && toClipboard(text);
}

bool KovraSpreadSheet::blockToClipboard(BOOL (*operation)(HWND)) {
  const GridRedrawOff off(*this);
  SS_CELL first{};
  SS_CELL last{};
  if (!GetBlock(&first, &last)) return false;
  SS_CELL firstCell = first;
  SS_CELL lastCell = last;
  NormalizeBlock(firstCell, lastCell);
  SSSetSelectBlock(m_hWnd, &firstCell, &lastCell);
  operation(m_hWnd);
  SSSetSelectBlock(m_hWnd, &first, &last);
  return true;
}

void KovraSpreadSheet::GridCopy() {
  takeClipboardKeys();
  if (isEditing()) {
    CopyEditSelection();
  } else {
    blockToClipboard(SSClipboardCopy);
  }
}

void KovraSpreadSheet::GridCut() {
  takeClipboardKeys();
  if (isEditing()) {
    if (CopyEditSelection()) SSReplaceSel(m_hWnd, L"");
  } else if (!blockToClipboard(SSClipboardCut)) {
    return;
  }
  MarkGridModified();
}

void KovraSpreadSheet::GridClear() {
  MarkGridModified();
  if (isEditing()) return;
  const GridRedrawOff off(*this);
  SS_CELL first{};
  SS_CELL last{};
  if (!GetBlock(&first, &last)) return;
  NormalizeBlock(first, last);
  for (LONG row = first.row; row <= last.row; ++row) {
    SetRow(row);
    for (LONG col = first.col; col <= last.col; ++col) {
      SetCol(col);
      if (!IsCellLocked()) SetCellText(L"");
    }
  }
}

void KovraSpreadSheet::GridPaste() {
  takeClipboardKeys();
  const std::optional<std::wstring> text = clipboardText();
  if (!text) return;
  const ClipTable table(text->c_str());
  if (isEditing()) {
    if (!table.IsOneCell()) return;
    SSReplaceSel(m_hWnd, table.WholeFirstCell());
  } else {
    const GridRedrawOff off(*this);
    SS_CELL first{};
    SS_CELL last{};
    if (!GetBlock(&first, &last)) return;
    NormalizeBlock(first, last);
    fillBlock(first, last, table);
  }
  MarkGridModified();
}

/// A block of one column or row takes the whole width or height of the table; any other one is
/// filled with it again and again. So a row or column of texts that is as long as the block goes
/// into each of its rows or columns, and a single text into each of its cells.
void KovraSpreadSheet::fillBlock(const SS_CELL& first, SS_CELL last, const ClipTable& table) {
  if (last.col == first.col) last.col = first.col + table.Columns() - 1;
  if (last.row == first.row) last.row = first.row + table.Rows() - 1;
  // The grid may grow while it is filled, so its end is asked for anew.
  for (LONG row = first.row; row <= last.row && row <= SSGetMaxRows(m_hWnd); ++row) {
    SetRow(row);
    const int tableRow = (row - first.row) % table.Rows();
    for (LONG col = first.col; col <= last.col && col <= SSGetMaxCols(m_hWnd); ++col) {
      SetCol(col);
      const int tableCol = (col - first.col) % table.Columns();
      if (!IsCellLocked()) SetCellText(table.Cell(tableRow, tableCol));
    }
  }
}

}  // namespace kovra
