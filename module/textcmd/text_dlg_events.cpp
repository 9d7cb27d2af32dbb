// What the controls of the Text dialog do. They change the model and the preview at once; a jig
// that drags the preview shows it with its next update.
#include <cmath>

#include "module/drawing/angles.h"
#include "module/drawing/attachment.h"
#include "module/drawing/current_database.h"
#include "module/drawing/text_styles.h"
#include "module/frame/companions/entity_attr_lib.h"
#include "module/frame/dialog_items.h"
#include "module/textcmd/text_dlg.h"
#include "module/textcmd/text_ids.h"
#include "module/textcmd/text_row_ids.h"

namespace kovra {

using namespace textdlg;
using namespace textrows;

namespace {

struct RequestButton {
  UINT button;
  int request;
};
constexpr RequestButton kRequestButtons[] = {
    {kPickStyle, kStyleRequest},
    {kPickHeight, kHeightRequest},
    {kPickWidthFactor, kWidthFactorRequest},
    {kPickRotation, kRotationRequest},
    {kPickJustification, kJustificationRequest},
    {kPickAll, kAllRequest},
    {kBack, kBackRequest},
};

void focusHost() {
  if (CWnd* frame = acedGetAcadFrame()) frame->SetActiveWindow();
}

/// Digits and points; only a rotation may have a sign in front or be 0.
bool isValidNumber(const CString& text, bool isRotation) {
  const CString digits = isRotation && text[0] == L'-' ? text.Mid(1) : text;
  const bool wellFormed =
      !digits.IsEmpty() && digits.SpanIncluding(L"0123456789.").GetLength() == digits.GetLength();
  return wellFormed && (isRotation || _wtof(digits.GetString()) != 0);
}

bool isDone(Acad::ErrorStatus status) {
  return status == Acad::eOk;
}

}  // namespace

IMPLEMENT_DYNAMIC(CTextDlg, CAcUiDialog)

BEGIN_MESSAGE_MAP(CTextDlg, CAcUiDialog)
ON_WM_SHOWWINDOW()
ON_WM_SYSCOMMAND()
ON_MESSAGE(kKeepFocusMessage, &CTextDlg::OnKeepFocus)
ON_MESSAGE(kDocumentActivatedMessage, &CTextDlg::OnSetInteractive)
ON_CONTROL_RANGE(BN_CLICKED, kPickStyle, kBack, &CTextDlg::OnRequestClicked)
ON_CONTROL_RANGE(CBN_SETFOCUS, kHeight, kHeight, &CTextDlg::FieldEntered)
ON_CONTROL_RANGE(CBN_SETFOCUS, kWidthFactor, kWidthFactor, &CTextDlg::FieldEntered)
ON_CONTROL_RANGE(CBN_SETFOCUS, kRotation, kRotation, &CTextDlg::FieldEntered)
ON_CONTROL_RANGE(CBN_SETFOCUS, kScale, kScale, &CTextDlg::FieldEntered)
ON_CONTROL_RANGE(CBN_KILLFOCUS, kHeight, kHeight, &CTextDlg::FieldLeft)
ON_CONTROL_RANGE(CBN_KILLFOCUS, kWidthFactor, kWidthFactor, &CTextDlg::FieldLeft)
ON_CONTROL_RANGE(CBN_KILLFOCUS, kRotation, kRotation, &CTextDlg::FieldLeft)
ON_CONTROL_RANGE(CBN_KILLFOCUS, kScale, kScale, &CTextDlg::FieldLeft)
ON_CONTROL_RANGE(CBN_SELCHANGE, kHeight, kHeight, &CTextDlg::ItemChosen)
ON_CONTROL_RANGE(CBN_SELCHANGE, kWidthFactor, kWidthFactor, &CTextDlg::ItemChosen)
ON_CONTROL_RANGE(CBN_SELCHANGE, kRotation, kRotation, &CTextDlg::ItemChosen)
ON_CONTROL_RANGE(CBN_SELCHANGE, kScale, kScale, &CTextDlg::ItemChosen)
ON_CBN_SELCHANGE(kStyle, &CTextDlg::StyleChosen)
ON_CBN_SELCHANGE(kJustification, &CTextDlg::AttachmentChosen)
ON_CBN_SELCHANGE(kLayer, &CTextDlg::LayerChanged)
END_MESSAGE_MAP()

void CTextDlg::OnShowWindow(BOOL show, UINT status) {
  CAcUiDialog::OnShowWindow(show, status);
  if (show != FALSE) showModel();
}

LRESULT CTextDlg::OnKeepFocus(WPARAM, LPARAM) {
  return FieldEditing ? TRUE : FALSE;
}

LRESULT CTextDlg::OnSetInteractive(WPARAM enable, LPARAM) {
  EnableWindow(enable != 0 ? TRUE : FALSE);
  return 0;
}

/// The close box ends the command, and so the dialog.
void CTextDlg::OnSysCommand(UINT command, LPARAM lParam) {
  CAcUiDialog::OnSysCommand(command, lParam);
  if ((command & 0xFFF0U) == SC_CLOSE) SendDialogRequest(kEndRequest);
}

void CTextDlg::OnOK() {
  FieldEditing = false;
  focusHost();
}

void CTextDlg::OnCancel() {
  showModel();
  FieldEditing = false;
  focusHost();
}

void CTextDlg::OnRequestClicked(UINT id) {
  for (const RequestButton& row : kRequestButtons) {
    if (row.button == id) SendDialogRequest(row.request);
  }
}

void CTextDlg::SendDialogRequest(int request) {
  constexpr int kLongestInput = 100;
  AcApDocManager* documents = acDocManagerPtr();
  if (AcApDocument* document = documents->curDocument()) {
    CString line;
    line.Format(L"%s_. .%d\n", CString(L'\b', kLongestInput).GetString(), request);
    constexpr bool kActivate = false;
    constexpr bool kWrapUpInactive = true;
    constexpr bool kEcho = true;
    documents->sendStringToExecute(document, line.GetString(), kActivate, kWrapUpInactive, kEcho);
  }
  FieldEditing = false;
}

/// The window of a combo box that is typed in.
HWND CTextDlg::fieldOf(UINT id) const {
  return ::GetWindow(GetDlgItem(static_cast<int>(id))->GetSafeHwnd(), GW_CHILD);
}

void CTextDlg::FieldEntered(UINT id) {
  const HWND field = fieldOf(id);
  const HIMC inputMethod = ImmGetContext(field);
  InputMethodWasOpen = ImmGetOpenStatus(inputMethod) != FALSE;
  if (InputMethodWasOpen) ImmSetOpenStatus(inputMethod, FALSE);
  ImmReleaseContext(field, inputMethod);
  FieldEditing = true;
}

void CTextDlg::FieldLeft(UINT id) {
  const CString text = ItemText(*this, static_cast<int>(id));
  if (!isValidNumber(text, id == kRotation) || !applyNumber(id, _wtof(text.GetString()))) {
    showModel();
    return;
  }
  const HWND field = fieldOf(id);
  const HIMC inputMethod = ImmGetContext(field);
  ImmSetOpenStatus(inputMethod, InputMethodWasOpen ? TRUE : FALSE);
  ImmReleaseContext(field, inputMethod);
  FieldEditing = false;
}

/// False, and nothing changes, for a number that no text can have.
bool CTextDlg::applyNumber(UINT id, double value) {
  if (Preview == nullptr || !std::isfinite(value)) return false;
  switch (id) {
    case kHeight:
      if (!isDone(Preview->setHeight(value * Scale))) return false;
      PaperHeight = value;
      return true;
    case kWidthFactor:
      if (!isDone(Preview->setWidthFactor(value))) return false;
      WidthFactor = value;
      return true;
    case kRotation:
      if (!isDone(Preview->setRotation(RadiansOf(value)))) return false;
      RotationDegrees = value;
      return true;
    default:  // kScale
      if (!isDone(Preview->setHeight(value * PaperHeight))) return false;
      Scale = value;
      return true;
  }
}

/// Giving the focus away has the field checked and applied.
void CTextDlg::ItemChosen(UINT id) {
  const int combo = static_cast<int>(id);
  SetDlgItemText(combo, ComboItemText(*this, combo, SelectedIndex(*this, combo)));
  focusHost();
}

void CTextDlg::StyleChosen() {
  const CString name = ComboText(*this, kStyle);
  AcDbObjectId style;
  if (GTxtStyId(name.GetString(), style) == 0) {
    if (Preview != nullptr) Preview->setTextStyle(style);
    StyleName = name;
  }
  focusHost();
}

void CTextDlg::AttachmentChosen() {
  const int index = SelectedIndex(*this, kJustification);
  int horizontal = 0;
  int vertical = 0;
  if (AttachIndexToModes(index, horizontal, vertical) == 0) {
    AttachCode = AttachCodes[static_cast<std::size_t>(index)];
    if (Preview != nullptr) {
      Preview->setHorizontalMode(static_cast<AcDb::TextHorzMode>(horizontal));
      Preview->setVerticalMode(static_cast<AcDb::TextVertMode>(vertical));
      NotifyEntityEdited(Preview, CurrentDatabase());
    }
  }
  focusHost();
}

void CTextDlg::LayerChanged() {
  LayerIndex = SelectedIndex(*this, kLayer);
  if (Preview != nullptr) Preview->setLayer(PreviewLayer());
  focusHost();
  UpdateLayerOk();
}

}  // namespace kovra
