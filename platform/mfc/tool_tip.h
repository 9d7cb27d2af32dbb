#pragma once

#include "platform/mfc/wnd.h"

/// Tips that show while the cursor rests on a control. The dialog relays its mouse messages.
class CToolTipCtrl : public CWnd {
 public:
  using CWnd::Create;
  virtual BOOL Create(CWnd* parent, DWORD style = 0);
  BOOL AddTool(CWnd* control, LPCWSTR text, LPCRECT place = nullptr, UINT_PTR id = 0);
  /// The text is a string of the resource chain.
  BOOL AddTool(CWnd* control, UINT textId, LPCRECT place = nullptr, UINT_PTR id = 0);
  void DelTool(CWnd* control, UINT_PTR id = 0);
  void UpdateTipText(LPCWSTR text, CWnd* control, UINT_PTR id = 0);
  void Activate(BOOL active) { active_ = active != FALSE; }
  void SetMaxTipWidth(int /*pixels*/) {}
  void RelayEvent(MSG* message);

  /// The tip that a user sees now; empty: none.
  const CString& shownTip() const { return shown_; }

 private:
  CString shown_;
  bool active_ = true;
};
