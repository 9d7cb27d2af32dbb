#include "platform/mfc/dialog.h"

#include "platform/mfc/extension_module.h"
#include "platform/mfc/message_map.h"
#include "platform/win/dialogs/dialogs.h"
#include "platform/win/resources/resources.h"

namespace {

HWND topLevelWindow(CWnd* parent) {
  CWnd* window = parent != nullptr ? parent : AfxGetMainWnd();
  return ::GetAncestor(window->m_hWnd, GA_ROOT);
}

/// Keeps the owner of a modal dialog from the user for the time of a scope.
class OwnerDisabled {
 public:
  explicit OwnerDisabled(HWND owner) : owner_(owner), wasEnabled_(::IsWindowEnabled(owner)) {
    if (wasEnabled_) ::EnableWindow(owner_, FALSE);
  }
  ~OwnerDisabled() { release(); }
  OwnerDisabled(const OwnerDisabled&) = delete;
  OwnerDisabled& operator=(const OwnerDisabled&) = delete;

  void release() {
    if (wasEnabled_) ::EnableWindow(owner_, TRUE);
    wasEnabled_ = FALSE;
  }

 private:
  HWND owner_;
  BOOL wasEnabled_;
};

/// A dialog that hasn't found its place by itself, and can still do so unseen, goes to the middle.
/// One beside which its owner goes on working never does.
bool staysWhereItIs(const CDialog& dialog, const CRect& before, const CRect& after) {
  if ((dialog.GetStyle() & (WS_CHILD | WS_VISIBLE)) != 0) return true;
  const HWND owner = ::GetParent(dialog.GetSafeHwnd());
  if (owner != nullptr && ::IsWindowEnabled(owner)) return true;
  return before.left != after.left || before.top != after.top;
}

}  // namespace

IMPLEMENT_DYNAMIC(CDialog, CWnd)

BEGIN_MESSAGE_MAP(CDialog, CWnd)
ON_COMMAND(IDOK, &CDialog::OnOK)
ON_COMMAND(IDCANCEL, &CDialog::OnCancel)
END_MESSAGE_MAP()

CDialog::CDialog(UINT templateId, CWnd* parent) : CDialog(MAKEINTRESOURCEW(templateId), parent) {}

CDialog::CDialog(LPCWSTR templateName, CWnd* parent)
    : m_lpszTemplateName(templateName), m_pParentWnd(parent) {}

INT_PTR CDialog::dialogProcedure(HWND handle, UINT message, WPARAM /*wParam*/, LPARAM /*lParam*/) {
  if (message != WM_INITDIALOG) return FALSE;
  auto* dialog = dynamic_cast<CDialog*>(CWnd::FromHandlePermanent(handle));
  if (dialog == nullptr) return TRUE;
  CRect before;
  ::GetWindowRect(handle, &before);
  const BOOL result = dialog->OnInitDialog();
  CRect after;
  if (!::GetWindowRect(handle, &after)) return result;
  if (staysWhereItIs(*dialog, before, after)) return result;
  dialog->CenterWindow();
  return result;
}

bool CDialog::makeWindow(LPCWSTR templateName, CWnd* parent) {
  const auto id = static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(templateName));
  const auto type = static_cast<UINT>(kovra::win::ResourceType::dialog);
  const HINSTANCE module =
      m_hResource != nullptr ? m_hResource : AfxFindResourceHandle(templateName, type);
  const auto dialog = kovra::win::loadDialogTemplate(module, id);
  if (!dialog) return false;
  const bool child = (dialog->style & WS_CHILD) != 0;
  const HWND owner = child && parent != nullptr ? parent->m_hWnd : topLevelWindow(parent);
  return kovra::win::makeDialog(module, *dialog, owner, dialogProcedure, 0,
                                [this](HWND window) { tie(window); }) != nullptr;
}

BOOL CDialog::Create(UINT templateId, CWnd* parent) {
  return Create(MAKEINTRESOURCEW(templateId), parent);
}

BOOL CDialog::Create(LPCWSTR templateName, CWnd* parent) {
  m_lpszTemplateName = templateName;
  if (parent != nullptr) m_pParentWnd = parent;
  return makeWindow(templateName, m_pParentWnd) ? TRUE : FALSE;
}

INT_PTR CDialog::DoModal() {
  const HWND owner = topLevelWindow(m_pParentWnd);
  OwnerDisabled disabled(owner);
  m_nModalResult = -1;
  modalGoesOn_ = true;
  if (!makeWindow(m_lpszTemplateName, m_pParentWnd)) {
    // OnInitDialog may have ended the dialog; then its result counts.
    modalGoesOn_ = false;
    return m_nModalResult;
  }
  if (modalGoesOn_) {
    if (!IsWindowVisible()) ShowWindow(SW_SHOW);
    kovra::win::runModal(m_hWnd, [this] { return !modalGoesOn_; });
  }
  modalGoesOn_ = false;
  // The owner is enabled first, so that it becomes active and not some other window.
  disabled.release();
  ShowWindow(SW_HIDE);
  if (m_hWnd != nullptr) DestroyWindow();
  return m_nModalResult;
}

void CDialog::EndDialog(int result) {
  m_nModalResult = result;
  if (!modalGoesOn_) ShowWindow(SW_HIDE);
  modalGoesOn_ = false;
}

BOOL CDialog::OnInitDialog() {
  UpdateData(FALSE);
  return TRUE;
}

void CDialog::OnOK() {
  if (UpdateData(TRUE)) EndDialog(IDOK);
}

void CDialog::OnCancel() {
  EndDialog(IDCANCEL);
}

BOOL CDialog::PreTranslateMessage(MSG* message) {
  if (CWnd::PreTranslateMessage(message)) return TRUE;
  const bool key = message->message >= WM_KEYFIRST && message->message <= WM_KEYLAST;
  const bool mouse = message->message >= WM_MOUSEFIRST && message->message <= WM_MOUSELAST;
  return key || mouse ? ::IsDialogMessageW(m_hWnd, message) : FALSE;
}

void CDialog::GotoDlgCtrl(CWnd* control) {
  control->SetFocus();
  if ((control->SendMessage(WM_GETDLGCODE) & DLGC_HASSETSEL) != 0) {
    control->SendMessage(EM_SETSEL, 0, -1);
  }
}

void CDialog::NextDlgCtrl() const {
  ::SetFocus(::GetNextDlgTabItem(m_hWnd, ::GetFocus(), FALSE));
}

void CDialog::PrevDlgCtrl() const {
  ::SetFocus(::GetNextDlgTabItem(m_hWnd, ::GetFocus(), TRUE));
}
