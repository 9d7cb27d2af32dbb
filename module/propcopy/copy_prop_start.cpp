// What the property copy dialog shows at its start.
#include "module/drawing/property_combos.h"
#include "module/frame/companions/project_data_lib.h"
#include "module/frame/dialog_items.h"
#include "module/frame/reporting.h"
#include "module/params/param_tables.h"
#include "module/propcopy/copy_prop_dlg.h"
#include "module/propcopy/copy_prop_ids.h"

namespace kovra {

using namespace copyprop;

namespace {

constexpr UINT kPickTagIcon = 1770;
constexpr int kSmallIcon = 16;
constexpr int kLargeIcon = 32;

constexpr UINT kTagRowNames[] = {2775, 2776};
constexpr ACHAR kTagColumn[] = L"Tag";
constexpr int kTagColumnWidth = 128;  // pixels at 96 dots an inch
constexpr int kUsualDotsPerInch = 96;

constexpr UINT kFirstScopeName = 2823;
constexpr double kFieldToButton = 0.8;

int scaledToScreen(int pixels) {
  const HDC screen = GetDC(nullptr);
  const int dots = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  return dots > kUsualDotsPerInch ? pixels * dots / kUsualDotsPerInch : pixels;
}

}  // namespace

BOOL CCopyPropDlg::OnInitDialog() {
  CAcUiDialog::OnInitDialog();
  loadPickIcon();
  prepareTagRows();
  if (fields_.TemplateId != kFourPropertiesTemplate) fillAlignments();
  if (fields_.TemplateId == kDrawingsTemplate) fillScopes();
  fillParamLists();
  loadState();
  showTags();
  showProperties();
  showScope();
  initGuard_ = false;
  UpdateControls();
  closeInputMethods();
  return TRUE;
}

void CCopyPropDlg::loadPickIcon() {
  CRect inside;
  if (const CWnd* button = GetDlgItem(kPickTag)) button->GetClientRect(&inside);
  iconSize_ = inside.Height() >= kLargeIcon ? kLargeIcon : kSmallIcon;
  pickIcon_ = static_cast<HICON>(LoadImageW(AfxGetResourceHandle(), MAKEINTRESOURCEW(kPickTagIcon),
                                            IMAGE_ICON, iconSize_, iconSize_, LR_SHARED));
}

void CCopyPropDlg::prepareTagRows() {
  tagRows_.SubclassDlgItem(kTagRows, this);
  tagRows_.SetExtendedStyle(tagRows_.GetExtendedStyle() | LVS_EX_CHECKBOXES);
  tagRows_.InsertColumn(0, kTagColumn, LVCFMT_LEFT, scaledToScreen(kTagColumnWidth));
  for (const UINT name : kTagRowNames) {
    tagRows_.InsertItem(tagRows_.GetItemCount(), ResourceText(name).GetString());
  }
}

void CCopyPropDlg::fillAlignments() {
  SendDlgItemMessage(kAlignment, CB_RESETCONTENT);
  FillJustifications(*this, kAlignment);
  fields_.PropertyCount = kCopyProperties;
  CRect button;
  if (const CWnd* pick = GetDlgItem(kFirstPick)) pick->GetWindowRect(&button);
  const auto height = static_cast<LPARAM>(kFieldToButton * button.Height());
  for (int property = 0; property < kCopyProperties; ++property) {
    constexpr auto kSelectionField = static_cast<WPARAM>(-1);
    SendDlgItemMessage(ComboOf(property), CB_SETITEMHEIGHT, kSelectionField, height);
  }
}

void CCopyPropDlg::fillScopes() {
  SendDlgItemMessage(kScope, CB_RESETCONTENT);
  const UINT count = HasProjectContext() != 0 ? kProjectScope + 1 : kDrawingScope + 1;
  for (UINT scope = 0; scope < count; ++scope) {
    AddComboItem(*this, kScope, ResourceText(kFirstScopeName + scope).GetString());
  }
}

void CCopyPropDlg::fillParamLists() {
  ParamTables tables;
  if (LoadParamTables(tables) != 0) return;
  FillCombo(*this, kLayer, tables.layers);
  FillCombo(*this, kHeight, tables.heights);
  FillCombo(*this, kWidthFactor, tables.widthFactors);
  FillCombo(*this, kRotation, tables.rotations);
}

void CCopyPropDlg::showTags() {
  const bool listed = fields_.TagMode == kListedTags;
  tagRows_.SetCheck(0, fields_.TagMode == kNameTags || (listed && storedTagRows_ == 1));
  tagRows_.SetCheck(1, fields_.TagMode == kSenbanTags || (listed && storedTagRows_ == 2));
  CheckItem(*this, kUseTags, listed);
  SetDlgItemText(kTags, fields_.Tags);
}

void CCopyPropDlg::showProperties() {
  for (int property = 0; property < fields_.PropertyCount; ++property) {
    const auto place = static_cast<std::size_t>(property);
    const CString& value = fields_.Values[place];
    if (!value.IsEmpty()) SelectOrType(*this, ComboOf(property), value.GetString());
    CheckItem(*this, TickOf(property), fields_.Ticks[place]);
  }
}

void CCopyPropDlg::showScope() {
  const bool reachesDrawings = fields_.TemplateId == kDrawingsTemplate && HasProjectContext() != 0;
  if (reachesDrawings && PresetDrawingCount() > 0) {
    EnableItem(*this, kScope, false);
    takePresetDrawings();
    fields_.Scope = kChosenDrawingsScope;
  }
  if (!reachesDrawings && fields_.Scope > kDrawingScope) fields_.Scope = kDrawingScope;
  if (fields_.TemplateId == kDrawingsTemplate) {
    SelectIndex(*this, kScope, fields_.Scope);
    CheckItem(*this, kUseDimScale, fields_.UseDimScale);
  } else {
    CheckRadioButton(kSelectionRadio, kDrawingRadio, kSelectionRadio + fields_.Scope);
  }
}

void CCopyPropDlg::takePresetDrawings() {
  constexpr int kPathLength = 512;
  for (int i = 0; i < PresetDrawingCount(); ++i) {
    ACHAR path[kPathLength] = {};
    if (GetPresetDrawing(i, path, kPathLength)) fields_.PresetDrawings.Add(path);
  }
}

void CCopyPropDlg::closeInputMethods() {
  ImmAssociateContext(GetDlgItem(kTags)->GetSafeHwnd(), nullptr);
  for (int property = 0; property < fields_.PropertyCount; ++property) {
    ImmAssociateContext(GetDlgItem(ComboOf(property))->GetSafeHwnd(), nullptr);
  }
}

}  // namespace kovra
