#include "module/countup/copy_cup.h"

#include <cmath>
#include <cstdint>
#include <limits>

#include "module/countup/copy_cup_ids.h"
#include "module/countup/radix_table.h"
#include "module/countup/step_fields.h"
#include "module/drawing/current_database.h"
#include "module/drawing/drawing_scale.h"
#include "module/drawing/input_filter.h"
#include "module/drawing/number_text.h"
#include "module/frame/dialog_items.h"
#include "module/frame/gates.h"
#include "module/frame/reporting.h"

namespace kovra {

using namespace copycup;

namespace {

constexpr UINT kPlainTemplate = 526;
constexpr UINT kRadixStepTemplate = 531;

StepFields stepFields = {kDecimalStep, kRadixStep, {true, false}};

UINT chooseTemplate() {
  return CurrentProjectAtLeast(L"10.0") ? kRadixStepTemplate : kPlainTemplate;
}

}  // namespace

BEGIN_MESSAGE_MAP(CCopyCup, CAcUiDialog)
ON_CBN_SELCHANGE(kRadixCombo, &CCopyCup::OnRadixSelected)
ON_BN_CLICKED(kCountUp, &CCopyCup::OnCountUpClicked)
ON_CONTROL_RANGE(BN_CLICKED, kDragMode, kPatternMode, &CCopyCup::OnModeClicked)
ON_BN_CLICKED(kStepInDecimal, &CCopyCup::OnDecimalStepClicked)
ON_BN_CLICKED(kStepInRadix, &CCopyCup::OnRadixStepClicked)
ON_CONTROL_RANGE(BN_CLICKED, kFirstDirection, kLastDirection, &CCopyCup::OnDirectionClicked)
ON_CONTROL_RANGE(BN_CLICKED, kPickBoth, kPickColWidth, &CCopyCup::PickDistance)
ON_CONTROL_RANGE(EN_CHANGE, kDecimalStep, kRadixStep, &CCopyCup::OnTextChanged)
ON_CONTROL_RANGE(EN_KILLFOCUS, kDecimalStep, kColWidth, &CCopyCup::OnFocusLost)
ON_EN_KILLFOCUS(kRadixStep, &CCopyCup::OnRadixStepFocusLost)
END_MESSAGE_MAP()

CCopyCup::CCopyCup(CWnd* parent, HINSTANCE resources)
    : CCopyCup(parent, resources, chooseTemplate()) {}

CCopyCup::CCopyCup(CWnd* parent, HINSTANCE resources, UINT templateId)
    : CAcUiDialog(templateId, parent, resources), templateId_(templateId) {}

bool CCopyCup::offersRadixStep() const {
  return templateId_ == kRadixStepTemplate;
}

BOOL CCopyCup::OnInitDialog() {
  CAcUiDialog::OnInitDialog();
  buttons_.Replace(*this, kFirstDirection, kPickBoth);
  DrawingScale = FindDrawingScale(CurrentDatabase());
  loadState();
  FillRadixCombo(*this);
  showFields();
  started_ = true;
  syncStep(false);
  UpdateModeControls();
  UpdateOkState();
  for (int id = kDecimalStep; id <= kColWidth; ++id) {
    ImmAssociateContext(GetDlgItem(id)->GetSafeHwnd(), nullptr);
  }
  return TRUE;
}

void CCopyCup::showFields() {
  CheckItem(*this, kCountUp, CountUp);
  SelectIndex(*this, kRadixCombo, Radix);
  SetDlgItemInt(kDecimalStep, static_cast<UINT>(CountUpStep), TRUE);
  buttons_.MarkDirection(Direction);
  if (offersRadixStep())
    CheckRadioButton(kStepInDecimal, kStepInRadix, kStepInDecimal + radixMode_);
  CheckRadioButton(kDragMode, kPatternMode, kDragMode + Mode);
  if (Rows > 0) SetDlgItemInt(kRows, static_cast<UINT>(Rows), TRUE);
  if (Cols > 0) SetDlgItemInt(kCols, static_cast<UINT>(Cols), TRUE);
  if (std::abs(RowHeight) > kNoDistance) SetDlgItemText(kRowHeight, FormatDistance(RowHeight));
  if (std::abs(ColWidth) > kNoDistance) SetDlgItemText(kColWidth, FormatDistance(ColWidth));
}

BOOL CCopyCup::DestroyWindow() {
  CollectFields();
  saveState();
  return CAcUiDialog::DestroyWindow();
}

BOOL CCopyCup::PreTranslateMessage(MSG* message) {
  buttons_.RelayEvent(message);
  return CAcUiDialog::PreTranslateMessage(message);
}

void CCopyCup::OnOK() {
  CollectFields();
  const Refusal refusal = firstRefusal();
  if (refusal.message == 0) {
    CAcUiDialog::OnOK();
    return;
  }
  AfxMessageBox(ResourceText(refusal.message).GetString(), MB_ICONEXCLAMATION);
  if (CWnd* field = GetDlgItem(refusal.focus)) field->SetFocus();
}

CCopyCup::Refusal CCopyCup::firstRefusal() const {
  if (CountUp && CountUpStep == 0) return {2762, kDecimalStep};
  if (Mode != kModePattern) return {};
  if (Rows > 1 && IsItemEnabled(*this, kRows) && std::abs(RowHeight) < kNoDistance) {
    return {2764, kRowHeight};
  }
  if (Cols > 1 && IsItemEnabled(*this, kCols) && std::abs(ColWidth) < kNoDistance) {
    return {2766, kColWidth};
  }
  if (Direction == kOneColumn) return Rows < 1 ? Refusal{2763, kRows} : Refusal{};
  if (Direction == kOneRow) return Cols < 1 ? Refusal{2765, kCols} : Refusal{};
  const std::int64_t places = std::int64_t{Rows} * Cols;
  const bool valid = places >= 1 && places <= std::numeric_limits<int>::max();
  return valid ? Refusal{} : Refusal{2770, kRowHeight};
}

void CCopyCup::OnRadixSelected() {
  Radix = SelectedIndex(*this, kRadixCombo);
  UpdateOkState();
  syncStep(false);
}

void CCopyCup::OnCountUpClicked() {
  CountUp = IsItemChecked(*this, kCountUp);
  UpdateModeControls();
  UpdateOkState();
}

void CCopyCup::OnModeClicked(UINT id) {
  Mode = static_cast<int>(id) - kDragMode;
  UpdateModeControls();
  UpdateOkState();
}

void CCopyCup::OnDecimalStepClicked() {
  if (!IsItemEnabled(*this, kStepInRadix)) CheckItem(*this, kStepInRadix, false);
  UpdateOkState();
}

void CCopyCup::OnRadixStepClicked() {
  UpdateOkState();
}

void CCopyCup::OnDirectionClicked(UINT id) {
  Direction = static_cast<int>(id) - kFirstDirection;
  buttons_.MarkDirection(Direction);
  UpdateModeControls();
  UpdateOkState();
  Invalidate();
}

void CCopyCup::OnTextChanged(UINT id) {
  if (!started_) return;
  UpdateOkState();
  syncStep(id != kDecimalStep);
}

void CCopyCup::OnFocusLost(UINT id) {
  if (CleanCountField(static_cast<int>(id))) syncStep(id != kDecimalStep);
}

void CCopyCup::OnRadixStepFocusLost() {
  if (offersRadixStep()) CleanCountField(kRadixStep);
}

bool CCopyCup::CleanCountField(int id) {
  CString text = ItemText(*this, id);
  if (text.IsEmpty()) return false;
  const bool numbersOnly = id == kDecimalStep || id == kRowHeight || id == kColWidth;
  if (FilterInputText(text, numbersOnly) != 0) SetDlgItemText(id, text);
  return true;
}

void CCopyCup::syncStep(bool fromRadix) {
  if (offersRadixStep()) SyncStepFields(*this, stepFields, fromRadix);
}

}  // namespace kovra
