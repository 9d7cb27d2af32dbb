#include "platform/mfc/tool_tip.h"

#include "platform/mfc/extension_module.h"

BOOL CToolTipCtrl::Create(CWnd* parent, DWORD style) {
  return CreateEx(0, L"STATIC", nullptr, WS_POPUP | style, RECT{}, parent, 0);
}

BOOL CToolTipCtrl::AddTool(CWnd* control, LPCWSTR text, LPCRECT /*place*/, UINT_PTR /*id*/) {
  if (control == nullptr) return FALSE;
  tips_[control->m_hWnd] = text;
  return TRUE;
}

BOOL CToolTipCtrl::AddTool(CWnd* control, UINT textId, LPCRECT place, UINT_PTR id) {
  CString text;
  text.LoadString(textId);
  return AddTool(control, text.GetString(), place, id);
}

void CToolTipCtrl::DelTool(CWnd* control, UINT_PTR /*id*/) {
  tips_.erase(control->m_hWnd);
}

void CToolTipCtrl::UpdateTipText(LPCWSTR text, CWnd* control, UINT_PTR /*id*/) {
  tips_[control->m_hWnd] = text;
}

void CToolTipCtrl::RelayEvent(MSG* message) {
  shown_.Empty();
  const auto tip = tips_.find(message->hwnd);
  // A press of the button puts the tip away until the cursor moves again.
  if (active_ && tip != tips_.end() && message->message == WM_MOUSEMOVE) shown_ = tip->second;
}
