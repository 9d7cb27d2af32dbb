#include "module/align/text_align_form_dlg.h"

#include "module/align/align_ids.h"
#include "module/align/value_picks.h"
#include "module/drawing/auto_var.h"
#include "module/frame/dialog_items.h"
#include "module/frame/editor_turn.h"
#include "module/frame/reporting.h"

namespace kovra {

using namespace align;

namespace {

constexpr UINT kTemplate = 1739;
constexpr UINT kPickPrompt = 7710;
constexpr UINT kFirstItemName = 7711;

}  // namespace

BEGIN_MESSAGE_MAP(CTextAlignFormDlg, CAcUiDialog)
ON_CONTROL_RANGE(BN_CLICKED, kFirstTick, kLastTick, &CTextAlignFormDlg::OnPropertyTick)
ON_CONTROL_RANGE(BN_CLICKED, kFirstPick, kPickAll, &CTextAlignFormDlg::OnPickValue)
ON_BN_CLICKED(kByPitch, &CTextAlignFormDlg::UpdateControls)
ON_BN_CLICKED(kByGap, &CTextAlignFormDlg::UpdateControls)
ON_CBN_SELENDOK(kLayer, &CTextAlignFormDlg::UpdateControls)
ON_CONTROL_RANGE(BN_CLICKED, kMeasurePitch, kMeasureGap, &CTextAlignFormDlg::OnMeasureSpacing)
END_MESSAGE_MAP()

CTextAlignFormDlg::CTextAlignFormDlg(CWnd* parent, HINSTANCE resources)
    : CAcUiDialog(kTemplate, parent, resources) {}

void CTextAlignFormDlg::UpdateControls() {
  const bool layerIsSet = IsItemChecked(*this, kFirstTick);
  EnableItem(*this, IDOK, !layerIsSet || !hasLockedLayer());
  const bool byPitch = IsItemChecked(*this, kByPitch);
  EnableItems(*this, {kPitch, kMeasurePitch}, byPitch);
  EnableItems(*this, {kGap, kMeasureGap}, !byPitch);
}

/// Whether nothing can be put on the chosen layer: it is locked, or none is chosen.
bool CTextAlignFormDlg::hasLockedLayer() const {
  const int selected = SelectedIndex(*this, kLayer);
  return selected < 0 || ComboItemData(*this, kLayer, selected) != 0;
}

void CTextAlignFormDlg::enableProperty(std::size_t property, bool enable) {
  EnableItem(*this, ComboOf(property), enable);
  EnableItem(*this, PickOf(property), enable);
}

void CTextAlignFormDlg::OnPropertyTick(UINT id) {
  const int tick = static_cast<int>(id);
  enableProperty(static_cast<std::size_t>(tick - kFirstTick), IsItemChecked(*this, tick));
  UpdateControls();
}

void CTextAlignFormDlg::OnPickValue(UINT id) {
  const int button = static_cast<int>(id);
  CString prompt;
  const CString item = ResourceText(kFirstItemName + id - UINT{kFirstPick});
  prompt.Format(ResourceText(kPickPrompt), item.GetString());
  const EditorTurn turn(*this);
  TextValues picked;
  if (!PickTextValues(picked, prompt.GetString())) return;
  for (std::size_t property = 0; property < kTextProperties; ++property) {
    if (button == kPickAll || button == PickOf(property)) showValue(property, picked[property]);
  }
  UpdateControls();
}

void CTextAlignFormDlg::OnMeasureSpacing(UINT id) {
  // The control of the distance stands this far before its button.
  constexpr int kToField = kMeasurePitch - kPitch;
  CAutoVar ortho;
  CAutoVar snap;
  ortho.Set(L"ORTHOMODE", 0);
  snap.Set(L"SNAPMODE", 1);
  CString distance;
  bool measured = false;
  {
    const EditorTurn turn(*this);
    measured = MeasureDistance(distance);
    if (measured) SetDlgItemText(static_cast<int>(id) - kToField, distance);
  }
  if (measured) UpdateData(FALSE);
}

}  // namespace kovra
