#pragma once

#include "platform/mfc/dialog.h"
#include "platform/mfc/frame.h"

/// The program's main window.
CMDIFrameWnd* acedGetAcadFrame();

/// To be called once by a library before it makes dialogs of these classes.
void InitAcUiDLL();

/// A dialog that can hand the drawing to the user while it is open.
class CAdUiBaseDialog : public CDialog {
  DECLARE_DYNAMIC(CAdUiBaseDialog)
 public:
  /// Templates come from `resources`; null: from the resource chain.
  explicit CAdUiBaseDialog(UINT templateId, CWnd* parent = nullptr, HINSTANCE resources = nullptr);

  /// Hides and disables the dialog, frees the drawing and gives it the focus. Prompts can run then.
  void BeginEditorCommand();
  /// Ends that. With `restoreDialogs` the dialog shows again, with the focus where it was.
  void CompleteEditorCommand(BOOL restoreDialogs = TRUE);
  void CancelEditorCommand() { CompleteEditorCommand(TRUE); }

 protected:
  DECLARE_MESSAGE_MAP()

  /// The answer to kKeepFocusMessage: whether the focus stays when the cursor enters the drawing.
  LRESULT OnKeepFocus(WPARAM wParam, LPARAM lParam);

 private:
  bool editing_ = false;
  bool drawingWasBlocked_ = false;
};

class CAdUiDialog : public CAdUiBaseDialog {
  DECLARE_DYNAMIC(CAdUiDialog)
 public:
  using CAdUiBaseDialog::CAdUiBaseDialog;

 protected:
  DECLARE_MESSAGE_MAP()
  afx_msg void OnShowWindow(BOOL show, UINT status);
};

class CAcUiDialog : public CAdUiDialog {
  DECLARE_DYNAMIC(CAcUiDialog)
 public:
  using CAdUiDialog::CAdUiDialog;
};
