#pragma once

#include "platform/mfc/wnd.h"

/// A dialog made from a template of the resource chain.
class CDialog : public CWnd {
  DECLARE_DYNAMIC(CDialog)
 public:
  CDialog() = default;
  explicit CDialog(UINT templateId, CWnd* parent = nullptr);
  explicit CDialog(LPCWSTR templateName, CWnd* parent = nullptr);
  ~CDialog() override = default;

  /// Runs the dialog until EndDialog and gives its argument; -1 when the template can't be found or
  /// the window can't be made. The parent's window, by default the main one, is disabled meanwhile.
  virtual INT_PTR DoModal();
  using CWnd::Create;
  /// Makes the window of a modeless dialog; false when that fails.
  virtual BOOL Create(UINT templateId, CWnd* parent = nullptr);
  virtual BOOL Create(LPCWSTR templateName, CWnd* parent = nullptr);
  void EndDialog(int result);

  BOOL PreTranslateMessage(MSG* message) override;

  /// Data into the controls. TRUE: the first control of the tab order gets the focus.
  virtual BOOL OnInitDialog();

  void MapDialogRect(LPRECT rect) const { ::MapDialogRect(m_hWnd, rect); }
  void GotoDlgCtrl(CWnd* control);
  void NextDlgCtrl() const;
  void PrevDlgCtrl() const;
  void SetDefID(UINT id) { SendMessage(DM_SETDEFID, id); }
  DWORD GetDefID() const { return static_cast<DWORD>(SendMessage(DM_GETDEFID)); }

 protected:
  static const AFX_MSGMAP* GetThisMessageMap();
  const AFX_MSGMAP* GetMessageMap() const override;

  virtual void OnOK();
  virtual void OnCancel();

  /// The module that the template comes from; null: the resource chain.
  HINSTANCE m_hResource = nullptr;
  LPCWSTR m_lpszTemplateName = nullptr;
  CWnd* m_pParentWnd = nullptr;
  INT_PTR m_nModalResult = -1;

 private:
  bool makeWindow(LPCWSTR templateName, CWnd* parent);
  static INT_PTR dialogProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

  bool modalGoesOn_ = false;
};
