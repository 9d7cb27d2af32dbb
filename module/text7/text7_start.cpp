#include <cmath>

#include "module/countup/radix_table.h"
#include "module/drawing/current_database.h"
#include "module/drawing/drawing_scale.h"
#include "module/drawing/property_combos.h"
#include "module/drawing/system_variables.h"
#include "module/drawing/text_styles.h"
#include "module/frame/companions/window_ui_lib.h"
#include "module/frame/dialog_items.h"
#include "module/frame/gates.h"
#include "module/params/param_tables.h"
#include "module/text7/text7_dlg.h"
#include "module/text7/text7_ids.h"
#include "module/textcmd/text_row_ids.h"

namespace kovra {

using namespace text7;
using namespace textrows;

double DrawingScale = 1.0;

namespace {

// What a field starts with when the stored settings have nothing for it.
constexpr ACHAR kUsualLayer[] = L"CMNT";
constexpr double kUsualHeight = 2.5;
constexpr double kUsualWidthFactor = 1.0;
constexpr double kUsualLineSpacing = 1.2;

}  // namespace

BOOL CText7Dlg::OnInitDialog() {
  CAcUiDialog::OnInitDialog();
  recordLayout();
  Buttons.Replace(*this, kFirstDirection, kPickBoth);
  DrawingScale = FindDrawingScale(CurrentDatabase());
  Document = acDocManager->curDocument();
  fillLists();
  showSettings();
  loadFields();
  showFields();
  ShowArraySection(Radio == kArray);
  if (offersLines()) LayoutControls();
  UpdateControls();
  UpdateOkState();
  DocReactor = std::make_unique<TxtDlgDocReactor>(Document, this);
  acDocManager->addReactor(DocReactor.get());
  detachInputMethod();
  if (MultiLine) {
    setWindowSize(FullRect.Width(), ChngblHeight);
    FitWindowToMonitor(GetSafeHwnd(), 1);
  }
  if (CWnd* field = GetDlgItem(kValue)) {
    field->SetFocus();
    field->SendMessage(EM_SETSEL, 0, -1);
  }
  return TRUE;
}

void CText7Dlg::fillLists() {
  std::vector<CString> styles;
  ForEachTextStyle(&styles, CollectStyleName);
  for (const CString& name : styles) {
    if (!name.IsEmpty()) AddComboItem(*this, kStyle, name.GetString());
  }
  SendDlgItemMessage(kJustification, CB_RESETCONTENT);
  FillJustifications(*this, kJustification);
  ParamTables tables;
  if (LoadParamTables(tables) != 0) return;
  FillCombo(*this, kLayer, tables.layers);
  FillCombo(*this, kHeight, tables.heights);
  FillCombo(*this, kWidthFactor, tables.widthFactors);
  FillCombo(*this, kRotation, tables.rotations);
  if (offersLines()) FillCombo(*this, kLineSpacing, tables.rowRatios);
}

void CText7Dlg::showSettings() {
  TextSettings settings;
  if (LoadTextSettings(settings, false) == 0) {
    SetWindowPos(nullptr, settings.x, settings.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  }
  FitWindowToMonitor(GetSafeHwnd(), 1);
  const CString& layer = settings.layerText;
  SelectOrType(*this, kLayer, layer.IsEmpty() ? kUsualLayer : layer.GetString());
  CString style;
  GetVar(L"TEXTSTYLE", style);
  SelectOrType(*this, kStyle, style.GetString());

  const double height = aboveZero(settings.height, kUsualHeight);
  const int item = FindNumberItem(*this, kHeight, height, kNoNumber);
  if (item >= 0) {
    SelectIndex(*this, kHeight, item);
  } else {
    showNumber(kHeight, height);
  }
  showNumber(kWidthFactor, aboveZero(settings.widthFactor, kUsualWidthFactor));
  showNumber(kRotation, aboveZero(settings.rotation, 0));
  const int justification = settings.attachmentIndex < 1 ? 0 : settings.attachmentIndex;
  SelectOrType(*this, kJustification,
               ComboItemText(*this, kJustification, justification).GetString());
  if (offersLines()) {
    showNumber(kLineSpacing, aboveZero(settings.coefficient, kUsualLineSpacing));
  }
}

void CText7Dlg::showNumber(int comboId, double number) {
  SelectOrType(*this, comboId, NumberText(number).GetString());
}

void CText7Dlg::showFields() {
  CheckRadioButton(kSingleMode, kArrayMode, kSingleMode + Radio);
  recomputeMultiLine();
  int field = kValue;
  for (const CString& text : TextValue) SetDlgItemText(field++, text);
  if (offersLines()) SetDlgItemText(kLines, MultiLineText);
  FillRadixCombo(*this);
  CheckItem(*this, kCountUp, CountUp);
  SelectIndex(*this, kRadixCombo, Radix);
  if (offersRadixStep()) {
    CheckItem(*this, kStepInDecimal, RadixMode == 0);
    CheckItem(*this, kStepInRadix, RadixMode != 0);
    UpdateRadixControls();
  }
  SetDlgItemInt(kDecimalStep, static_cast<UINT>(CountUpStep), TRUE);
  syncStep(false);
  for (int id = kRows; id <= kColWidth; ++id) SetDlgItemText(id, L"0");
  SetDlgItemInt(kRows, static_cast<UINT>(Rows), TRUE);
  SetDlgItemInt(kCols, static_cast<UINT>(Cols), TRUE);
  if (std::abs(RowHeight) > kNoNumber) SetDlgItemText(kRowHeight, NumberText(RowHeight));
  if (std::abs(ColWidth) > kNoNumber) SetDlgItemText(kColWidth, NumberText(ColWidth));
  Buttons.MarkDirection(Direction);
}

/// These fields take signs, digits and points, or what no input method makes.
void CText7Dlg::detachInputMethod() {
  const auto detach = [this](int id) {
    if (CWnd* field = GetDlgItem(id)) ImmAssociateContext(field->GetSafeHwnd(), nullptr);
  };
  for (const int id :
       {kDecimalStep, kHeight, kWidthFactor, kRotation, kRows, kRowHeight, kCols, kColWidth}) {
    detach(id);
  }
  detach(offersRadixStep() ? kRadixStep : kNumber);
  if (offersLines()) detach(kLineSpacing);
}

}  // namespace kovra
