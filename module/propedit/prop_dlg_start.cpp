// What the dialog shows at its start, and what it remembers.
#include "module/drawing/group_list.h"
#include "module/drawing/property_combos.h"
#include "module/drawing/text_styles.h"
#include "module/frame/dialog_items.h"
#include "module/frame/dialog_state.h"
#include "module/frame/reporting.h"
#include "module/propedit/prop_dlg.h"
#include "module/propedit/prop_ids.h"

namespace kovra {

using namespace propchange;

namespace {

constexpr ACHAR kSection[] = L"ORVEKovraTextCopyPropDlg";
constexpr UINT kCurrentLayerName = 2731;
constexpr int kNameGroup = 2;

CString tickKey(std::size_t property) {
  CString key;
  key.Format(L"Chk%d", static_cast<int>(property));
  return key;
}

}  // namespace

void CPropDlg::InitPropValues(const GrowingList<AcDbObjectId>& ids) {
  EntityIds = ids;
  PropValues = CommonPropValues(ids);
}

BOOL CPropDlg::OnInitDialog() {
  CAcUiDialog::OnInitDialog();
  fillCombos();
  loadState();
  for (std::size_t property = 0; property < kTextProperties; ++property) {
    CheckItem(*this, TickOf(property), PropChecks[property]);
    showValue(property, PropValues[property]);
  }
  UpdatePropControls();
  return TRUE;
}

void CPropDlg::fillCombos() {
  FillCombo(*this, kHeight, tables_.heights);
  FillCombo(*this, kWidthFactor, tables_.widthFactors);
  FillCombo(*this, kRotation, tables_.rotations);
  fillLayers();
  TextList styles;
  GTxtStyL(styles);
  FillCombo(*this, kStyle, styles);
  FillJustifications(*this, kAlignment);
}

void CPropDlg::fillLayers() {
  constexpr int kFromTheFirst = 1;
  for (GroupList layer(acdbTblNext(L"LAYER", kFromTheFirst)); layer != nullptr;
       layer.reset(acdbTblNext(L"LAYER", 0))) {
    const resbuf* name = FindGroup(layer.get(), kNameGroup);
    if (name != nullptr) AddComboItem(*this, kLayer, name->resval.rstring);
  }
  AddComboItem(*this, kLayer, ResourceText(kCurrentLayerName).GetString());
}

/// A property in which the texts differ starts without its tick.
void CPropDlg::loadState() {
  DialogStateStore store;
  if (store.OpenSection(kSection)) {
    RestoreWindowPlace(*this, store);
    for (std::size_t property = 0; property < kTextProperties; ++property) {
      int stored = 0;
      if (store.GetInt(tickKey(property), stored) && stored > 0) PropChecks[property] = true;
    }
  }
  for (std::size_t property = 0; property < kTextProperties; ++property) {
    if (PropValues[property].IsEmpty()) PropChecks[property] = false;
  }
}

void CPropDlg::OnDestroy() {
  DialogStateStore store;
  if (store.OpenSection(kSection)) {
    if (!IsIconic()) StoreWindowPlace(*this, store);
    for (std::size_t property = 0; property < kTextProperties; ++property) {
      store.SetInt(tickKey(property), IsItemChecked(*this, TickOf(property)) ? 1 : 0);
    }
  }
  CAcUiDialog::OnDestroy();
}

}  // namespace kovra
