#include "module/propedit/edit_text_property_dialog.h"

#include <algorithm>
#include <iterator>

#include "module/drawing/attachment.h"
#include "module/frame/dialog_items.h"
#include "module/frame/size_grip.h"
#include "module/propedit/edit_text_property_ids.h"

namespace kovra {

using namespace editproperty;

namespace {

constexpr UINT kTemplate = 1596;

}  // namespace

BEGIN_MESSAGE_MAP(CEditTextPropertyDialog, CAcUiDialog)
ON_CONTROL_RANGE(BN_CLICKED, kFirstCheck, kLastCheck, &CEditTextPropertyDialog::OnCheckClicked)
ON_CONTROL_RANGE(BN_CLICKED, kFirstPick, kPickAll, &CEditTextPropertyDialog::OnPickClicked)
ON_BN_CLICKED(kLoadSet, &CEditTextPropertyDialog::LoadNamedSet)
ON_BN_CLICKED(kSaveSet, &CEditTextPropertyDialog::SaveNamedSet)
ON_BN_CLICKED(kDeleteSet, &CEditTextPropertyDialog::DeleteNamedSet)
ON_CBN_SELCHANGE(kSetName, &CEditTextPropertyDialog::OnSetSelected)
ON_CBN_EDITCHANGE(kSetName, &CEditTextPropertyDialog::UpdateSetButtons)
ON_WM_DESTROY()
ON_WM_SIZE()
ON_WM_GETMINMAXINFO()
ON_WM_PAINT()
ON_WM_NCHITTEST()
END_MESSAGE_MAP()

CEditTextPropertyDialog::CEditTextPropertyDialog(TextPropertySet& set, bool restore, CWnd* parent,
                                                 HINSTANCE resources)
    : CAcUiDialog(kTemplate, parent, resources), PropertySet(set), RestoreState(restore) {}

void CEditTextPropertyDialog::OnOK() {
  CollectPropertySet();
  CAcUiDialog::OnOK();
}

void CEditTextPropertyDialog::OnCheckClicked(UINT id) {
  UpdateCheckControls(static_cast<int>(id));
  UpdateEditOk();
}

void CEditTextPropertyDialog::OnPickClicked(UINT id) {
  CollectPropertySet();
  PickMask = kAllProperties;
  for (const PropertyRow& row : kProperties) {
    if (row.pick == static_cast<int>(id)) PickMask = row.bit;
  }
  EndDialog(static_cast<int>(kPickFromDrawing));
}

/// The name's field doesn't show the item yet.
void CEditTextPropertyDialog::OnSetSelected() {
  EnableItems(*this, {kLoadSet, kSaveSet, kDeleteSet}, true);
}

void CEditTextPropertyDialog::CollectPropertySet() {
  PropertySet.Layer = ItemText(*this, kLayer);
  PropertySet.Height.set(ItemText(*this, kHeight).GetString());
  PropertySet.WidthFactor.set(ItemText(*this, kWidthFactor).GetString());
  PropertySet.Rotation.set(ItemText(*this, kRotation).GetString());
  const int selected = SelectedIndex(*this, kAlignment);
  if (selected >= 0) {
    int horizontal = 0;
    int vertical = 0;
    AttachIndexToModes(ComboItemData(*this, kAlignment, selected), horizontal, vertical);
    PropertySet.takeHorizontalMode(horizontal);
    PropertySet.takeVerticalMode(vertical);
  }
  PropertySet.Mask = 0;
  for (const PropertyRow& row : kProperties) {
    if (IsItemChecked(*this, row.check)) PropertySet.Mask |= row.bit;
  }
  PropertySet.RefScale = IsItemChecked(*this, kRefScale);
}

void CEditTextPropertyDialog::UpdateCheckControls() {
  for (const PropertyRow& row : kProperties) UpdateCheckControls(row.check);
}

void CEditTextPropertyDialog::UpdateCheckControls(int check) {
  const PropertyRow& row = kProperties[check - kFirstCheck];
  EnableItems(*this, {row.value, row.pick}, IsItemChecked(*this, check));
}

void CEditTextPropertyDialog::UpdateEditOk() {
  const bool gives =
      std::any_of(std::begin(kProperties), std::end(kProperties),
                  [this](const PropertyRow& row) { return IsItemChecked(*this, row.check); });
  EnableItem(*this, IDOK, gives);
}

void CEditTextPropertyDialog::OnGetMinMaxInfo(MINMAXINFO* limits) {
  CAcUiDialog::OnGetMinMaxInfo(limits);
  if (MinWidth < 1 || MinHeight < 1) return;
  limits->ptMinTrackSize = {MinWidth, MinHeight};
  limits->ptMaxTrackSize.y = MinHeight;
}

void CEditTextPropertyDialog::OnSize(UINT type, int width, int height) {
  CAcUiDialog::OnSize(type, width, height);
  MoveSizeGrip(*this, GripRect, width, height);
}

void CEditTextPropertyDialog::OnPaint() {
  PaintSizeGrip(*this, GripRect);
}

LRESULT CEditTextPropertyDialog::OnNcHitTest(CPoint point) {
  return IsOnSizeGrip(*this, GripRect, point) ? HTBOTTOMRIGHT : CAcUiDialog::OnNcHitTest(point);
}

}  // namespace kovra
