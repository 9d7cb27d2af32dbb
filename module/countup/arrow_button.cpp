#include "module/countup/arrow_button.h"

#include "module/countup/visual_styles.h"

namespace kovra {
namespace {

// Bits of the replaced control's style, and by how much a large button grows with visual styles.
constexpr DWORD kStaysPressedStyle = BS_DEFPUSHBUTTON | 8;
constexpr int kGrowAcross = 1;
constexpr int kGrowAlong = 3;

/// Place of a control in its dialog's client area.
CRect placeIn(const CWnd& dialog, const CWnd& control) {
  CRect place;
  control.GetWindowRect(&place);
  dialog.ScreenToClient(&place);
  return place;
}

DWORD buttonStyle(const CWnd& replaced) {
  constexpr DWORD kTakenOver = WS_VISIBLE | WS_DISABLED | WS_TABSTOP | WS_GROUP;
  return WS_CHILD | BS_OWNERDRAW | (replaced.GetStyle() & kTakenOver);
}

HICON loadIcon(UINT id, CBtnArw::Size size) {
  const int pixels = static_cast<int>(size);
  return static_cast<HICON>(LoadImageW(AfxGetResourceHandle(), MAKEINTRESOURCEW(id), IMAGE_ICON,
                                       pixels, pixels, LR_SHARED));
}

}  // namespace

BEGIN_MESSAGE_MAP(CBtnArw, CButton)
ON_WM_MOUSEMOVE()
ON_WM_LBUTTONDBLCLK()
ON_MESSAGE(WM_MOUSEHOVER, &CBtnArw::OnMouseHover)
ON_MESSAGE(WM_MOUSELEAVE, &CBtnArw::OnMouseLeave)
END_MESSAGE_MAP()

void CBtnArw::Replace(CDialog& dialog, int id, UINT icon, Size size) {
  CWnd* replaced = dialog.GetDlgItem(id);
  if (replaced == nullptr) return;
  dialog_ = &dialog;
  id_ = id;
  small_ = size == Size::small;
  icon_ = loadIcon(icon, size);
  staysPressed_ = (replaced->GetStyle() & kStaysPressedStyle) != 0;
  CString caption;
  replaced->GetWindowText(caption);
  CRect place = placeIn(dialog, *replaced);
  if (!small_ && VisualStylesActive()) place.InflateRect(kGrowAcross, kGrowAlong);
  const DWORD style = buttonStyle(*replaced);
  const HWND before = ::GetWindow(replaced->GetSafeHwnd(), GW_HWNDPREV);
  replaced->DestroyWindow();
  Create(caption, style, place, &dialog, static_cast<UINT>(id));
  SetFont(dialog.GetFont());
  // The tab order follows the order of the windows.
  ::SetWindowPos(GetSafeHwnd(), before != nullptr ? before : HWND_TOP, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void CBtnArw::SetChecked(bool checked) {
  checked_ = checked;
  if (GetSafeHwnd() != nullptr) Invalidate();
}

void CBtnArw::OnMouseMove(UINT flags, CPoint point) {
  if (VisualStylesActive() && !hot_) {
    TRACKMOUSEEVENT track = {sizeof(TRACKMOUSEEVENT), TME_HOVER | TME_LEAVE, GetSafeHwnd(), 1};
    TrackMouseEvent(&track);
    setHot(true);
  }
  CButton::OnMouseMove(flags, point);
}

LRESULT CBtnArw::OnMouseHover(WPARAM, LPARAM) {
  setHot(true);
  return 0;
}

LRESULT CBtnArw::OnMouseLeave(WPARAM, LPARAM) {
  setHot(false);
  return 0;
}

void CBtnArw::OnLButtonDblClk(UINT flags, CPoint point) {
  // A quick second click counts as a click of its own.
  SendMessage(WM_LBUTTONDOWN, flags, MAKELPARAM(point.x, point.y));
}

void CBtnArw::setHot(bool hot) {
  if (hot_ == hot) return;
  hot_ = hot;
  Invalidate();
}

}  // namespace kovra
