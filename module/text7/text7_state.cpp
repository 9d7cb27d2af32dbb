#include "module/countup/radix_table.h"
#include "module/frame/dialog_items.h"
#include "module/frame/dialog_state.h"
#include "module/frame/gates.h"
#include "module/text7/text7_dlg.h"
#include "module/text7/text7_ids.h"
#include "module/textcmd/text_row_ids.h"

namespace kovra {

using namespace text7;
using namespace textrows;

namespace {

constexpr ACHAR kSection[] = L"ORVEKovraTextDlgV7";
constexpr const ACHAR* kValueKeys[] = {L"TextValue0", L"TextValue1", L"TextValue2", L"TextValue3"};
constexpr ACHAR kStandardStyle[] = L"Standard";

constexpr int kRadixModeOn = kStepInRadix - kStepInDecimal;

}  // namespace

void CText7Dlg::loadFields() {
  ChngblHeight = CompactHeight;
  DialogStateStore store;
  if (!store.OpenSection(kSection)) return;
  GetStateChoice(store, L"Radio", kArray, Radio);
  for (std::size_t i = 0; i < TextValue.size(); ++i) {
    GetStateText(store, kValueKeys[i], TextValue[i]);
  }
  if (offersLines()) {
    GetStateText(store, L"TextValue4", MultiLineText);
    store.GetInt(L"ChngblHeight", ChngblHeight);
  }
  int counts = 0;
  store.GetInt(L"CountUp", counts);
  CountUp = counts != 0;
  GetStateChoice(store, L"Radix", kRadixRows - 1, Radix);
  int radixMode = 0;
  if (offersRadixStep() && store.GetInt(L"RadixMode", radixMode)) {
    RadixMode = radixMode == kRadixModeOn ? kRadixModeOn : 0;
  }
  store.GetInt(L"CountUpStep", CountUpStep);
  GetStateChoice(store, L"Direction", kLastDirection - kFirstDirection, Direction);
  store.GetInt(L"Rows", Rows);
  GetStateReal(store, L"RowHeight", RowHeight);
  store.GetInt(L"Cols", Cols);
  GetStateReal(store, L"ColWidth", ColWidth);
  if (AdoptTextStyleEnabled()) loadAdoption(store);
}

void CText7Dlg::loadAdoption(const DialogStateStore& store) {
  int adopts = 0;
  store.GetInt(L"adoptTextStyle", adopts);
  CheckItem(*this, kAdoptStyle, adopts != 0);
  CString style;
  if (!GetStateText(store, L"textStyle", style)) return;
  SelectStyle(StyleListed(style.GetString()) ? style.GetString() : kStandardStyle);
}

/// What the older dialog of the command starts with too.
void CText7Dlg::saveSettings() {
  CRect place;
  GetWindowRect(&place);
  TextSettings settings;
  settings.x = place.left;
  settings.y = place.top;
  settings.layerText = ItemText(*this, kLayer).Left(kLayerTextLength);
  const int layerIndex = SelectedIndex(*this, kLayer);
  if (layerIndex >= 0) settings.layerIndex = layerIndex;
  settings.height = StoredHeight(ItemReal(*this, kHeight));
  settings.widthFactor = StoredWidth(ItemReal(*this, kWidthFactor));
  settings.rotation = ItemReal(*this, kRotation);
  settings.attachmentIndex = SelectedIndex(*this, kJustification);
  if (offersLines()) settings.coefficient = ItemReal(*this, kLineSpacing);
  SaveTextSettings(settings);
}

void CText7Dlg::saveFields() {
  DialogStateStore store;
  if (!store.OpenSection(kSection)) return;
  store.SetInt(L"Radio", Radio);
  int field = kValue;
  for (std::size_t i = 0; i < TextValue.size(); ++i) {
    TextValue[i] = ItemText(*this, field++);
    store.SetString(kValueKeys[i], TextValue[i].GetString());
  }
  if (offersLines()) {
    MultiLineText = ItemText(*this, kLines);
    store.SetString(L"TextValue4", MultiLineText.GetString());
    if (Radio == kSingle) ChngblHeight = windowHeight();
    store.SetInt(L"ChngblHeight", ChngblHeight);
  }
  store.SetInt(L"CountUp", CountUp ? 1 : 0);
  store.SetInt(L"Radix", Radix);
  if (offersRadixStep()) store.SetInt(L"RadixMode", RadixMode);
  store.SetInt(L"CountUpStep", CountUpStep);
  store.SetInt(L"Direction", Direction);
  store.SetInt(L"Rows", Rows);
  store.SetString(L"RowHeight", ItemText(*this, kRowHeight).GetString());
  store.SetInt(L"Cols", Cols);
  store.SetString(L"ColWidth", ItemText(*this, kColWidth).GetString());
  if (!AdoptTextStyleEnabled() || GetDlgItem(kAdoptStyle) == nullptr) return;
  store.SetInt(L"adoptTextStyle", IsAdoptChecked() ? 1 : 0);
  store.SetString(L"textStyle", ItemText(*this, kStyle).GetString());
}

}  // namespace kovra
