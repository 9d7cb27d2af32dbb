// What the align dialog shows at its start, and what it remembers.
#include <algorithm>

#include "module/align/align_ids.h"
#include "module/align/text_align_form_dlg.h"
#include "module/drawing/property_combos.h"
#include "module/frame/companions/window_ui_lib.h"
#include "module/frame/dialog_items.h"
#include "module/frame/reporting.h"

namespace kovra {

using namespace align;

namespace {

constexpr ACHAR kDialogName[] = L"Kovra_Text_Align_Dlg";
constexpr ACHAR kSpacingModeKey[] = L"Radio";
constexpr ACHAR kPlaceModeKey[] = L"Align";
constexpr ACHAR kPitchKey[] = L"Edit1";
constexpr ACHAR kGapKey[] = L"Edit2";
constexpr ACHAR kFirstDistance[] = L"10";

constexpr UINT kCountFormat = 7724;
constexpr UINT kMeasureIcon = 1772;
constexpr int kSmallIcon = 16;
constexpr int kLargeIcon = 32;
constexpr int kLargeButton = 40;  // pixels

constexpr int kPlaceButtons[] = {kPlaceDrag, kPlaceOnBase, kPlaceCopy};

struct BuiltinList {
  int combo;
  std::initializer_list<const ACHAR*> items;
};

CString tickKey(std::size_t property) {
  CString key;
  key.Format(L"CheckBox%d", static_cast<int>(property));
  return key;
}

}  // namespace

void CTextAlignFormDlg::SetInput(TextList layers, std::vector<UINT> lockedFlags, TextList styles,
                                 const TextValues& values, int count) {
  layers_ = std::move(layers);
  layerLocked_ = std::move(lockedFlags);
  styles_ = std::move(styles);
  settings_.values = values;
  textCount_ = count;
}

BOOL CTextAlignFormDlg::OnInitDialog() {
  CAcUiDialog::OnInitDialog();
  SetDialogName(kDialogName);
  fillCombos();
  showValues();
  showTicks();
  showPlacing();
  CString countLine;
  countLine.Format(ResourceText(kCountFormat), std::max(textCount_, 0));
  SetDlgItemText(kCountLine, countLine);
  showMeasureIcons();
  UpdateControls();
  restorePlace();
  return TRUE;
}

void CTextAlignFormDlg::fillCombos() {
  static const BuiltinList kLists[] = {
      {kHeight, {L"1.5", L"2.0", L"2.5", L"3.0", L"3.5", L"4.0", L"4.5", L"5.0"}},
      {kWidthFactor, {L"1.0", L"0.9", L"0.8", L"0.7"}},
      {kRotation, {L"0.0", L"90.0", L"-90.0", L"180"}},
  };
  for (int i = 0; i < layers_.size(); ++i) {
    const UINT locked = layerLocked_[static_cast<std::size_t>(i)];
    AddComboItem(*this, kLayer, layers_[i].get(), static_cast<int>(locked));
  }
  FillCombo(*this, kStyle, styles_);
  for (const auto& [combo, items] : kLists) {
    for (const ACHAR* item : items) AddComboItem(*this, combo, item);
  }
  FillJustifications(*this, kAlignment, kAlignJustifications);
}

void CTextAlignFormDlg::showValue(std::size_t property, const CString& value) {
  const int combo = ComboOf(property);
  const bool isNumber = combo == kHeight || combo == kWidthFactor || combo == kRotation;
  if (isNumber) {
    SetDlgItemText(combo, value);
  } else {
    SelectComboBeginning(*this, combo, value.GetString());
  }
}

void CTextAlignFormDlg::showValues() {
  for (std::size_t property = 0; property < kTextProperties; ++property) {
    const CString& value = settings_.values[property];
    showValue(property, value);
    if (value.IsEmpty()) SelectIndex(*this, ComboOf(property), 0);
  }
}

/// A property in which the texts differ starts without its tick.
void CTextAlignFormDlg::showTicks() {
  for (std::size_t property = 0; property < kTextProperties; ++property) {
    const bool differs = settings_.values[property].IsEmpty();
    const bool ticked = storedNumber(tickKey(property)) != 0 && !differs;
    CheckItem(*this, TickOf(property), ticked);
    enableProperty(property, ticked);
  }
}

void CTextAlignFormDlg::showPlacing() {
  CheckRadioButton(kByPitch, kByGap, storedNumber(kSpacingModeKey) == 0 ? kByPitch : kByGap);
  const DWORD last = std::size(kPlaceButtons) - 1;
  const DWORD chosen = std::min(storedNumber(kPlaceModeKey), last);
  for (const int button : kPlaceButtons) CheckItem(*this, button, button == kPlaceButtons[chosen]);
  SetDlgItemText(kPitch, storedDistance(kPitchKey));
  SetDlgItemText(kGap, storedDistance(kGapKey));
}

void CTextAlignFormDlg::showMeasureIcons() {
  CRect inside;
  if (const CWnd* button = GetDlgItem(kMeasurePitch)) button->GetClientRect(&inside);
  const int size = inside.Height() < kLargeButton ? kSmallIcon : kLargeIcon;
  const HANDLE icon = LoadImageW(AfxGetResourceHandle(), MAKEINTRESOURCEW(kMeasureIcon), IMAGE_ICON,
                                 size, size, LR_SHARED);
  for (const int button : {kMeasurePitch, kMeasureGap}) {
    SetDlgItemText(button, L"");
    SendDlgItemMessage(button, BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon));
  }
}

void CTextAlignFormDlg::restorePlace() {
  CRect place;
  if (!GetPixelData(place)) return;
  SetWindowPos(nullptr, place.left, place.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  FitWindowToMonitor(GetSafeHwnd(), 1);
}

DWORD CTextAlignFormDlg::storedNumber(const CString& key) const {
  DWORD number = 0;
  GetDialogData(key, number);
  return number;
}

CString CTextAlignFormDlg::storedDistance(const ACHAR* key) const {
  CString text;
  GetDialogData(key, text);
  return text.IsEmpty() ? CString(kFirstDistance) : text;
}

void CTextAlignFormDlg::collectTicks() {
  settings_.apply.Empty();
  for (std::size_t property = 0; property < kTextProperties; ++property) {
    const bool ticked = IsItemChecked(*this, TickOf(property));
    SetDialogData(tickKey(property), DWORD{ticked});
    if (ticked) settings_.apply.AppendChar(static_cast<ACHAR>(L'0' + property));
  }
}

void CTextAlignFormDlg::collectPlacing() {
  const bool byPitch = IsItemChecked(*this, kByPitch);
  DWORD placing = 0;
  while (placing < std::size(kPlaceButtons) - 1 && !IsItemChecked(*this, kPlaceButtons[placing])) {
    ++placing;
  }
  SetDialogData(kSpacingModeKey, DWORD{!byPitch});
  SetDialogData(kPlaceModeKey, placing);
  SetDialogData(kPitchKey, ItemText(*this, kPitch).GetString());
  SetDialogData(kGapKey, ItemText(*this, kGap).GetString());
  settings_.placeMode = static_cast<PlaceMode>(placing);
  settings_.spacing = {ItemReal(*this, byPitch ? kPitch : kGap),
                       byPitch ? SpacingMode::pitch : SpacingMode::gap};
}

void CTextAlignFormDlg::OnOK() {
  StorePixelData();
  collectTicks();
  collectPlacing();
  for (std::size_t property = 0; property < kTextProperties; ++property) {
    settings_.values[property] = ItemText(*this, ComboOf(property));
  }
  CAcUiDialog::OnOK();
}

void CTextAlignFormDlg::OnCancel() {
  StorePixelData();
  CAcUiDialog::OnCancel();
}

}  // namespace kovra
