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
