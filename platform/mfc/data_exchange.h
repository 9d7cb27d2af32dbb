#pragma once

#include "platform/mfc/wnd.h"

/// One run of data between controls and fields.
class CDataExchange {
 public:
  CDataExchange(CWnd* dialog, BOOL saveAndValidate)
      : m_bSaveAndValidate(saveAndValidate), m_pDlgWnd(dialog) {}

  /// The control; ends the run when the dialog has none with this id.
  HWND PrepareCtrl(int id);
  HWND PrepareEditCtrl(int id);
  /// Ends the run: the control that was prepared last gets the focus, UpdateData gives FALSE.
  [[noreturn]] void Fail();

  BOOL m_bSaveAndValidate;  ///< TRUE: from the controls into the fields
  CWnd* m_pDlgWnd;

 private:
  HWND last_ = nullptr;
};

void DDX_Text(CDataExchange* exchange, int id, CString& value);
/// Entries that aren't a whole number are refused with a message box.
void DDX_Text(CDataExchange* exchange, int id, int& value);
void DDX_Text(CDataExchange* exchange, int id, double& value);
void DDX_Check(CDataExchange* exchange, int id, int& value);
/// The index of the checked radio in the group that begins with this control; -1: none.
void DDX_Radio(CDataExchange* exchange, int id, int& value);
void DDX_CBString(CDataExchange* exchange, int id, CString& value);
void DDX_CBStringExact(CDataExchange* exchange, int id, CString& value);
void DDX_CBIndex(CDataExchange* exchange, int id, int& value);
/// Ties the object to the control at the first run.
void DDX_Control(CDataExchange* exchange, int id, CWnd& control);
void DDV_MaxChars(CDataExchange* exchange, const CString& value, int limit);
