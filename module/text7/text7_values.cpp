#include <algorithm>
#include <cmath>
#include <cstdint>

#include "module/countup/pattern_layout.h"
#include "module/countup/radix_rules.h"
#include "module/countup/radix_table.h"
#include "module/drawing/input_filter.h"
#include "module/drawing/layers.h"
#include "module/drawing/text_styles.h"
#include "module/frame/dialog_items.h"
#include "module/frame/gates.h"
#include "module/text7/split_lines.h"
#include "module/text7/text7_dlg.h"
#include "module/text7/text7_ids.h"
#include "module/textcmd/text_row_ids.h"

namespace kovra {

using namespace text7;
using namespace textrows;

namespace {

// A step field is being rewritten; the change is no input then.
bool rewritingStep = false;

constexpr UINT kVerticalStyleMessage = 2732;
constexpr UINT kRowDistanceMessage = 2764;
constexpr UINT kColDistanceMessage = 2766;
constexpr UINT kTooManyMessage = 3903;
constexpr UINT kLayerNameMessage = 3911;

// More texts than anybody places with one drag; a slip of the finger mustn't fill the memory.
constexpr std::int64_t kLargestArray = 1'000'000;

// With a vertical text style: left, center, right, middle.
constexpr int kVerticalJustifications = 4;

struct Distance {
  int count;
  int distance;
};
constexpr Distance kDistances[] = {{kRows, kRowHeight}, {kCols, kColWidth}};

int checkedMode(const CWnd& dialog) {
  for (int id = kSingleMode; id <= kArrayMode; ++id) {
    if (IsItemChecked(dialog, id)) return id - kSingleMode;
  }
  return kSingle;
}

bool isPositiveNumber(const CString& text) {
  return _wtof(text.GetString()) > kNoNumber;
}

bool hasLineFeed(const CString& text) {
  return text.Find(L'\n') >= 0;
}

}  // namespace

void CText7Dlg::CollectFields() {
  Radio = checkedMode(*this);
  recomputeMultiLine();
  int field = kValue;
  for (CString& text : TextValue) text = TrimmedItemText(*this, field++);
  if (offersLines()) MultiLineText = TrimmedItemText(*this, kLines);
  CountUp = IsItemChecked(*this, kCountUp);
  Radix = SelectedIndex(*this, kRadixCombo);
  CountUpStep = ItemNumber(*this, kDecimalStep);
  Rows = ItemNumber(*this, kRows);
  if (Rows != 0) RowHeight = ItemReal(*this, kRowHeight);
  Cols = ItemNumber(*this, kCols);
  if (Cols != 0) ColWidth = ItemReal(*this, kColWidth);
}

int CText7Dlg::UpdateOkState() {
  Radio = checkedMode(*this);
  if (recomputeMultiLine()) UpdateControls();
  bool ok = !chosenLayerIsLocked();
  followFixedHeight();
  CString value = presentValue();
  followLines(value);
  value.TrimRight();
  ok = ok && !value.IsEmpty() && propertiesAreGiven();
  if (CountsValues()) CountUpStep = ItemNumber(*this, kDecimalStep);
  if (CountsValues() && CountUpStep == 0) ok = false;
  if (Radio == kArray && !distancesAreGiven()) ok = false;
  ok = ok && countsAreValid();
  EnableItem(*this, IDOK, ok);
  if (AdoptTextStyleEnabled()) ApplyAdoption(IsAdoptChecked());
  return ok ? 1 : 0;
}

/// The last item stands for the current layer, and so does a name that isn't listed.
bool CText7Dlg::chosenLayerIsLocked() const {
  const CString layer = ItemText(*this, kLayer);
  const int item = FindComboItem(*this, kLayer, layer.GetString());
  const bool listed = item >= 0 && item != ComboItemCount(*this, kLayer) - 1;
  return IsLayerLocked(listed ? layer.GetString() : nullptr);
}

void CText7Dlg::followFixedHeight() {
  CWnd* height = GetDlgItem(kHeight);
  if (height == nullptr) return;
  if (HasFixedHeight(StyleName().GetString())) {
    AdoptHeight(*height);
  } else {
    ReleaseHeight(*height);
  }
}

CString CText7Dlg::presentValue() const {
  if (CountsValues()) return ItemText(*this, kNumber);
  return ItemText(*this, MultiLine ? kLines : kValue);
}

/// A text of several lines is never rotated.
void CText7Dlg::followLines(const CString& value) {
  if (!offersLines()) return;
  const bool severalLines = HasSeveralLines(value);
  if (severalLines) SetDlgItemText(kRotation, L"0");
  EnableItems(*this, {kRotation, kPickRotation}, !severalLines);
}

bool CText7Dlg::propertiesAreGiven() const {
  for (const int id : {kLayer, kStyle, kHeight, kWidthFactor, kRotation, kJustification}) {
    const CString text = ComboText(*this, id);
    if (text.IsEmpty()) return false;
    if ((id == kHeight || id == kWidthFactor) && !isPositiveNumber(text)) return false;
  }
  const bool spaced = MultiLine && hasLineFeed(ItemText(*this, kLines));
  return !spaced || isPositiveNumber(ComboText(*this, kLineSpacing));
}

bool CText7Dlg::distancesAreGiven() const {
  return std::none_of(std::begin(kDistances), std::end(kDistances), [this](const Distance& pair) {
    return IsItemEnabled(*this, pair.count) && ItemNumber(*this, pair.count) > 1 &&
           std::abs(ItemReal(*this, pair.distance)) <= kNoNumber;
  });
}

bool CText7Dlg::countsAreValid() const {
  return std::none_of(std::begin(kDistances), std::end(kDistances), [this](const Distance& pair) {
    return IsItemEnabled(*this, pair.count) && IsItemShown(*this, pair.count) &&
           ItemNumber(*this, pair.count) < 1;
  });
}

/// The last item, for the current layer, is no name.
bool CText7Dlg::layerCanBe() const {
  const CString layer = ItemText(*this, kLayer);
  return FindComboItem(*this, kLayer, layer.GetString()) == ComboItemCount(*this, kLayer) - 1 ||
         CanBeLayer(layer.GetString());
}

CText7Dlg::Refusal CText7Dlg::firstRefusal() {
  if (!layerCanBe()) return {kLayerNameMessage, kLayer};
  const int justification = SelectedIndex(*this, kJustification);
  if (LiveDataVersionAtLeast(L"10.0") && IsVerticalStyle(StyleName().GetString()) &&
      (justification < 0 || justification >= kVerticalJustifications)) {
    return {kVerticalStyleMessage, 0};
  }
  if (Radio != kArray) return {};
  if (Rows > 1 && IsItemEnabled(*this, kRowHeight) && std::abs(RowHeight) < kNoNumber) {
    return {kRowDistanceMessage, kRowHeight};
  }
  if (Cols > 1 && IsItemEnabled(*this, kColWidth) && std::abs(ColWidth) < kNoNumber) {
    return {kColDistanceMessage, kColWidth};
  }
  const bool tooMany = placeCount({Direction, Rows, Cols}) > kLargestArray;
  return tooMany ? Refusal{kTooManyMessage, Direction == kOneRow ? kCols : kRows} : Refusal{};
}

void CText7Dlg::CleanField(UINT id) {
  const int field = static_cast<int>(id);
  CString text = ItemText(*this, field);
  if (text.IsEmpty()) return;
  const bool since10 = LiveDataVersionAtLeast(L"10.0");
  const bool numbersOnly =
      field == kRowHeight || field == kColWidth || (since10 && field == kDecimalStep);
  // From then on the number may hold full-width digits.
  const bool stays = since10 && field == kNumber;
  if (!stays && FilterInputText(text, numbersOnly) != 0) SetDlgItemText(field, text);
  UpdateOkState();
}

void CText7Dlg::StepFieldChanged(UINT id) {
  if (rewritingStep) return;
  const int field = static_cast<int>(id);
  const int row = field == kDecimalStep ? kDecimalRow : SelectedIndex(*this, kRadixCombo);
  std::wstring text = ItemText(*this, field).GetString();
  if (FilterDigits(text, row) == 0) {
    rewritingStep = true;
    SetDlgItemText(field, text.c_str());
    rewritingStep = false;
    const auto end = static_cast<LPARAM>(text.size());
    SendDlgItemMessage(field, EM_SETSEL, static_cast<WPARAM>(end), end);
    SendDlgItemMessage(field, EM_SCROLLCARET);
  }
  if (field == kDecimalStep) PostMessage(kCheckMessage);
  syncStep(field == kRadixStep);
}

}  // namespace kovra
