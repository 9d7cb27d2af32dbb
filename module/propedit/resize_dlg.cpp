#include "module/propedit/resize_dlg.h"

#include <algorithm>

#include "module/frame/companions/dialog_state_lib.h"
#include "module/frame/dialog_items.h"
#include "module/frame/dialog_state.h"
#include "module/frame/reporting.h"
#include "module/frame/send_to_document.h"
#include "module/propedit/resize_height.h"
#include "module/propedit/resize_ids.h"

namespace kovra {

using namespace resize;

namespace {

constexpr ACHAR kResizeCommand[] = L"KOVRA_TEXT_RESIZEH";
constexpr ACHAR kSection[] = L"ORVEKovraTextResizeDlg";
constexpr ACHAR kStepKey[] = L"TxtStp";
constexpr UINT kStepTooSmall = 8425;

/// Posted by the reactor: the drawing of the dialog is being closed.
constexpr UINT kDrawingClosedMessage = 0x449;

CResizeDlg* openDialog = nullptr;

}  // namespace

/// Ends the dialog with its drawing.
class CResizeDlg::DocReactor : public AcApDocManagerReactor {
 public:
  explicit DocReactor(CWnd& dialog) : document_(acDocManager->curDocument()), dialog_(dialog) {
    acDocManager->addReactor(this);
  }
  ~DocReactor() override { acDocManager->removeReactor(this); }
  DocReactor(const DocReactor&) = delete;
  DocReactor& operator=(const DocReactor&) = delete;

  void documentToBeDestroyed(AcApDocument* document) override {
    if (document == document_) dialog_.PostMessage(kDrawingClosedMessage);
  }

 private:
  AcApDocument* document_;
  CWnd& dialog_;
};

IMPLEMENT_DYNAMIC(CResizeDlg, CAcUiDialog)

BEGIN_MESSAGE_MAP(CResizeDlg, CAcUiDialog)
ON_WM_DESTROY()
ON_MESSAGE(kKeepFocusMessage, &CResizeDlg::OnKeepFocus)
ON_MESSAGE(kDrawingClosedMessage, &CResizeDlg::OnDrawingClosed)
ON_BN_CLICKED(kSelect, &CResizeDlg::OnSelectClicked)
ON_BN_CLICKED(kMove, &CResizeDlg::OnMoveClicked)
ON_EN_CHANGE(kHeight, &CResizeDlg::OnHeightChanged)
ON_NOTIFY(UDN_DELTAPOS, kSpin, &CResizeDlg::OnSpin)
END_MESSAGE_MAP()

CResizeDlg* OpenResizeDlg() {
  return openDialog;
}

CResizeDlg::CResizeDlg(CWnd* parent) : CAcUiDialog(kTemplate, parent) {}

CResizeDlg::~CResizeDlg() = default;

bool CResizeDlg::Open(CWnd* parent) {
  if (!Create(kTemplate, parent)) return false;
  openDialog = this;
  return true;
}

void CResizeDlg::SetEntity(const ResizeEntity& entity) {
  Entity = entity;
  if (entity.isSelected()) TextHeight = entity.OldHeight;
}

void CResizeDlg::DoDataExchange(CDataExchange* exchange) {
  CAcUiDialog::DoDataExchange(exchange);
  DDX_Text(exchange, kHeight, TextHeight);
  DDX_Text(exchange, kStep, TxtStp);
}

BOOL CResizeDlg::OnInitDialog() {
  CAcUiDialog::OnInitDialog();
  loadState();
  ShowFields();
  CSpinButtonCtrl* arrows = spin();
  arrows->SetBuddy(GetDlgItem(kHeight));
  arrows->SetRange(0, UD_MAXVAL);
  UpdateResizeButtons();
  acDocManager->disableDocumentActivation();
  docReactor_ = std::make_unique<DocReactor>(*this);
  return TRUE;
}

void CResizeDlg::loadState() {
  DialogStateStore store;
  if (!store.OpenSection(kSection)) return;
  RestoreWindowPlace(*this, store);
  GetStateReal(store, kStepKey, TxtStp);
}

void CResizeDlg::saveState() {
  DialogStateStore store;
  if (!store.OpenSection(kSection)) return;
  if (!IsIconic()) StoreWindowPlace(*this, store);
  CString step = TrimmedItemText(*this, kStep);
  step.TrimLeft();
  if (!step.IsEmpty()) store.SetString(kStepKey, step.GetString());
}

void CResizeDlg::OnDestroy() {
  saveState();
  docReactor_.reset();
  CAcUiDialog::OnDestroy();
}

void CResizeDlg::PostNcDestroy() {
  CWnd* frame = acedGetAcadFrame();
  if (frame != nullptr) frame->SetFocus();
  CAcUiDialog::PostNcDestroy();
  delete this;
  openDialog = nullptr;
  acDocManager->enableDocumentActivation();
  if (frame != nullptr && adsw_acadDocWnd() != nullptr) SendToDocument(kCancelCommand);
}

CSpinButtonCtrl* CResizeDlg::spin() const {
  return static_cast<CSpinButtonCtrl*>(GetDlgItem(kSpin));
}

void CResizeDlg::ShowDialog() {
  if (IsWindowVisible()) return;
  ShowWindow(SW_SHOW);
  UpdateResizeButtons();
}

void CResizeDlg::FocusHeightField() {
  if (CWnd* field = GetDlgItem(kHeight)) field->SetFocus();
}

void CResizeDlg::UpdateResizeButtons() {
  // An empty text is 0.
  EnableItem(*this, IDOK, ItemReal(*this, kHeight) > kLeastHeight);
  EnableItem(*this, kMove, Entity.isSelected());
}

bool CResizeDlg::holdsCursor() const {
  CRect place;
  GetWindowRect(&place);
  CPoint cursor;
  GetCursorPos(&cursor);
  return place.PtInRect(cursor) != FALSE;
}

/// Beside the drawing the dialog answers as soon as the cursor is over it.
BOOL CResizeDlg::PreTranslateMessage(MSG* message) {
  if (message->message == WM_MOUSEMOVE && holdsCursor()) {
    const CWnd* focused = GetFocus();
    if (focused != this && !IsChild(focused)) SetActiveWindow();
  }
  return CAcUiDialog::PreTranslateMessage(message);
}

LRESULT CResizeDlg::OnKeepFocus(WPARAM, LPARAM) {
  return holdsCursor() ? TRUE : FALSE;
}

LRESULT CResizeDlg::OnDrawingClosed(WPARAM, LPARAM) {
  DestroyWindow();
  return 0;
}

void CResizeDlg::request(int what) {
  ResizeRequest = what;
  StartInDocument(kResizeCommand);
}

void CResizeDlg::OnOK() {
  request(kFinishRequest);
}

void CResizeDlg::OnCancel() {
  request(kCancelRequest);
}

void CResizeDlg::OnSelectClicked() {
  request(kSelectRequest);
}

void CResizeDlg::OnMoveClicked() {
  request(kMoveRequest);
}

void CResizeDlg::OnHeightChanged() {
  UpdateResizeButtons();
}

void CResizeDlg::OnSpin(NMHDR* notification, LRESULT* refused) {
  // The height is the dialog's; the arrows keep no count of their own.
  *refused = TRUE;
  const int presses = reinterpret_cast<const NMUPDOWN*>(notification)->iDelta;
  int lower = 0;
  int upper = 0;
  spin()->GetRange(lower, upper);
  TxtStp = ItemReal(*this, kStep);
  if (TxtStp < kLeastStep) {
    AfxMessageBox(ResourceText(kStepTooSmall).GetString());
    if (CWnd* field = GetDlgItem(kStep)) field->SetFocus();
    return;
  }
  const double height = SteppedHeight(ItemReal(*this, kHeight), presses, TxtStp,
                                      std::min(lower, upper), std::max(lower, upper));
  if (height <= kLeastHeight) return;
  CString text;
  text.Format(L"%.1f", height);
  SetDlgItemText(kHeight, text);
  request(kApplyRequest);
  SetFocus();
}

}  // namespace kovra
