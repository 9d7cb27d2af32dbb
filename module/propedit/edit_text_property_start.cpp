// What the dialog of text properties shows at its start, and what it remembers.
#include <algorithm>
#include <iterator>
#include <vector>

#include "module/drawing/attachment.h"
#include "module/drawing/layers.h"
#include "module/drawing/property_combos.h"
#include "module/frame/companions/window_ui_lib.h"
#include "module/frame/dialog_items.h"
#include "module/frame/dialog_state.h"
#include "module/frame/reporting.h"
#include "module/propedit/edit_text_property_dialog.h"
#include "module/propedit/edit_text_property_ids.h"
#include "module/propedit/text_property_set_store.h"

namespace kovra {

using namespace editproperty;

namespace {

constexpr ACHAR kDialogName[] = L"EditTextPropertyDialog";
constexpr ACHAR kSetNameKey[] = L"FileName";
constexpr ACHAR kRefScaleKey[] = L"RefScale";

struct StoredText {
  int control;
  const ACHAR* key;
};

// What follows the width of the window.
constexpr DialogItemResize stretching(int id) {
  return {id, 0, 0, 100, 0};
}
constexpr DialogItemResize movingRight(int id) {
  return {id, 100, 0, 100, 0};
}
constexpr DialogItemResize kLayout[] = {
    stretching(kPropertiesFrame), stretching(kLayer),          stretching(kHeight),
    stretching(kWidthFactor),     stretching(kRotation),       stretching(kAlignment),
    stretching(kSetsFrame),       stretching(kSetName),        movingRight(kFirstPick),
    movingRight(kFirstPick + 1),  movingRight(kFirstPick + 2), movingRight(kFirstPick + 3),
    movingRight(kFirstPick + 4),  movingRight(kPickAll),       movingRight(IDOK),
    movingRight(IDCANCEL)};

constexpr StoredText kLists[] = {{kLayer, L"Layer"}, {kAlignment, L"Alignment"}};
constexpr StoredText kFields[] = {
    {kHeight, L"Height"}, {kWidthFactor, L"WidthFactor"}, {kRotation, L"Rotation"}};

void restoreCheck(CWnd& dialog, const DialogStateStore& store, int check, const ACHAR* key) {
  int checked = 0;
  if (store.GetInt(key, checked)) CheckItem(dialog, check, checked != 0);
}

void saveCheck(const CWnd& dialog, DialogStateStore& store, int check, const ACHAR* key) {
  store.SetInt(key, IsItemChecked(dialog, check) ? 1 : 0);
}

}  // namespace

BOOL CEditTextPropertyDialog::OnInitDialog() {
  if (MinWidth < 1) {
    CRect place;
    GetWindowRect(&place);
    MinWidth = place.Width();
    MinHeight = place.Height();
  }
  CAcUiDialog::OnInitDialog();
  SetDialogName(kDialogName);
  SetItemResizing(kLayout, static_cast<int>(std::size(kLayout)));
  FillLists();
  ShowPropertySet();
  restoreState();
  UpdateCheckControls();
  UpdateSetButtons();
  UpdateEditOk();
  return TRUE;
}

void CEditTextPropertyDialog::FillLists() {
  TextList layers;
  CollectLayers(layers);
  fillSorted(kLayer, layers);
  fillAlignments();
  FillSetNames();
}

void CEditTextPropertyDialog::fillSorted(int comboId, const TextList& names) {
  std::vector<const ACHAR*> sorted;
  for (const auto& name : names) sorted.push_back(name.get());
  std::stable_sort(sorted.begin(), sorted.end(),
                   [](const ACHAR* a, const ACHAR* b) { return lstrcmpiW(a, b) < 0; });
  for (const ACHAR* name : sorted) AddComboItem(*this, comboId, name);
}

void CEditTextPropertyDialog::fillAlignments() {
  for (int index = 0; index < kAttachments; ++index) {
    const CString label = ResourceText(kTextJustifications + static_cast<UINT>(index));
    if (!label.IsEmpty()) AddComboItem(*this, kAlignment, label.GetString(), index);
  }
}

void CEditTextPropertyDialog::FillSetNames() {
  SendDlgItemMessage(kSetName, CB_RESETCONTENT);
  TextList names;
  ListTextPropertySets(names);
  fillSorted(kSetName, names);
}

void CEditTextPropertyDialog::ShowPropertySet() {
  SelectComboItem(*this, kLayer, PropertySet.Layer.GetString());
  SetDlgItemText(kHeight, PropertySet.Height.text());
  SetDlgItemText(kWidthFactor, PropertySet.WidthFactor.text());
  SetDlgItemText(kRotation, PropertySet.Rotation.text());
  selectAlignment();
  for (const PropertyRow& row : kProperties) {
    CheckItem(*this, row.check, PropertySet.has(row.bit));
  }
  CheckItem(*this, kRefScale, PropertySet.RefScale);
  UpdateCheckControls();
  UpdateSetButtons();
  UpdateEditOk();
}

/// Modes that no row has leave the selection.
void CEditTextPropertyDialog::selectAlignment() {
  const int wanted = ModesToAttachIndex(PropertySet.HorizontalMode, PropertySet.VerticalMode);
  const int rows = ComboItemCount(*this, kAlignment);
  for (int row = 0; row < rows; ++row) {
    if (ComboItemData(*this, kAlignment, row) == wanted) SelectIndex(*this, kAlignment, row);
  }
}

void CEditTextPropertyDialog::restoreState() {
  DialogStateStore store;
  if (!store.OpenSection(kDialogName)) return;
  placeWindow(store);
  RestoreControls(store);
}

void CEditTextPropertyDialog::placeWindow(const DialogStateStore& store) {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  if (store.GetInt(L"X", left) && store.GetInt(L"Y", top) && store.GetInt(L"CX", width) &&
      store.GetInt(L"CY", height)) {
    SetWindowPos(nullptr, left, top, width, height, SWP_NOZORDER);
  }
  FitWindowToMonitor(GetSafeHwnd(), 1);
}

void CEditTextPropertyDialog::RestoreControls(const DialogStateStore& store) {
  CString text;
  if (GetStateText(store, kSetNameKey, text)) SetDlgItemText(kSetName, text);
  if (!RestoreState) return;
  for (const StoredText& list : kLists) {
    if (GetStateText(store, list.key, text)) {
      SelectComboItem(*this, list.control, text.GetString());
    }
  }
  for (const StoredText& field : kFields) {
    if (GetStateText(store, field.key, text)) SetDlgItemText(field.control, text);
  }
  for (const PropertyRow& row : kProperties) restoreCheck(*this, store, row.check, row.checkKey);
  restoreCheck(*this, store, kRefScale, kRefScaleKey);
}

void CEditTextPropertyDialog::OnDestroy() {
  saveState();
  CAcUiDialog::OnDestroy();
}

void CEditTextPropertyDialog::saveState() const {
  DialogStateStore store;
  if (!store.OpenSection(kDialogName)) return;
  if (!IsIconic()) {
    CRect place;
    GetWindowRect(&place);
    StoreWindowPlace(*this, store);
    store.SetInt(L"CX", place.Width());
    store.SetInt(L"CY", place.Height());
  }
  for (const StoredText& list : kLists) {
    store.SetString(list.key, ItemText(*this, list.control).GetString());
  }
  for (const StoredText& field : kFields) {
    store.SetString(field.key, ItemText(*this, field.control).GetString());
  }
  for (const PropertyRow& row : kProperties) saveCheck(*this, store, row.check, row.checkKey);
  saveCheck(*this, store, kRefScale, kRefScaleKey);
  store.SetString(kSetNameKey, ItemText(*this, kSetName).GetString());
}

}  // namespace kovra
