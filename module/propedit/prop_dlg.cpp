#include "module/propedit/prop_dlg.h"

#include "module/drawing/auto_var.h"
#include "module/drawing/entity_pick.h"
#include "module/drawing/group_list.h"
#include "module/drawing/layers.h"
#include "module/drawing/system_variables.h"
#include "module/frame/dialog_items.h"
#include "module/frame/editor_turn.h"
#include "module/frame/reporting.h"
#include "module/propedit/change_entity.h"
#include "module/propedit/prop_ids.h"

namespace kovra {

using namespace propchange;

namespace {

constexpr UINT kTemplate = 525;
constexpr UINT kLayerLocked = 2822;
constexpr UINT kTextsNotChanged = 3920;

/// Numbers that are this near stand for the same item of a combo box.
constexpr double kTolerance = 0.0001;

UINT promptOf(UINT button) {
  switch (static_cast<int>(button)) {
    case PickOf(kLayerProperty):
      return 2730;
    case PickOf(kStyleProperty):
      return 2724;
    case PickOf(kHeightProperty):
      return 2725;
    case PickOf(kWidthFactorProperty):
      return 2726;
    case PickOf(kRotationProperty):
      return 2727;
    case PickOf(kAlignmentProperty):
      return 2728;
    default:
      return 2729;
  }
}

bool isNumber(std::size_t property) {
  return property == kHeightProperty || property == kWidthFactorProperty ||
         property == kRotationProperty;
}

/// The list of the entity that the user picks, a click beside one asks again; null when the user
/// cancels or answers with nothing.
GroupList pickEntity(UINT button) {
  const CString prompt = ResourceText(promptOf(button));
  ads_name entity = {};
  PickAnswer answer = PickAnswer::missed;
  while (answer == PickAnswer::missed) answer = PickNestedEntity(prompt.GetString(), entity);
  return GroupList(answer == PickAnswer::picked ? acdbEntGet(entity) : nullptr);
}

}  // namespace

BEGIN_MESSAGE_MAP(CPropDlg, CAcUiDialog)
ON_WM_DESTROY()
ON_CONTROL_RANGE(BN_CLICKED, kFirstTick, kLastTick, &CPropDlg::OnTick)
ON_CONTROL_RANGE(CBN_SELCHANGE, kLayer, kAlignment, &CPropDlg::OnValueChanged)
ON_CONTROL_RANGE(CBN_EDITCHANGE, kLayer, kAlignment, &CPropDlg::OnValueChanged)
ON_CONTROL_RANGE(BN_CLICKED, kFirstPick, kPickAll, &CPropDlg::PickPropValues)
END_MESSAGE_MAP()

CPropDlg::CPropDlg(CWnd* parent, HINSTANCE resources, const ParamTables& tables)
    : CAcUiDialog(kTemplate, parent, resources), tables_(tables), names_(LoadAttachNames()) {}

void CPropDlg::OnTick(UINT id) {
  const int tick = static_cast<int>(id);
  PropChecks[static_cast<std::size_t>(tick - kFirstTick)] = IsItemChecked(*this, tick);
  UpdatePropControls();
}

void CPropDlg::OnValueChanged(UINT /*id*/) {
  UpdatePropControls();
}

/// The place of a value in the list of its property; -1 when it isn't there.
int CPropDlg::findValue(std::size_t property, const CString& value) const {
  const int combo = ComboOf(property);
  return isNumber(property) ? FindNumberItem(*this, combo, _wtof(value.GetString()), kTolerance)
                            : FindComboItem(*this, combo, value.GetString());
}

/// An empty value leaves its field empty.
void CPropDlg::showValue(std::size_t property, const CString& value) {
  const int index = value.IsEmpty() ? -1 : findValue(property, value);
  SelectIndex(*this, ComboOf(property), index);
  if (index < 0) SetDlgItemText(ComboOf(property), value);
}

void CPropDlg::UpdatePropControls() {
  bool something = false;
  for (std::size_t property = 0; property < kTextProperties; ++property) {
    const bool checked = IsItemChecked(*this, TickOf(property));
    EnableItems(*this, {ComboOf(property), PickOf(property)}, checked);
    if (!checked) continue;
    CString value = ComboText(*this, ComboOf(property));
    if (!value.TrimRight().IsEmpty()) something = true;
  }
  EnableItem(*this, IDOK, something && !layerIsLocked());
}

/// The last item of the layers.
bool CPropDlg::standsForCurrentLayer() const {
  return SelectedIndex(*this, kLayer) == ComboItemCount(*this, kLayer) - 1;
}

/// Whether the texts are to be put on a layer that takes none.
bool CPropDlg::layerIsLocked() const {
  if (!IsItemChecked(*this, TickOf(kLayerProperty))) return false;
  CString name = ComboText(*this, kLayer);
  return IsLayerLocked(standsForCurrentLayer() ? nullptr : name.TrimRight().GetString());
}

void CPropDlg::PickPropValues(UINT id) {
  {
    const EditorTurn turn(*this);
    takePicked(id);
  }
  UpdatePropControls();
}

void CPropDlg::takePicked(UINT id) {
  CAutoVar snap;
  snap.Set(L"SNAPMODE", 0);
  for (std::size_t property = 0; property < kTextProperties; ++property) {
    PropChecks[property] = IsItemChecked(*this, TickOf(property));
  }
  const GroupList list = pickEntity(id);
  const TextKind kind = TextKindOf(list.get());
  if (kind != TextKind::text && kind != TextKind::attribute) return;
  TextValues picked = {L"", L"STANDARD", L"", L"1", L"0", names_[0]};
  ReadPropValues(list.get(), kind, names_, picked);
  const int button = static_cast<int>(id);
  for (std::size_t property = 0; property < kTextProperties; ++property) {
    const bool counts = button == kPickAll || (button == PickOf(property) && PropChecks[property]);
    if (counts && !picked[property].IsEmpty()) showPicked(property, picked[property]);
  }
}

/// A locked layer stays out of the field; the user is told when it would have been used.
void CPropDlg::showPicked(std::size_t property, const CString& value) {
  const bool isLayer = property == kLayerProperty && findValue(property, value) >= 0;
  if (!isLayer || !IsLayerLocked(value.GetString())) return showValue(property, value);
  if (!PropChecks[kLayerProperty]) return;
  AfxMessageBox(PrintfResourceText(kLayerLocked, value.GetString()));
}

void CPropDlg::OnOK() {
  collectFields();
  EndDialog(changeTexts() ? IDOK : IDCANCEL);
}

/// A field without a text leaves its property as each text has it.
void CPropDlg::collectFields() {
  for (std::size_t property = 0; property < kTextProperties; ++property) {
    PropValues[property].Empty();
    PropChecks[property] = IsItemChecked(*this, TickOf(property));
    if (!PropChecks[property]) continue;
    PropValues[property] = TrimmedItemText(*this, ComboOf(property));
    if (PropValues[property].IsEmpty()) PropChecks[property] = false;
  }
  if (!PropChecks[kLayerProperty] || !standsForCurrentLayer()) return;
  CString current;
  if (GetVar(L"CLAYER", current) == 0) PropValues[kLayerProperty] = current;
}

/// @return whether one of the texts was changed at least
bool CPropDlg::changeTexts() const {
  const TextChange change = TextChangeOf(PropChecks, PropValues, SelectedIndex(*this, kAlignment));
  // Each text that gets an alignment is moved by a command of its own.
  CAutoVar echo;
  echo.Set(L"CMDECHO", 0);
  int changed = 0;
  int refused = 0;
  for (const AcDbObjectId& id : EntityIds) {
    ads_name entity = {};
    if (acdbGetAdsName(entity, id) != Acad::eOk) continue;
    const ChangeResult result = ChangeEntity(entity, change);
    if (result == ChangeResult::changed) ++changed;
    if (result == ChangeResult::refused) ++refused;
  }
  if (refused > 0) acutPrintf(ResourceText(kTextsNotChanged).GetString(), refused);
  return changed > 0;
}

}  // namespace kovra
