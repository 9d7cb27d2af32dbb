#include "platform/mfc/tool_tip.h"

#include "platform/mfc/extension_module.h"
#include "platform/win/windows/window.h"

BOOL CToolTipCtrl::Create(CWnd* parent, DWORD style) {
  return CreateEx(0, L"STATIC", nullptr, WS_POPUP | style, RECT{}, parent, 0);
}

BOOL CToolTipCtrl::AddTool(CWnd* control, LPCWSTR text, LPCRECT /*place*/, UINT_PTR /*id*/) {
  kovra::win::Window* window =
      control != nullptr ? kovra::win::findWindow(control->m_hWnd) : nullptr;
  if (window == nullptr) return FALSE;
  window->tip = text;
  return TRUE;
}

BOOL CToolTipCtrl::AddTool(CWnd* control, UINT textId, LPCRECT place, UINT_PTR id) {
  CString text;
  text.LoadString(textId);
  return AddTool(control, text.GetString(), place, id);
}

void CToolTipCtrl::DelTool(CWnd* control, UINT_PTR id) {
  UpdateTipText(L"", control, id);
}

void CToolTipCtrl::UpdateTipText(LPCWSTR text, CWnd* control, UINT_PTR id) {
  AddTool(control, text, nullptr, id);
}

void CToolTipCtrl::RelayEvent(MSG* message) {
  shown_.Empty();
  const kovra::win::Window* window = kovra::win::findWindow(message->hwnd);
  // A press of the button puts the tip away until the cursor moves again.
  if (active_ && window != nullptr && message->message == WM_MOUSEMOVE)
    shown_ = window->tip.c_str();
}
