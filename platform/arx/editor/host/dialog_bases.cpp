#include "platform/arx/editor/host/dialog_bases.h"

#include "platform/mfc/message_map.h"
#include "platform/win/desktop/desktop.h"

CMDIFrameWnd* acedGetAcadFrame() {
  return static_cast<CMDIFrameWnd*>(AfxGetMainWnd());
}

void InitAcUiDLL() {}

IMPLEMENT_DYNAMIC(CAdUiBaseDialog, CDialog)
IMPLEMENT_DYNAMIC(CAdUiDialog, CAdUiBaseDialog)
IMPLEMENT_DYNAMIC(CAcUiDialog, CAdUiDialog)

BEGIN_MESSAGE_MAP(CAdUiBaseDialog, CDialog)
ON_MESSAGE(kKeepFocusMessage, &CAdUiBaseDialog::OnKeepFocus)
END_MESSAGE_MAP()

CAdUiBaseDialog::CAdUiBaseDialog(UINT templateId, CWnd* parent, HINSTANCE resources)
    : CDialog(templateId, parent) {
  m_hResource = resources;
}

void CAdUiBaseDialog::BeginEditorCommand() {
  if (editing_) return;
  editing_ = true;
  drawingWasBlocked_ = kovra::win::drawingBlocked();
  ::EnableWindow(kovra::win::frameWindow(), TRUE);
  // Hidden first: it remembers the control that had the focus, which disabling would take away.
  ShowWindow(SW_HIDE);
  EnableWindow(FALSE);
  kovra::win::focusDrawing();
}

void CAdUiBaseDialog::CompleteEditorCommand(BOOL restoreDialogs) {
  if (!editing_) return;
  editing_ = false;
  EnableWindow(TRUE);
  if (restoreDialogs) ShowWindow(SW_SHOW);
  if (drawingWasBlocked_) ::EnableWindow(kovra::win::frameWindow(), FALSE);
}

LRESULT CAdUiBaseDialog::OnKeepFocus(WPARAM /*wParam*/, LPARAM /*lParam*/) {
  return FALSE;
}

BEGIN_MESSAGE_MAP(CAdUiDialog, CAdUiBaseDialog)
ON_WM_SHOWWINDOW()
END_MESSAGE_MAP()

void CAdUiDialog::OnShowWindow(BOOL show, UINT status) {
  CAdUiBaseDialog::OnShowWindow(show, status);
}
