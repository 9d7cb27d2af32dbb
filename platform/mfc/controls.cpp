#include "platform/mfc/controls.h"

#include <vector>

#include "platform/win/resources/icons.h"

BOOL CButton::Create(LPCWSTR caption, DWORD style, const RECT& rect, CWnd* parent, UINT id) {
  return CWnd::Create(L"BUTTON", caption, style, rect, parent, id);
}

HICON CButton::SetIcon(HICON icon) {
  return reinterpret_cast<HICON>(
      SendMessage(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon)));
}

HICON CButton::GetIcon() const {
  return reinterpret_cast<HICON>(SendMessage(BM_GETIMAGE, IMAGE_ICON));
}

BOOL CButton::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
  if (message != WM_DRAWITEM) return CWnd::OnChildNotify(message, wParam, lParam, result);
  DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
  return TRUE;
}

BOOL CEdit::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
  return CWnd::Create(L"EDIT", nullptr, style, rect, parent, id);
}

void CEdit::GetSel(int& from, int& to) const {
  DWORD start = 0;
  DWORD end = 0;
  SendMessage(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
  from = static_cast<int>(start);
  to = static_cast<int>(end);
}

BOOL CComboBox::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
  return CWnd::Create(L"COMBOBOX", nullptr, style, rect, parent, id);
}

void CComboBox::GetLBText(int index, CString& text) const {
  text.Empty();
  const int length = GetLBTextLen(index);
  if (length <= 0) return;
  std::vector<wchar_t> buffer(static_cast<std::size_t>(length) + 1);
  GetLBText(index, buffer.data());
  text = buffer.data();
}

DWORD_PTR CComboBox::GetItemData(int index) const {
  return static_cast<DWORD_PTR>(
      SendMessage(CB_GETITEMDATA, static_cast<WPARAM>(static_cast<LONG_PTR>(index))));
}

int CComboBox::SetItemData(int index, DWORD_PTR data) {
  return static_cast<int>(SendMessage(CB_SETITEMDATA,
                                      static_cast<WPARAM>(static_cast<LONG_PTR>(index)),
                                      static_cast<LPARAM>(data)));
}

BOOL CComboBox::SetEditSel(int from, int to) {
  return SendMessage(CB_SETEDITSEL, 0,
                     MAKELPARAM(static_cast<UINT>(from), static_cast<UINT>(to))) == TRUE;
}

BOOL CTabCtrl::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
  return CWnd::Create(L"SysTabControl32", nullptr, style, rect, parent, id);
}

LONG CTabCtrl::InsertItem(int index, LPCWSTR text) {
  TCITEM item{};
  item.mask = TCIF_TEXT;
  item.pszText = const_cast<LPWSTR>(text);
  return InsertItem(index, &item);
}

BOOL CStatic::Create(LPCWSTR text, DWORD style, const RECT& rect, CWnd* parent, UINT id) {
  return CWnd::Create(L"STATIC", text, style, rect, parent, id);
}

HICON CStatic::SetIcon(HICON icon) {
  return reinterpret_cast<HICON>(SendMessage(STM_SETICON, reinterpret_cast<WPARAM>(icon)));
}

HICON CStatic::GetIcon() const {
  return reinterpret_cast<HICON>(SendMessage(STM_GETICON));
}

namespace {

template <typename T>
LPARAM address(T* record) {
  return reinterpret_cast<LPARAM>(record);
}

}  // namespace

BOOL CListCtrl::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
  return CWnd::Create(WC_LISTVIEW, nullptr, style, rect, parent, id);
}

DWORD CListCtrl::SetExtendedStyle(DWORD style) {
  return static_cast<DWORD>(SendMessage(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, style));
}

int CListCtrl::InsertColumn(int index, const LVCOLUMNW* column) {
  return static_cast<int>(SendMessage(LVM_INSERTCOLUMNW, wide(index), address(column)));
}

int CListCtrl::InsertColumn(int index, LPCWSTR heading, int format, int width, int subItem) {
  LVCOLUMNW column{};
  column.mask =
      LVCF_TEXT | LVCF_FMT | (width != -1 ? LVCF_WIDTH : 0) | (subItem != -1 ? LVCF_SUBITEM : 0);
  column.pszText = const_cast<LPWSTR>(heading);
  column.fmt = format;
  column.cx = width;
  column.iSubItem = subItem;
  return InsertColumn(index, &column);
}

BOOL CListCtrl::SetColumnWidth(int column, int width) {
  return SendMessage(LVM_SETCOLUMNWIDTH, wide(column), width) != 0;
}

int CListCtrl::GetColumnWidth(int column) const {
  return static_cast<int>(SendMessage(LVM_GETCOLUMNWIDTH, wide(column)));
}

int CListCtrl::InsertItem(const LVITEMW* item) {
  return static_cast<int>(SendMessage(LVM_INSERTITEMW, 0, address(item)));
}

int CListCtrl::InsertItem(int index, LPCWSTR text) {
  LVITEMW item{};
  item.mask = LVIF_TEXT;
  item.iItem = index;
  item.pszText = const_cast<LPWSTR>(text);
  return InsertItem(&item);
}

BOOL CListCtrl::SetItem(const LVITEMW* item) {
  return SendMessage(LVM_SETITEMW, 0, address(item)) != 0;
}

BOOL CListCtrl::GetItem(LVITEMW* item) const {
  return SendMessage(LVM_GETITEMW, 0, address(item)) != 0;
}

BOOL CListCtrl::SetItemText(int row, int subItem, LPCWSTR text) {
  LVITEMW item{};
  item.iSubItem = subItem;
  item.pszText = const_cast<LPWSTR>(text);
  return SendMessage(LVM_SETITEMTEXTW, wide(row), address(&item)) != 0;
}

int CListCtrl::GetItemText(int row, int subItem, LPWSTR buffer, int capacity) const {
  LVITEMW item{};
  item.iSubItem = subItem;
  item.pszText = buffer;
  item.cchTextMax = capacity;
  return static_cast<int>(SendMessage(LVM_GETITEMTEXTW, wide(row), address(&item)));
}

CString CListCtrl::GetItemText(int row, int subItem) const {
  // The length isn't told beforehand: a buffer that is filled to its end may have been too short.
  std::vector<wchar_t> buffer(128);
  while (true) {
    const auto capacity = static_cast<int>(buffer.size());
    if (GetItemText(row, subItem, buffer.data(), capacity) < capacity - 1) return buffer.data();
    buffer.resize(buffer.size() * 2);
  }
}

BOOL CListCtrl::SetItemState(int row, UINT state, UINT mask) {
  LVITEMW item{};
  item.state = state;
  item.stateMask = mask;
  return SendMessage(LVM_SETITEMSTATE, wide(row), address(&item)) != 0;
}

DWORD_PTR CListCtrl::GetItemData(int row) const {
  LVITEMW item{};
  item.mask = LVIF_PARAM;
  item.iItem = row;
  return GetItem(&item) ? static_cast<DWORD_PTR>(item.lParam) : 0;
}

BOOL CListCtrl::SetItemData(int row, DWORD_PTR data) {
  LVITEMW item{};
  item.mask = LVIF_PARAM;
  item.iItem = row;
  item.lParam = static_cast<LPARAM>(data);
  return SetItem(&item);
}

BOOL CListCtrl::GetCheck(int row) const {
  return GetItemState(row, LVIS_STATEIMAGEMASK) == INDEXTOSTATEIMAGEMASK(2) ? TRUE : FALSE;
}

BOOL CListCtrl::SetCheck(int row, BOOL check) {
  return SetItemState(row, INDEXTOSTATEIMAGEMASK(check ? 2 : 1), LVIS_STATEIMAGEMASK);
}

int CListCtrl::HitTest(LVHITTESTINFO* info) const {
  return static_cast<int>(SendMessage(LVM_HITTEST, 0, address(info)));
}

int CListCtrl::HitTest(CPoint point, UINT* flags) const {
  LVHITTESTINFO info{};
  info.pt = point;
  const int row = HitTest(&info);
  if (flags != nullptr) *flags = info.flags;
  return row;
}

BOOL CListCtrl::GetItemRect(int row, LPRECT rect, UINT part) const {
  rect->left = static_cast<LONG>(part);
  return SendMessage(LVM_GETITEMRECT, wide(row), address(rect)) != 0;
}

BOOL CSpinButtonCtrl::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
  return CWnd::Create(UPDOWN_CLASSW, nullptr, style, rect, parent, id);
}

void CSpinButtonCtrl::SetRange(short lower, short upper) {
  SendMessage(UDM_SETRANGE, 0, MAKELPARAM(static_cast<UINT>(upper), static_cast<UINT>(lower)));
}

void CSpinButtonCtrl::SetRange32(int lower, int upper) {
  SendMessage(UDM_SETRANGE32, static_cast<WPARAM>(static_cast<LONG_PTR>(lower)), upper);
}

void CSpinButtonCtrl::GetRange(int& lower, int& upper) const {
  SendMessage(UDM_GETRANGE32, reinterpret_cast<WPARAM>(&lower), reinterpret_cast<LPARAM>(&upper));
}

CWnd* CSpinButtonCtrl::SetBuddy(CWnd* buddy) {
  const HWND window = buddy != nullptr ? buddy->m_hWnd : nullptr;
  return FromHandle(
      reinterpret_cast<HWND>(SendMessage(UDM_SETBUDDY, reinterpret_cast<WPARAM>(window))));
}

CWnd* CSpinButtonCtrl::GetBuddy() const {
  return FromHandle(reinterpret_cast<HWND>(SendMessage(UDM_GETBUDDY)));
}
