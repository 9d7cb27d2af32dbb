#include <algorithm>
#include <string>

#include "platform/mfc/frame.h"
#include "platform/mfc/wnd.h"
#include "platform/win/desktop/desktop.h"
#include "platform/win/dialogs/message_box.h"
#include "platform/win/windows/system_metrics.h"
#include "platform/win/windows/window.h"

void CWnd::GetWindowText(CString& text) const {
  text = kovra::win::windowText(m_hWnd).c_str();
}

int CWnd::GetDlgItemText(int id, CString& text) const {
  text = kovra::win::windowText(::GetDlgItem(m_hWnd, id)).c_str();
  return text.GetLength();
}

BOOL CWnd::ModifyStyle(DWORD remove, DWORD add, UINT /*flags*/) {
  const DWORD before = GetStyle();
  const DWORD after = (before & ~remove) | add;
  if (after == before) return FALSE;
  ::SetWindowLongPtrW(m_hWnd, GWL_STYLE, static_cast<LONG_PTR>(after));
  return TRUE;
}

void CWnd::MoveWindow(LPCRECT rect, BOOL repaint) {
  MoveWindow(rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top, repaint);
}

void CWnd::CenterWindow() {
  CRect own;
  CRect owner;
  CRect work;
  GetWindowRect(&own);
  ::GetWindowRect(::GetParent(m_hWnd), &owner);
  ::SystemParametersInfoW(SPI_GETWORKAREA, 0, static_cast<RECT*>(&work), 0);
  const CPoint middle = owner.IsRectEmpty() ? work.CenterPoint() : owner.CenterPoint();
  const LONG left = std::min(middle.x - own.Width() / 2, work.right - own.Width());
  const LONG top = std::min(middle.y - own.Height() / 2, work.bottom - own.Height());
  SetWindowPos(nullptr, std::max(left, work.left), std::max(top, work.top), 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

namespace {

/// Not through a pointer that takes the rectangle for two points: a compiler may take what is
/// written through it for something else.
void mapCorners(HWND from, HWND to, RECT& rect) {
  POINT corners[] = {{rect.left, rect.top}, {rect.right, rect.bottom}};
  ::MapWindowPoints(from, to, corners, 2);
  rect = {corners[0].x, corners[0].y, corners[1].x, corners[1].y};
}

}  // namespace

void CWnd::ScreenToClient(LPRECT rect) const {
  mapCorners(nullptr, m_hWnd, *rect);
}

void CWnd::ClientToScreen(LPRECT rect) const {
  mapCorners(m_hWnd, nullptr, *rect);
}

CWnd* CWnd::GetNextDlgTabItem(CWnd* control, BOOL previous) const {
  return FromHandle(
      ::GetNextDlgTabItem(m_hWnd, control != nullptr ? control->m_hWnd : nullptr, previous));
}

int CWnd::MessageBox(LPCWSTR text, LPCWSTR caption, UINT style) const {
  return ::MessageBoxW(m_hWnd, text, caption, style);
}

CWnd* AfxGetMainWnd() {
  static CMDIFrameWnd frame;
  if (frame.m_hWnd != kovra::win::frameWindow()) {
    frame.Detach();
    frame.Attach(kovra::win::frameWindow());
  }
  return &frame;
}
