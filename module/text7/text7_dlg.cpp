#include "module/text7/text7_dlg.h"

#include "module/countup/radix_table.h"
#include "module/frame/dialog_items.h"
#include "module/frame/gates.h"
#include "module/frame/reporting.h"
#include "module/frame/send_to_document.h"
#include "module/text7/text7_ids.h"
#include "module/textcmd/text_row_ids.h"

namespace kovra {

using namespace text7;
using namespace textrows;

namespace {

constexpr ACHAR kTextCommand[] = L"KOVRA_TEXT";

CText7Dlg* openDialog = nullptr;

UINT chooseTemplate() {
  if (AdoptTextStyleEnabled()) return 1641;
  if (LiveDataVersionAtLeast(L"12.0")) return 534;
  return LiveDataVersionAtLeast(L"10.0") ? 532 : 529;
}

}  // namespace

IMPLEMENT_DYNAMIC(CText7Dlg, CAcUiDialog)

BEGIN_MESSAGE_MAP(CText7Dlg, CAcUiDialog)
ON_MESSAGE(kKeepFocusMessage, &CText7Dlg::OnKeepFocus)
ON_MESSAGE(kCheckMessage, &CText7Dlg::OnCheckRequested)
ON_MESSAGE(kDocumentActivatedMessage, &CText7Dlg::OnSetInteractive)
ON_WM_GETMINMAXINFO()
ON_WM_SIZE()
ON_WM_PAINT()
ON_WM_NCHITTEST()
ON_BN_CLICKED(kCountUp, &CText7Dlg::OnCountUpClicked)
ON_BN_CLICKED(kAdoptStyle, &CText7Dlg::OnAdoptClicked)
ON_CONTROL_RANGE(BN_CLICKED, kSingleMode, kArrayMode, &CText7Dlg::ModeChanged)
ON_CONTROL_RANGE(BN_CLICKED, kFirstDirection, kLastDirection, &CText7Dlg::OnDirectionClicked)
ON_CONTROL_RANGE(BN_CLICKED, kPickBoth, kPickColWidth, &CText7Dlg::OnPickClicked)
ON_CONTROL_RANGE(BN_CLICKED, kPickStyle, kPickValue, &CText7Dlg::OnPickClicked)
ON_CONTROL_RANGE(BN_CLICKED, kStepInDecimal, kStepInDecimal, &CText7Dlg::OnStepModeClicked)
ON_CONTROL_RANGE(BN_CLICKED, kStepInRadix, kStepInRadix, &CText7Dlg::OnStepModeClicked)
ON_CONTROL_RANGE(EN_CHANGE, kValue, kSuffix, &CText7Dlg::RequestCheck)
ON_CONTROL_RANGE(EN_CHANGE, kDecimalStep, kRadixStep, &CText7Dlg::StepFieldChanged)
ON_CONTROL_RANGE(EN_CHANGE, kLines, kColWidth, &CText7Dlg::RequestCheck)
ON_CONTROL_RANGE(EN_KILLFOCUS, kNumber, kNumber, &CText7Dlg::CleanField)
ON_CONTROL_RANGE(EN_KILLFOCUS, kDecimalStep, kDecimalStep, &CText7Dlg::CleanField)
ON_CONTROL_RANGE(EN_KILLFOCUS, kRows, kColWidth, &CText7Dlg::CleanField)
ON_CONTROL_RANGE(CBN_KILLFOCUS, kHeight, kHeight, &CText7Dlg::CleanField)
ON_CONTROL_RANGE(CBN_KILLFOCUS, kWidthFactor, kWidthFactor, &CText7Dlg::CleanField)
ON_CONTROL_RANGE(CBN_KILLFOCUS, kRotation, kRotation, &CText7Dlg::CleanField)
ON_CONTROL_RANGE(CBN_KILLFOCUS, kLineSpacing, kLineSpacing, &CText7Dlg::CleanField)
ON_CONTROL_RANGE(CBN_EDITUPDATE, kHeight, kHeight, &CText7Dlg::RequestCheck)
ON_CONTROL_RANGE(CBN_EDITUPDATE, kWidthFactor, kWidthFactor, &CText7Dlg::RequestCheck)
ON_CONTROL_RANGE(CBN_EDITUPDATE, kRotation, kRotation, &CText7Dlg::RequestCheck)
ON_CONTROL_RANGE(CBN_EDITUPDATE, kLayer, kLayer, &CText7Dlg::RequestCheck)
ON_CONTROL_RANGE(CBN_EDITUPDATE, kLineSpacing, kLineSpacing, &CText7Dlg::RequestCheck)
ON_CONTROL_RANGE(CBN_SELCHANGE, kHeight, kHeight, &CText7Dlg::RequestCheck)
ON_CONTROL_RANGE(CBN_SELCHANGE, kWidthFactor, kWidthFactor, &CText7Dlg::RequestCheck)
ON_CONTROL_RANGE(CBN_SELCHANGE, kLayer, kLayer, &CText7Dlg::RequestCheck)
ON_CONTROL_RANGE(CBN_SELCHANGE, kLineSpacing, kLineSpacing, &CText7Dlg::RequestCheck)
ON_CBN_SELCHANGE(kRadixCombo, &CText7Dlg::RadixChanged)
ON_CONTROL_RANGE(CBN_SELENDOK, kStyle, kLayer, &CText7Dlg::OnPropertyChosen)
END_MESSAGE_MAP()

CText7Dlg* OpenText7Dlg() {
  return openDialog;
}

CText7Dlg::CText7Dlg(CWnd* parent) : CText7Dlg(parent, chooseTemplate()) {}

CText7Dlg::CText7Dlg(CWnd* parent, UINT templateId)
    : CAcUiDialog(templateId, parent), TemplateId(templateId) {
  StyleComboId = kStyle;
  AdoptCheckId = kAdoptStyle;
  HeightComboId = kHeight;
  WidthComboId = kWidthFactor;
  HeightButtonId = kPickHeight;
  WidthButtonId = kPickWidthFactor;
}

CText7Dlg::~CText7Dlg() = default;

bool CText7Dlg::Open(CWnd* parent) {
  if (!Create(TemplateId, parent)) return false;
  openDialog = this;
  ShowWindow(SW_SHOW);
  FocusValueField();
  return true;
}

BOOL CText7Dlg::DestroyWindow() {
  saveSettings();
  CollectFields();
  saveFields();
  if (DocReactor != nullptr) acDocManager->removeReactor(DocReactor.get());
  DocReactor.reset();
  return CAcUiDialog::DestroyWindow();
}

void CText7Dlg::PostNcDestroy() {
  if (CWnd* frame = acedGetAcadFrame()) frame->SetFocus();
  CAcUiDialog::PostNcDestroy();
  delete this;
  openDialog = nullptr;
  if (acedGetAcadFrame() != nullptr && adsw_acadDocWnd() != nullptr) {
    SendToDocument(kCancelCommand);
  }
}

BOOL CText7Dlg::PreTranslateMessage(MSG* message) {
  Buttons.RelayEvent(message);
  return CAcUiDialog::PreTranslateMessage(message);
}

// There is no way to end the dialog but this one.
void CText7Dlg::OnCancel() {
  DestroyWindow();
}

bool CText7Dlg::IsAvailable() {
  return AdoptTextStyleEnabled();
}

CWnd* CText7Dlg::GetDialog() {
  return this;
}

CString CText7Dlg::NumberText(double number) {
  CString text;
  FormatNumber(text, number);
  return text;
}

void CText7Dlg::FocusValueField() {
  int id = IsItemChecked(*this, kCountUp) ? kNumber : kValue;
  if (IsItemChecked(*this, kSingleMode)) id = offersLines() ? kLines : kValue;
  CWnd* field = GetDlgItem(id);
  if (field == nullptr) return;
  field->SetFocus();
  field->SendMessage(EM_SETSEL, 0, -1);
  field->SendMessage(EM_SCROLLCARET);
}

LRESULT CText7Dlg::OnKeepFocus(WPARAM, LPARAM) {
  return 1;
}

LRESULT CText7Dlg::OnCheckRequested(WPARAM, LPARAM) {
  UpdateOkState();
  return 0;
}

LRESULT CText7Dlg::OnSetInteractive(WPARAM enable, LPARAM) {
  SetInteractive(enable != 0);
  return 0;
}

void CText7Dlg::OnCountUpClicked() {
  CountUp = IsItemChecked(*this, kCountUp);
  UpdateControls();
  UpdateOkState();
}

void CText7Dlg::OnAdoptClicked() {
  if (AdoptTextStyleEnabled()) ApplyAdoption(IsAdoptChecked());
}

void CText7Dlg::OnDirectionClicked(UINT id) {
  Direction = static_cast<int>(id) - kFirstDirection;
  Buttons.MarkDirection(Direction);
  UpdateControls();
  UpdateOkState();
  Invalidate();
}

/// The check runs when the notification is over.
void CText7Dlg::RequestCheck(UINT /*id*/) {
  PostMessage(kCheckMessage);
  syncStep(false);
}

void CText7Dlg::OnPropertyChosen(UINT /*id*/) {
  UpdateOkState();
}

void CText7Dlg::OnStepModeClicked(UINT id) {
  RadixMode = static_cast<int>(id) - kStepInDecimal;
  UpdateRadixControls();
}

void CText7Dlg::OnPickClicked(UINT id) {
  PendingAction = static_cast<int>(id);
  StartInDocument(kTextCommand);
}

void CText7Dlg::OnOK() {
  // Since the last check the drawing's layers and styles may have changed, and so may the current
  // project: where another field holds the value, the user has to see it first.
  const bool severalLines = MultiLine;
  if (UpdateOkState() == 0 || MultiLine != severalLines) return;
  CollectFields();
  const Refusal refusal = firstRefusal();
  if (refusal.message == 0) {
    PendingAction = kPlaceAction;
    StartInDocument(kTextCommand);
  } else if (refusal.focus == 0) {
    ShowMessage(refusal.message);
  } else {
    AfxMessageBox(ResourceText(refusal.message).GetString(), MB_ICONEXCLAMATION);
    if (CWnd* field = GetDlgItem(refusal.focus)) field->SetFocus();
  }
}

}  // namespace kovra
