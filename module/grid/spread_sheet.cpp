#include "module/grid/spread_sheet.h"

namespace kovra {
namespace {

constexpr const ACHAR* kGridClass = L"fpUSpread80";
constexpr DWORD kGridStyle = 0x1000 | WS_BORDER;

/// The sibling just before a control in its dialog's order; null for the first.
CWnd* siblingBefore(const CWnd& parent, const CWnd& control) {
  CWnd* before = nullptr;
  CWnd* each = parent.GetWindow(GW_CHILD);
  for (; each != nullptr && each->m_hWnd != control.m_hWnd; each = each->GetNextWindow()) {
    before = each;
  }
  return before;
}

int firstColumn(int withHeader) {
  return withHeader == 0 ? 1 : 0;
}

BOOL asFlag(bool on) {
  return on ? TRUE : FALSE;
}

}  // namespace

WNDPROC* TSpread::GetSuperWndProcAddr() {
  static WNDPROC procedure = nullptr;
  return &procedure;
}

void TSpread::PreSubclassWindow() {
  CWnd::PreSubclassWindow();
  *GetSuperWndProcAddr() = reinterpret_cast<WNDPROC>(::GetWindowLongPtrW(m_hWnd, GWLP_WNDPROC));
}

int CSpreadSheet::ReplaceDlgItem(CDialog* parent, UINT id) {
  GridOwner = parent;
  CWnd* control = parent->GetDlgItem(static_cast<int>(id));
  if (control == nullptr) return 0;
  const CWnd* before = siblingBefore(*parent, *control);
  CRect place;
  control->GetWindowRect(&place);
  parent->ScreenToClient(&place);
  const DWORD style = control->GetStyle() | kGridStyle;
  control->DestroyWindow();
  if (!Create(kGridClass, nullptr, style, place, parent, id)) return 0;
  constexpr UINT kOrderAlone = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;
  SetWindowPos(before, 0, 0, 0, 0, kOrderAlone);
  if ((GetStyle() & WS_TABSTOP) == 0) ModifyStyle(0, WS_TABSTOP);
  SSSetFont(m_hWnd, -1, -1, parent->GetFont(), 0);
  SSSetBool(m_hWnd, SS_BOOL_TAB_LEAVES, TRUE);
  return 1;
}

CString CSpreadSheet::GetCellText() const {
  CString text;
  const LONG length = SSGetDataLen(m_hWnd, GridCol, GridRow);
  if (length <= 0) return text;
  SSGetData(m_hWnd, GridCol, GridRow, text.GetBuffer(length));
  text.ReleaseBuffer();
  return text;
}

void CSpreadSheet::SetCellText(const ACHAR* text) {
  SSSetData(m_hWnd, GridCol, GridRow, text);
}

bool CSpreadSheet::IsCellLocked() const {
  return SSGetLock(m_hWnd, GridCol, GridRow) != FALSE;
}

int CSpreadSheet::GetActiveCol() const {
  LONG col = -1;
  return SSGetActiveCell(m_hWnd, &col, nullptr) ? col : -1;
}

int CSpreadSheet::GetActiveRow() const {
  LONG row = -1;
  return SSGetActiveCell(m_hWnd, nullptr, &row) ? row : -1;
}

bool CSpreadSheet::GetBlock(SS_CELL* first, SS_CELL* last) const {
  SS_CELL from{};
  SS_CELL to{};
  if (!SSGetSelectBlock(m_hWnd, &from, &to)) {
    if (!SSGetActiveCell(m_hWnd, &from.col, &from.row)) return false;
    to = from;
  }
  if (first != nullptr) *first = from;
  if (last != nullptr) *last = to;
  return true;
}

CString CSpreadSheet::GetEditSelection() const {
  const HGLOBAL memory = SSGetSelText(m_hWnd);
  if (memory == nullptr) return {};
  const CString text(static_cast<const ACHAR*>(GlobalLock(memory)));
  GlobalUnlock(memory);
  GlobalFree(memory);
  return text;
}

void CSpreadSheet::SetGridRedraw(bool redraw) {
  SSSetBool(m_hWnd, SS_BOOL_REDRAW, asFlag(redraw));
}

bool CSpreadSheet::GetEditFlag() const {
  return SSGetBool(m_hWnd, SS_BOOL_EDIT_CLIPBOARD) != FALSE;
}

void CSpreadSheet::SetEditFlag(bool on) {
  SSSetBool(m_hWnd, SS_BOOL_EDIT_CLIPBOARD, asFlag(on));
}

CString CSpreadSheet::GetRowText(int row, int withHeader) {
  CString text;
  SetRow(row);
  const int last = SSGetMaxCols(m_hWnd);
  for (int col = firstColumn(withHeader); col <= last; ++col) {
    SetCol(col);
    if (col > firstColumn(withHeader)) text += L'\n';
    text += GetCellText();
  }
  return text;
}

int CSpreadSheet::SetRowText(int row, const CString& text, int withHeader) {
  SetRow(row);
  const int last = SSGetMaxCols(m_hWnd);
  int start = 0;
  for (int col = firstColumn(withHeader); col <= last; ++col) {
    SetCol(col);
    const int feed = text.Find(L'\n', start);
    const int end = feed < 0 ? text.GetLength() : feed;
    SetCellText(text.Mid(start, end - start));
    start = feed < 0 ? text.GetLength() : feed + 1;
  }
  return 1;
}

}  // namespace kovra
