#pragma once

#include "platform/mfc/wnd.h"

/// Message maps. A class declares one with DECLARE_MESSAGE_MAP and writes its rows between
/// BEGIN_MESSAGE_MAP and END_MESSAGE_MAP; handlers are named with their class: &CMyDialog::OnPick.

namespace kovra::mfc {

template <auto Handler>
struct HandlerClass;
template <typename Class, typename Result, typename... Arguments,
          Result (Class::*Handler)(Arguments...)>
struct HandlerClass<Handler> {
  using type = Class;
};

/// The object as the class that the handler belongs to; the map that holds it is that class's own.
template <auto Handler>
auto* as(CCmdTarget* target) {
  return static_cast<typename HandlerClass<Handler>::type*>(target);
}

inline CWnd* wndOf(WPARAM handle) {
  return CWnd::FromHandle(reinterpret_cast<HWND>(handle));
}
inline CWnd* wndOf(LPARAM handle) {
  return CWnd::FromHandle(reinterpret_cast<HWND>(handle));
}

// One function for each shape of handler.
template <auto H>
LRESULT plain(CCmdTarget* t, AFX_MESSAGE&) {
  (as<H>(t)->*H)();
  return 0;
}
template <auto H>
LRESULT withId(CCmdTarget* t, AFX_MESSAGE& m) {
  (as<H>(t)->*H)(m.id);
  return 0;
}
template <auto H>
LRESULT notify(CCmdTarget* t, AFX_MESSAGE& m) {
  LRESULT result = 0;
  (as<H>(t)->*H)(reinterpret_cast<NMHDR*>(m.lParam), &result);
  return result;
}
template <auto H>
LRESULT notifyWithId(CCmdTarget* t, AFX_MESSAGE& m) {
  LRESULT result = 0;
  (as<H>(t)->*H)(m.id, reinterpret_cast<NMHDR*>(m.lParam), &result);
  return result;
}
template <auto H>
LRESULT raw(CCmdTarget* t, AFX_MESSAGE& m) {
  return (as<H>(t)->*H)(m.wParam, m.lParam);
}
template <auto H>
LRESULT create(CCmdTarget* t, AFX_MESSAGE& m) {
  return (as<H>(t)->*H)(reinterpret_cast<LPCREATESTRUCT>(m.lParam));
}
template <auto H>
LRESULT flag(CCmdTarget* t, AFX_MESSAGE& m) {
  (as<H>(t)->*H)(static_cast<BOOL>(m.wParam));
  return 0;
}
template <auto H>
LRESULT show(CCmdTarget* t, AFX_MESSAGE& m) {
  (as<H>(t)->*H)(static_cast<BOOL>(m.wParam), static_cast<UINT>(m.lParam));
  return 0;
}
template <auto H>
LRESULT move(CCmdTarget* t, AFX_MESSAGE& m) {
  const CPoint p(m.lParam);
  (as<H>(t)->*H)(p.x, p.y);
  return 0;
}
template <auto H>
LRESULT size(CCmdTarget* t, AFX_MESSAGE& m) {
  (as<H>(t)->*H)(static_cast<UINT>(m.wParam), LOWORD(m.lParam), HIWORD(m.lParam));
  return 0;
}
template <auto H>
LRESULT activate(CCmdTarget* t, AFX_MESSAGE& m) {
  (as<H>(t)->*H)(LOWORD(m.wParam), wndOf(m.lParam), HIWORD(m.wParam));
  return 0;
}
template <auto H>
LRESULT otherWindow(CCmdTarget* t, AFX_MESSAGE& m) {
  (as<H>(t)->*H)(wndOf(m.wParam));
  return 0;
}
template <auto H>
LRESULT systemCommand(CCmdTarget* t, AFX_MESSAGE& m) {
  (as<H>(t)->*H)(static_cast<UINT>(m.wParam), m.lParam);
  return 0;
}
template <auto H>
LRESULT limits(CCmdTarget* t, AFX_MESSAGE& m) {
  (as<H>(t)->*H)(reinterpret_cast<MINMAXINFO*>(m.lParam));
  return 0;
}
template <auto H>
LRESULT hitTest(CCmdTarget* t, AFX_MESSAGE& m) {
  return (as<H>(t)->*H)(CPoint(m.lParam));
}
template <auto H>
LRESULT mouse(CCmdTarget* t, AFX_MESSAGE& m) {
  (as<H>(t)->*H)(static_cast<UINT>(m.wParam), CPoint(m.lParam));
  return 0;
}
template <auto H>
LRESULT key(CCmdTarget* t, AFX_MESSAGE& m) {
  (as<H>(t)->*H)(static_cast<UINT>(m.wParam), LOWORD(m.lParam), HIWORD(m.lParam));
  return 0;
}
template <auto H>
LRESULT timer(CCmdTarget* t, AFX_MESSAGE& m) {
  (as<H>(t)->*H)(m.wParam);
  return 0;
}
template <auto H>
LRESULT drawItem(CCmdTarget* t, AFX_MESSAGE& m) {
  (as<H>(t)->*H)(static_cast<int>(m.wParam), reinterpret_cast<LPDRAWITEMSTRUCT>(m.lParam));
  return TRUE;
}

constexpr AFX_MSGMAP_ENTRY window(UINT message, AFX_HANDLER handler) {
  return {message, 0, 0, 0, handler};
}
constexpr AFX_MSGMAP_ENTRY control(UINT code, UINT first, UINT last, AFX_HANDLER handler) {
  return {WM_COMMAND, code, first, last, handler};
}
constexpr AFX_MSGMAP_ENTRY notification(UINT code, UINT first, UINT last, AFX_HANDLER handler) {
  return {WM_NOTIFY, code, first, last, handler};
}

/// Rows for what a control's own object handles of its notifications.
inline constexpr UINT kReflected = 0xBC00;

}  // namespace kovra::mfc

#define BEGIN_MESSAGE_MAP(theClass, baseClass)        \
  const AFX_MSGMAP* theClass::GetMessageMap() const { \
    return theClass::GetThisMessageMap();             \
  }                                                   \
  const AFX_MSGMAP* theClass::GetThisMessageMap() {   \
    using ThisClass [[maybe_unused]] = theClass;      \
    using TheBaseClass = baseClass;                   \
    namespace rows = kovra::mfc;                      \
    static const AFX_MSGMAP_ENTRY entries[] = {
#define END_MESSAGE_MAP()                                                    \
  { 0, 0, 0, 0, nullptr }                                                    \
  }                                                                          \
  ;                                                                          \
  static const AFX_MSGMAP map = {&TheBaseClass::GetThisMessageMap, entries}; \
  return &map;                                                               \
  }

#define ON_COMMAND(id, f) rows::control(0, id, id, rows::plain<f>),
#define ON_COMMAND_RANGE(first, last, f) rows::control(0, first, last, rows::withId<f>),
#define ON_CONTROL(code, id, f) rows::control(code, id, id, rows::plain<f>),
#define ON_CONTROL_RANGE(code, first, last, f) rows::control(code, first, last, rows::withId<f>),
#define ON_CONTROL_REFLECT(code, f) \
  AFX_MSGMAP_ENTRY{WM_COMMAND + rows::kReflected, code, 0, 0, rows::plain<f>},
#define ON_NOTIFY(code, id, f) rows::notification(code, id, id, rows::notify<f>),
#define ON_NOTIFY_RANGE(code, first, last, f) \
  rows::notification(code, first, last, rows::notifyWithId<f>),
#define ON_MESSAGE(message, f) rows::window(message, rows::raw<f>),
#define ON_BN_CLICKED(id, f) ON_CONTROL(BN_CLICKED, id, f)
#define ON_BN_DOUBLECLICKED(id, f) ON_CONTROL(BN_DOUBLECLICKED, id, f)
#define ON_EN_SETFOCUS(id, f) ON_CONTROL(EN_SETFOCUS, id, f)
#define ON_EN_KILLFOCUS(id, f) ON_CONTROL(EN_KILLFOCUS, id, f)
#define ON_EN_CHANGE(id, f) ON_CONTROL(EN_CHANGE, id, f)
#define ON_EN_UPDATE(id, f) ON_CONTROL(EN_UPDATE, id, f)
#define ON_CBN_SELCHANGE(id, f) ON_CONTROL(CBN_SELCHANGE, id, f)
#define ON_CBN_SELENDOK(id, f) ON_CONTROL(CBN_SELENDOK, id, f)
#define ON_CBN_SETFOCUS(id, f) ON_CONTROL(CBN_SETFOCUS, id, f)
#define ON_CBN_KILLFOCUS(id, f) ON_CONTROL(CBN_KILLFOCUS, id, f)
#define ON_CBN_EDITCHANGE(id, f) ON_CONTROL(CBN_EDITCHANGE, id, f)
#define ON_CBN_EDITUPDATE(id, f) ON_CONTROL(CBN_EDITUPDATE, id, f)
#define ON_STN_CLICKED(id, f) ON_CONTROL(STN_CLICKED, id, f)

// The rows of window messages name their handlers by themselves.
#define ON_WM_CREATE() rows::window(WM_CREATE, rows::create<&ThisClass::OnCreate>),
#define ON_WM_DESTROY() rows::window(WM_DESTROY, rows::plain<&ThisClass::OnDestroy>),
#define ON_WM_CLOSE() rows::window(WM_CLOSE, rows::plain<&ThisClass::OnClose>),
#define ON_WM_MOVE() rows::window(WM_MOVE, rows::move<&ThisClass::OnMove>),
#define ON_WM_SIZE() rows::window(WM_SIZE, rows::size<&ThisClass::OnSize>),
#define ON_WM_SHOWWINDOW() rows::window(WM_SHOWWINDOW, rows::show<&ThisClass::OnShowWindow>),
#define ON_WM_ENABLE() rows::window(WM_ENABLE, rows::flag<&ThisClass::OnEnable>),
#define ON_WM_ACTIVATE() rows::window(WM_ACTIVATE, rows::activate<&ThisClass::OnActivate>),
#define ON_WM_SETFOCUS() rows::window(WM_SETFOCUS, rows::otherWindow<&ThisClass::OnSetFocus>),
#define ON_WM_KILLFOCUS() rows::window(WM_KILLFOCUS, rows::otherWindow<&ThisClass::OnKillFocus>),
#define ON_WM_PAINT() rows::window(WM_PAINT, rows::plain<&ThisClass::OnPaint>),
#define ON_WM_SYSCOMMAND() \
  rows::window(WM_SYSCOMMAND, rows::systemCommand<&ThisClass::OnSysCommand>),
#define ON_WM_GETMINMAXINFO() \
  rows::window(WM_GETMINMAXINFO, rows::limits<&ThisClass::OnGetMinMaxInfo>),
#define ON_WM_NCHITTEST() rows::window(WM_NCHITTEST, rows::hitTest<&ThisClass::OnNcHitTest>),
#define ON_WM_MOUSEMOVE() rows::window(WM_MOUSEMOVE, rows::mouse<&ThisClass::OnMouseMove>),
#define ON_WM_LBUTTONDOWN() rows::window(WM_LBUTTONDOWN, rows::mouse<&ThisClass::OnLButtonDown>),
#define ON_WM_LBUTTONUP() rows::window(WM_LBUTTONUP, rows::mouse<&ThisClass::OnLButtonUp>),
#define ON_WM_LBUTTONDBLCLK() \
  rows::window(WM_LBUTTONDBLCLK, rows::mouse<&ThisClass::OnLButtonDblClk>),
#define ON_WM_MOUSEHOVER() rows::window(WM_MOUSEHOVER, rows::mouse<&ThisClass::OnMouseHover>),
#define ON_WM_MOUSELEAVE() rows::window(WM_MOUSELEAVE, rows::plain<&ThisClass::OnMouseLeave>),
#define ON_WM_KEYDOWN() rows::window(WM_KEYDOWN, rows::key<&ThisClass::OnKeyDown>),
#define ON_WM_CHAR() rows::window(WM_CHAR, rows::key<&ThisClass::OnChar>),
#define ON_WM_TIMER() rows::window(WM_TIMER, rows::timer<&ThisClass::OnTimer>),
#define ON_WM_DRAWITEM() rows::window(WM_DRAWITEM, rows::drawItem<&ThisClass::OnDrawItem>),
