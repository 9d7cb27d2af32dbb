#pragma once

#include <map>
#include <optional>
#include <string>

#include "platform/arx/editor/host/dialog_resize.h"
#include "platform/mfc/dialog.h"
#include "platform/mfc/frame.h"
#include "platform/win/base/state_value.h"

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

/// A dialog that remembers values under its name in the user's dialog store, and whose controls can
/// follow its size.
class CAdUiDialog : public CAdUiBaseDialog {
  DECLARE_DYNAMIC(CAdUiDialog)
 public:
  using CAdUiBaseDialog::CAdUiBaseDialog;
  ~CAdUiDialog() override;

  /// The name that values are kept under; without one nothing is kept or found.
  void SetDialogName(LPCTSTR name);
  void GetDialogName(CString& name) const { name = name_; }

  /// A value of this dialog; false, with the argument left alone, when there is none or one of the
  /// other type.
  BOOL GetDialogData(LPCTSTR key, CString& text) const;
  BOOL GetDialogData(LPCTSTR key, DWORD& number) const;
  /// Values go to the store together, when the window ends (without a window, when the object
  /// does); a store that can't be written is said on the command line. False without a name.
  BOOL SetDialogData(LPCTSTR key, LPCTSTR text);
  BOOL SetDialogData(LPCTSTR key, DWORD number);
  /// The dialog's place on the screen, in pixels, kept as values of the dialog. False when none was
  /// kept, or without a name or a window.
  BOOL StorePixelData();
  BOOL GetPixelData(CRect& place) const;

  /// From now on the controls of the table follow the window at each change of its size. To be
  /// called while the window has the size that the present places belong to (in OnInitDialog: the
  /// template's); the table is copied and replaces the former one.
  void SetItemResizing(const DialogItemResize* items, int count);

 protected:
  DECLARE_MESSAGE_MAP()
  afx_msg void OnShowWindow(BOOL show, UINT status);
  afx_msg void OnSize(UINT type, int width, int height);
  void PostNcDestroy() override;

 private:
  kovra::win::StateValue* newValue(LPCTSTR key);
  std::optional<kovra::win::StateValue> value(LPCTSTR key) const;
  void writeData();

  CString name_;
  std::map<std::string, kovra::win::StateValue> unwritten_;
  kovra::arx::DialogLayout layout_;
};

class CAcUiDialog : public CAdUiDialog {
  DECLARE_DYNAMIC(CAcUiDialog)
 public:
  using CAdUiDialog::CAdUiDialog;
};
