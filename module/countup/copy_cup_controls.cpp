#include <cmath>

#include "module/countup/copy_cup.h"
#include "module/countup/copy_cup_ids.h"
#include "module/countup/radix_table.h"
#include "module/frame/dialog_items.h"

namespace kovra {

using namespace copycup;

void CCopyCup::UpdateModeControls() {
  EnableItems(*this, {kRadixLabel, kStepLabel, kRadixCombo, kDecimalStep}, CountUp);
  const bool pattern = Mode == kModePattern;
  const bool rows = pattern && Direction != kOneRow;
  const bool columns = pattern && Direction != kOneColumn;
  for (int id = kFirstDirection; id <= kLastDirection; ++id) EnableItem(*this, id, pattern);
  EnableItems(*this, {kRowsLabel, kRowHeightLabel, kRows, kRowHeight, kPickRowHeight}, rows);
  EnableItems(*this, {kColsLabel, kColWidthLabel, kCols, kColWidth, kPickColWidth}, columns);
  EnableItem(*this, kPickBoth, rows && columns);
}

void CCopyCup::UpdateOkState() {
  bool ok = !offersRadixStep() || updateRadixControls();
  if (CountUp) {
    CountUpStep = ItemNumber(*this, kDecimalStep);
    if (CountUpStep == 0) ok = false;
  }
  const bool stepIsMissing = CountUp && CountUpStep == 0;
  if (!stepIsMissing && !distancesAreGiven()) ok = false;
  EnableItem(*this, IDOK, ok);
}

/// Enables the controls of the step; one of the two fields is edited, the other follows.
/// @return false when the step is to be typed in a numbering system that can't be typed
bool CCopyCup::updateRadixControls() {
  const bool counts = IsItemChecked(*this, kCountUp);
  EnableItems(*this,
              {kRadixLabel, kStepLabel, kRadixCombo, kStepInDecimal, kStepInRadix, kDecimalStep,
               kRadixStep},
              counts);
  if (!counts) return true;
  radixMode_ = IsItemChecked(*this, kStepInRadix) ? 1 : 0;
  EnableItem(*this, radixMode_ == 1 ? kDecimalStep : kRadixStep, false);
  const RadixRules* rules = radixRules(SelectedIndex(*this, kRadixCombo));
  if (rules != nullptr && rules->stepCanBeTypedInRadix) return true;
  EnableItems(*this, {kStepInRadix, kRadixStep}, false);
  return radixMode_ != 1;
}

bool CCopyCup::distancesAreGiven() const {
  constexpr struct {
    int count;
    int distance;
  } kPairs[] = {{kRows, kRowHeight}, {kCols, kColWidth}};
  for (const auto& pair : kPairs) {
    if (IsItemEnabled(*this, pair.count) && ItemNumber(*this, pair.count) > 1 &&
        std::abs(ItemReal(*this, pair.distance)) <= kNoDistance) {
      return false;
    }
  }
  return true;
}

void CCopyCup::CollectFields() {
  CountUp = IsItemChecked(*this, kCountUp);
  if (CountUp) {
    Radix = SelectedIndex(*this, kRadixCombo);
    CountUpStep = ItemNumber(*this, kDecimalStep);
    if (offersRadixStep()) radixMode_ = IsItemChecked(*this, kStepInRadix) ? 1 : 0;
  }
  Mode = IsItemChecked(*this, kPatternMode) ? kModePattern : 0;
  if (Mode != kModePattern) return;
  Rows = ItemNumber(*this, kRows);
  if (Rows != 0) RowHeight = ItemReal(*this, kRowHeight);
  Cols = ItemNumber(*this, kCols);
  if (Cols != 0) ColWidth = ItemReal(*this, kColWidth);
}

}  // namespace kovra
