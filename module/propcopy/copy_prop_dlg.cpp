#include "module/propcopy/copy_prop_dlg.h"

#include "module/drawing/input_filter.h"
#include "module/frame/dialog_items.h"
#include "module/propcopy/copy_prop_ids.h"

namespace kovra {

using namespace copyprop;

namespace {

bool isChecked(UINT state) {
  return (state & LVIS_STATEIMAGEMASK) == INDEXTOSTATEIMAGEMASK(2);
}

}  // namespace

BEGIN_MESSAGE_MAP(CCopyPropDlg, CAcUiDialog)
ON_BN_CLICKED(kUseTags, &CCopyPropDlg::UpdateControls)
ON_EN_CHANGE(kTags, &CCopyPropDlg::UpdateControls)
ON_NOTIFY(LVN_ITEMCHANGED, kTagRows, &CCopyPropDlg::OnTagRowChanged)
ON_BN_CLICKED(kPickTag, &CCopyPropDlg::OnPickTag)
ON_CONTROL_RANGE(BN_CLICKED, kFirstPick, kLastPick, &CCopyPropDlg::OnPickValue)
ON_CONTROL_RANGE(BN_CLICKED, kFirstTick, kLastTick, &CCopyPropDlg::OnTick)
ON_CONTROL_RANGE(CBN_KILLFOCUS, kHeight, kRotation, &CCopyPropDlg::OnNumberLeft)
ON_CONTROL_RANGE(CBN_EDITCHANGE, kLayer, kRotation, &CCopyPropDlg::OnComboText)
ON_CONTROL_RANGE(CBN_SELCHANGE, kLayer, kAlignment, &CCopyPropDlg::OnComboSelection)
ON_WM_DRAWITEM()
END_MESSAGE_MAP()

CCopyPropDlg::CCopyPropDlg(UINT templateId, CWnd* parent, HINSTANCE resources)
    : CAcUiDialog(templateId, parent, resources), fields_(templateId) {}

void CCopyPropDlg::OnOK() {
  ReadCopyPropFields();
  CAcUiDialog::OnOK();
}

BOOL CCopyPropDlg::DestroyWindow() {
  if (!initGuard_) {
    ReadCopyPropFields();
    saveState();
  }
  return CAcUiDialog::DestroyWindow();
}

void CCopyPropDlg::ReadCopyPropFields() {
  fields_.TagMode = kNoTags;
  if (tagRows_.GetCheck(0)) fields_.TagMode = kNameTags;
  if (tagRows_.GetCheck(1)) fields_.TagMode = kSenbanTags;
  if (IsItemChecked(*this, kUseTags)) fields_.TagMode = kListedTags;
  fields_.Tags = TrimmedItemText(*this, kTags);
  for (int property = 0; property < fields_.PropertyCount; ++property) {
    const auto place = static_cast<std::size_t>(property);
    fields_.Ticks[place] = IsItemChecked(*this, TickOf(property));
    fields_.Values[place] = ItemText(*this, ComboOf(property));
  }
  if (fields_.TemplateId == kDrawingsTemplate) {
    fields_.Scope = SelectedIndex(*this, kScope);
    fields_.UseDimScale = IsItemChecked(*this, kUseDimScale);
  } else {
    fields_.Scope = IsItemChecked(*this, kDrawingRadio) ? kDrawingScope : kSelectionScope;
  }
  if (fields_.PropertyCount > kCopyAlignment) {
    fields_.AlignIndex = SelectedIndex(*this, kAlignment);
  }
}

void CCopyPropDlg::UpdateControls() {
  if (initGuard_) return;
  ReadCopyPropFields();
  const bool listed = fields_.TagMode == kListedTags;
  EnableItems(*this, {kTags, kPickTag}, listed);
  EnableItem(*this, kTagRows, !listed);
  EnableItem(*this, kUseDimScale, fields_.Ticks[kCopyHeight]);
  for (int property = 0; property < fields_.PropertyCount; ++property) {
    const bool ticked = fields_.Ticks[static_cast<std::size_t>(property)];
    EnableItems(*this, {ComboOf(property), PickOf(property)}, ticked);
  }
  EnableItem(*this, IDOK, tagsAreChosen() && valuesAreGiven());
}

bool CCopyPropDlg::tagsAreChosen() const {
  return fields_.TagMode == kListedTags ? !fields_.Tags.IsEmpty() : fields_.TagMode != kNoTags;
}

/// At least one property is ticked, and none of those lacks its value.
bool CCopyPropDlg::valuesAreGiven() const {
  bool anyTicked = false;
  for (std::size_t property = 0; property < kCopyProperties; ++property) {
    if (!fields_.Ticks[property]) continue;
    anyTicked = true;
    if (fields_.Values[property].IsEmpty()) return false;
  }
  return anyTicked;
}

void CCopyPropDlg::OnTagRowChanged(NMHDR* notification, LRESULT* result) {
  *result = 0;
  const auto& change = *reinterpret_cast<const NMLISTVIEW*>(notification);
  const bool isChange = isChecked(change.uNewState) != isChecked(change.uOldState);
  if (initGuard_ || (change.uChanged & LVIF_STATE) == 0 || !isChange) return;
  if (isChecked(change.uNewState)) {
    for (int row = 0; row < tagRows_.GetItemCount(); ++row) {
      if (row != change.iItem && tagRows_.GetCheck(row)) tagRows_.SetCheck(row, FALSE);
    }
    UpdateControls();
  } else if (checkedTagRows() == 0) {
    tagRows_.SetCheck(change.iItem);
  }
}

/// The row's own controls follow from its tick like everything else.
void CCopyPropDlg::OnTick(UINT /*id*/) {
  UpdateControls();
}

// These two look at their own field alone; whatever calls UpdateControls next brings the whole rule
// back.
void CCopyPropDlg::OnComboText(UINT id) {
  EnableItem(*this, IDOK, !ItemText(*this, static_cast<int>(id)).IsEmpty());
}

void CCopyPropDlg::OnComboSelection(UINT id) {
  EnableItem(*this, IDOK, !ComboText(*this, static_cast<int>(id)).IsEmpty());
}

void CCopyPropDlg::OnNumberLeft(UINT id) {
  const int combo = static_cast<int>(id);
  CString text = ItemText(*this, combo);
  if (FilterInputText(text, false) != 0) SetDlgItemText(combo, text);
}

void CCopyPropDlg::OnDrawItem(int id, LPDRAWITEMSTRUCT item) {
  if (id != kPickTag) {
    CAcUiDialog::OnDrawItem(id, item);
    return;
  }
  UINT state = DFCS_BUTTONPUSH;
  if ((item->itemState & ODS_SELECTED) != 0) state |= DFCS_PUSHED;
  if ((item->itemState & ODS_DISABLED) != 0) state |= DFCS_INACTIVE;
  CRect place(item->rcItem);
  DrawFrameControl(item->hDC, &place, DFC_BUTTON, state);
  DrawIconEx(item->hDC, place.left + (place.Width() - iconSize_) / 2,
             place.top + (place.Height() - iconSize_) / 2, pickIcon_, iconSize_, iconSize_, 0,
             nullptr, DI_NORMAL);
  if ((item->itemState & ODS_FOCUS) == 0) return;
  constexpr int kFocusMargin = 3;
  place.DeflateRect(kFocusMargin, kFocusMargin);
  DrawFocusRect(item->hDC, &place);
}

}  // namespace kovra
