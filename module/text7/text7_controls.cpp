#include "module/countup/radix_rules.h"
#include "module/countup/radix_table.h"
#include "module/countup/step_fields.h"
#include "module/frame/dialog_items.h"
#include "module/frame/gates.h"
#include "module/text7/text7_dlg.h"
#include "module/text7/text7_ids.h"

namespace kovra {

using namespace text7;

namespace {

StepFields stepFields = {kDecimalStep, kRadixStep, {false, true}};

/// Shown controls can be used, hidden ones can't.
void showItems(CWnd& dialog, std::initializer_list<int> ids, bool show) {
  for (const int id : ids) {
    CWnd* item = dialog.GetDlgItem(id);
    if (item == nullptr) continue;
    item->EnableWindow(show ? TRUE : FALSE);
    item->ShowWindow(show ? SW_SHOW : SW_HIDE);
  }
}

}  // namespace

/// The gate may have changed since the template was chosen, so both must agree.
bool CText7Dlg::offersRadixStep() const {
  return GetDlgItem(kRadixStep) != nullptr && LiveDataVersionAtLeast(L"10.0");
}

bool CText7Dlg::offersLines() const {
  return GetDlgItem(kLines) != nullptr && LiveDataVersionAtLeast(L"12.0");
}

/// @return whether it changed
bool CText7Dlg::recomputeMultiLine() {
  const bool former = MultiLine;
  MultiLine = Radio == kSingle && offersLines();
  return MultiLine != former;
}

void CText7Dlg::UpdateControls() {
  CountUp = IsItemChecked(*this, kCountUp);
  EnableItem(*this, kCountUp, Radio != kSingle);
  const bool counts = CountsValues();
  showItems(*this, {kValueLabel, kPickValue}, !counts);
  showItems(*this, {kValue}, !counts && !MultiLine);
  showItems(*this, {kLines, kLineSpacingLabel, kLineSpacing}, MultiLine);
  showItems(*this,
            {kPrefixLabel, kNumberLabel, kSuffixLabel, kPrefix, kNumber, kSuffix, kRadixLabel,
             kRadixCombo, kStepLabel, kDecimalStep},
            counts);
  showItems(*this, {kStepInDecimal, kStepInRadix, kRadixStep}, counts && offersRadixStep());
  if (counts && offersRadixStep()) UpdateRadixControls();
  if (Radio != kArray) return;
  const bool rows = Direction != kOneRow;
  const bool columns = Direction != kOneColumn;
  EnableItems(*this, {kRowsLabel, kRowHeightLabel, kRows, kRowHeight, kPickRowHeight}, rows);
  EnableItems(*this, {kColsLabel, kColWidthLabel, kCols, kColWidth, kPickColWidth}, columns);
  EnableItem(*this, kPickBoth, rows && columns);
}

/// Only some numbering systems let the step be typed in them; one field is edited, the other
/// follows.
void CText7Dlg::UpdateRadixControls() {
  const RadixRules* rules = radixRules(SelectedIndex(*this, kRadixCombo));
  const bool canBeTyped = rules != nullptr && rules->stepCanBeTypedInRadix;
  EnableItem(*this, kStepInRadix, canBeTyped);
  if (!canBeTyped) {
    CheckItem(*this, kStepInDecimal, true);
    CheckItem(*this, kStepInRadix, false);
  }
  const bool typedInRadix = canBeTyped && IsItemChecked(*this, kStepInRadix);
  EnableItem(*this, kRadixStep, typedInRadix);
  EnableItem(*this, kDecimalStep, !typedInRadix);
}

void CText7Dlg::ModeChanged(UINT id) {
  if (MultiLine) ChngblHeight = windowHeight();
  const int former = Radio;
  Radio = static_cast<int>(id) - kSingleMode;
  recomputeMultiLine();
  if (Radio != former && (Radio == kArray || former == kArray)) ShowArraySection(Radio == kArray);
  UpdateControls();
  UpdateOkState();
  if (!offersLines()) return;
  if (Radio != kArray) {
    setWindowSize(FullRect.Width(), Radio == kSingle ? ChngblHeight : CompactHeight);
  }
  // Two modes may have the same height; then no size message came.
  LayoutControls();
  Invalidate();
}

void CText7Dlg::SetInteractive(bool enable) {
  for (CWnd* child = GetWindow(GW_CHILD); child != nullptr; child = child->GetNextWindow()) {
    if (child->GetDlgCtrlID() != kArraySection) child->EnableWindow(enable ? TRUE : FALSE);
  }
  if (enable) {
    UpdateControls();
    UpdateOkState();
    CountUp = IsItemChecked(*this, kCountUp);
    UpdateControls();
    UpdateOkState();
  }
  EnableWindow(enable ? TRUE : FALSE);
}

void CText7Dlg::syncStep(bool fromRadix) {
  if (offersRadixStep()) SyncStepFields(*this, stepFields, fromRadix);
}

void CText7Dlg::RadixChanged() {
  if (!offersRadixStep()) return;
  UpdateRadixControls();
  syncStep(false);
}

}  // namespace kovra
