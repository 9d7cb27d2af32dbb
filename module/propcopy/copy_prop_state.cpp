// What the property copy dialog remembers, whichever of its templates it had.
#include <string>

#include "module/drawing/number_text.h"
#include "module/drawing/property_combos.h"
#include "module/drawing/system_variables.h"
#include "module/frame/dialog_items.h"
#include "module/frame/dialog_state.h"
#include "module/frame/reporting.h"
#include "module/propcopy/copy_prop_dlg.h"
#include "module/propcopy/copy_prop_ids.h"

namespace kovra {

using namespace copyprop;

namespace {

constexpr char kSection[] = "KOVRA_ATR_COPYPROPDLG";
constexpr PlaceKeys kPlace = {L"TEXT_DLG_POS_X", L"TEXT_DLG_POS_Y"};
constexpr ACHAR kTagModeKey[] = L"TagMode";
constexpr ACHAR kTagsKey[] = L"Tags";
constexpr ACHAR kScopeKey[] = L"Radio";
constexpr ACHAR kTagRowsKey[] = L"LstBox";
constexpr ACHAR kUseDimScaleKey[] = L"UseDimScale";

CString valueKey(int property) {
  CString key;
  key.Format(L"CmbValue%d", property);
  return key;
}

CString tickKey(int property) {
  CString key;
  key.Format(L"CmbChk%d", property);
  return key;
}

/// What a property starts with that has no value yet.
CString firstValue(int property) {
  double size = 0;
  switch (property) {
    case kCopyHeight:
      return GetVar(L"TEXTSIZE", size) == 0 ? DecimalText(size) : CString(L"2.5");
    case kCopyWidthFactor:
      return L"1";
    case kCopyRotation:
      return L"0";
    case kCopyAlignment:
      return ResourceText(kTextJustifications);
    default:
      return {};
  }
}

}  // namespace

void CCopyPropDlg::loadState() {
  DialogStateStore store;
  if (store.OpenSection(kSection)) {
    RestoreWindowPlace(*this, store, kPlace);
    loadValues(store);
    loadTags(store);
    GetStateChoice(store, kScopeKey, kProjectScope, fields_.Scope);
    int useDimScale = fields_.UseDimScale ? 1 : 0;
    if (fields_.TemplateId == kDrawingsTemplate) store.GetInt(kUseDimScaleKey, useDimScale);
    fields_.UseDimScale = useDimScale != 0;
  }
  completeValues();
}

void CCopyPropDlg::loadValues(const DialogStateStore& store) {
  for (int property = 0; property < fields_.PropertyCount; ++property) {
    const auto place = static_cast<std::size_t>(property);
    (property == kCopyLayer ? GetStateLayer : GetStateText)(store, valueKey(property),
                                                            fields_.Values[place]);
    int ticked = 0;
    store.GetInt(tickKey(property), ticked);
    fields_.Ticks[place] = ticked != 0;
  }
}

void CCopyPropDlg::loadTags(const DialogStateStore& store) {
  store.GetInt(kTagModeKey, fields_.TagMode);
  GetStateText(store, kTagsKey, fields_.Tags);
  if (fields_.TagMode == kListedTags) store.GetInt(kTagRowsKey, storedTagRows_);
}

/// The layer may be empty; the other properties get a value, without a needless end.
void CCopyPropDlg::completeValues() {
  for (int property = kCopyHeight; property < fields_.PropertyCount; ++property) {
    CString& value = fields_.Values[static_cast<std::size_t>(property)];
    if (value.IsEmpty()) value = firstValue(property);
    std::wstring text = value.GetString();
    TrimNumberTail(text);
    value = text.c_str();
  }
}

void CCopyPropDlg::saveState() {
  DialogStateStore store;
  if (!store.OpenSection(kSection)) return;
  StoreWindowPlace(*this, store, kPlace);
  for (int property = 0; property < fields_.PropertyCount; ++property) {
    const auto place = static_cast<std::size_t>(property);
    store.SetString(valueKey(property), fields_.Values[place].GetString());
    store.SetInt(tickKey(property), fields_.Ticks[place] ? 1 : 0);
  }
  store.SetInt(kTagModeKey, fields_.TagMode);
  store.SetString(kTagsKey, fields_.Tags.GetString());
  store.SetInt(kScopeKey, fields_.Scope);
  if (fields_.TagMode == kListedTags) store.SetInt(kTagRowsKey, checkedTagRows());
  if (fields_.TemplateId == kDrawingsTemplate) {
    store.SetInt(kUseDimScaleKey, fields_.UseDimScale ? 1 : 0);
  }
}

int CCopyPropDlg::checkedTagRows() const {
  return (tagRows_.GetCheck(0) ? 1 : 0) + (tagRows_.GetCheck(1) ? 2 : 0);
}

}  // namespace kovra
