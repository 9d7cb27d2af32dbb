#include "module/textcmd/text_dlg.h"

#include <algorithm>

#include "module/drawing/attachment.h"
#include "module/drawing/layers.h"
#include "module/drawing/number_text.h"
#include "module/drawing/property_combos.h"
#include "module/drawing/system_variables.h"
#include "module/drawing/text_styles.h"
#include "module/frame/dialog_items.h"
#include "module/frame/reporting.h"
#include "module/textcmd/text_ids.h"
#include "module/textcmd/text_row_ids.h"

namespace kovra {

using namespace textdlg;
using namespace textrows;

namespace {

constexpr const ACHAR* kStandardLayer = L"0";

void showNumber(CWnd& dialog, int comboId, double number) {
  CString digits;
  digits.Format(L"%.8f", number);
  std::wstring text = digits.GetString();
  TrimNumberTail(text);
  dialog.SetDlgItemText(comboId, text.c_str());
}

}  // namespace

CTextDlg::CTextDlg(CWnd* parent) : CAcUiDialog(kTemplate, parent) {}

CTextDlg::~CTextDlg() = default;

void CTextDlg::DoDataExchange(CDataExchange* exchange) {
  CAcUiDialog::DoDataExchange(exchange);
  DDX_CBStringExact(exchange, kStyle, StyleName);
}

BOOL CTextDlg::OnInitDialog() {
  // The focus stays with the drawing: the command line asks for a value as soon as the dialog is
  // there.
  constexpr BOOL kFocusStays = FALSE;
  CAcUiDialog::OnInitDialog();
  keepOnScreen();
  fillLists();
  if (!fillStyles()) return kFocusStays;
  FillJustifications(*this, kJustification);
  Document = acDocManager->curDocument();
  UpdateLayerOk();
  TextDlgReactor = std::make_unique<TxtDlgDocReactor>(Document, this);
  acDocManager->addReactor(TextDlgReactor.get());
  return kFocusStays;
}

/// At least a quarter of the dialog stays within reach.
void CTextDlg::keepOnScreen() {
  CRect place;
  GetWindowRect(&place);
  const int width = place.Width();
  const int height = place.Height();
  WindowX = std::clamp(WindowX, width / 4 - width, GetSystemMetrics(SM_CXSCREEN) - width / 4);
  WindowY = std::clamp(WindowY, 0, GetSystemMetrics(SM_CYSCREEN) - height / 4);
  ::SetWindowPos(GetSafeHwnd(), HWND_NOTOPMOST, WindowX, WindowY, 0, 0, SWP_NOSIZE);
}

void CTextDlg::fillLists() {
  FillCombo(*this, kLayer, LayerList);
  SelectIndex(*this, kLayer, LayerIndex);
  FillCombo(*this, kHeight, HeightList);
  FillCombo(*this, kWidthFactor, WidthList);
  FillCombo(*this, kRotation, RotationList);
}

bool CTextDlg::fillStyles() {
  TextList styles;
  if (GTxtStyL(styles) != 0) {
    TraceError(L"TextDlg error GetTxtStyleList");
    return false;
  }
  FillCombo(*this, kStyle, styles);
  SelectComboItem(*this, kStyle, StyleName.GetString());
  return true;
}

/// The fields are the truth; the controls follow.
void CTextDlg::showModel() {
  SelectIndex(*this, kStyle, FindComboItem(*this, kStyle, StyleName.GetString()));
  showNumber(*this, kHeight, PaperHeight);
  showNumber(*this, kWidthFactor, WidthFactor);
  showNumber(*this, kRotation, RotationDegrees);
  showNumber(*this, kScale, Scale);
  SelectIndex(*this, kJustification, AttachIndex(AttachCode));
}

CString CTextDlg::LayerName() const {
  if (LayerIndex >= 0 && LayerIndex < LayerList.size() - 1) return LayerList[LayerIndex].get();
  CString current;
  GetVar(L"CLAYER", current);
  return current;
}

AcDbObjectId CTextDlg::PreviewLayer() const {
  const CString name = LayerName();
  AcDbObjectId layer;
  GLayerId(GLayerExists(name.GetString()) != 0 ? name.GetString() : kStandardLayer, layer);
  return layer;
}

/// A text can't be placed on a locked layer. Without a selection the current layer counts.
void CTextDlg::UpdateLayerOk() {
  const int item = SelectedIndex(*this, kLayer);
  const bool current = item < 0 || item == ComboItemCount(*this, kLayer) - 1;
  const CString layer = ComboItemText(*this, kLayer, item);
  EnableItem(*this, IDOK, !IsLayerLocked(current ? nullptr : layer.GetString()));
}

BOOL CTextDlg::DestroyWindow() {
  CRect place;
  GetWindowRect(&place);
  WindowX = place.left;
  WindowY = place.top;
  LayerIndex = SelectedIndex(*this, kLayer);
  LayerText = ComboItemText(*this, kLayer, LayerIndex).Left(kLayerTextLimit);
  if (TextDlgReactor != nullptr) acDocManager->removeReactor(TextDlgReactor.get());
  TextDlgReactor.reset();
  return CAcUiDialog::DestroyWindow();
}

}  // namespace kovra
