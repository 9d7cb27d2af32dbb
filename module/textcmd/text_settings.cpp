#include "module/textcmd/text_settings.h"

#include "module/drawing/number_text.h"
#include "module/frame/companions/dialog_state_lib.h"
#include "module/frame/dialog_state.h"
#include "module/frame/gates.h"
#include "module/frame/reporting.h"

namespace kovra {
namespace {

constexpr UINT kSettingsUnreadable = 2741;

constexpr const ACHAR* kSection = L"KOVRA_TEXT";
constexpr const ACHAR* kXKey = L"TEXT_DLG_POS_X";
constexpr const ACHAR* kYKey = L"TEXT_DLG_POS_Y";
constexpr const ACHAR* kLayerIndexKey = L"TEXT_LAYER_INDEX";
constexpr const ACHAR* kLayerTextKey = L"TEXT_LAYER_VALUE";
constexpr const ACHAR* kHeightKey = L"TEXT_H";
constexpr const ACHAR* kCoefficientKey = L"TEXT_COEFFICIENT";
constexpr const ACHAR* kWidthFactorKey = L"TEXT_WF";
constexpr const ACHAR* kRotationKey = L"TEXT_ROT";
constexpr const ACHAR* kAttachmentKey = L"TEXT_ATTACH_INDEX";

bool hasCoefficient() {
  return DataVersionAtLeast(L"12.0");
}

bool getReal(const DialogStateStore& store, const ACHAR* key, double& value) {
  CString text;
  if (!GetStateText(store, key, text)) return false;
  value = _wtof(text);
  return true;
}

/// Up to 8 digits behind the point, and at least one.
bool setReal(DialogStateStore& store, const ACHAR* key, double value) {
  CString digits;
  digits.Format(L"%.8f", value);
  std::wstring text = digits.GetString();
  TrimNumberTail(text);
  if (text.find(L'.') == std::wstring::npos) text += L".0";
  return store.SetString(key, text.c_str());
}

void getLayerText(const DialogStateStore& store, CString& text) {
  if (GetStateLayer(store, kLayerTextKey, text)) text = text.Left(kLayerTextLength);
}

bool read(const DialogStateStore& store, TextSettings& settings) {
  if (!store.GetInt(kXKey, settings.x) || !store.GetInt(kYKey, settings.y) ||
      !store.GetInt(kLayerIndexKey, settings.layerIndex)) {
    return false;
  }
  getLayerText(store, settings.layerText);
  if (!getReal(store, kHeightKey, settings.height)) return false;
  if (hasCoefficient()) getReal(store, kCoefficientKey, settings.coefficient);
  return getReal(store, kWidthFactorKey, settings.widthFactor) &&
         getReal(store, kRotationKey, settings.rotation) &&
         store.GetInt(kAttachmentKey, settings.attachmentIndex);
}

bool write(DialogStateStore& store, const TextSettings& settings) {
  if (!store.SetInt(kXKey, settings.x) || !store.SetInt(kYKey, settings.y) ||
      !store.SetInt(kLayerIndexKey, settings.layerIndex)) {
    return false;
  }
  store.SetString(kLayerTextKey, settings.layerText.Left(kLayerTextLength));
  if (!setReal(store, kHeightKey, settings.height)) return false;
  if (hasCoefficient()) setReal(store, kCoefficientKey, settings.coefficient);
  return setReal(store, kWidthFactorKey, settings.widthFactor) &&
         setReal(store, kRotationKey, settings.rotation) &&
         store.SetInt(kAttachmentKey, settings.attachmentIndex);
}

}  // namespace

int LoadTextSettings(TextSettings& settings, bool report) {
  settings = {};
  DialogStateStore store;
  if (store.OpenSection(kSection) && read(store, settings)) return 0;
  if (report) ShowMessage(kSettingsUnreadable);
  return -1;
}

int SaveTextSettings(const TextSettings& settings) {
  DialogStateStore store;
  return store.OpenSection(kSection) && write(store, settings) ? 0 : -1;
}

int WriteDefaultTextSettings() {
  DialogStateStore store;
  const bool written = store.OpenSection(kSection) && store.SetInt(kXKey, 800) &&
                       store.SetInt(kYKey, 400) && store.SetInt(kLayerIndexKey, 0) &&
                       setReal(store, kHeightKey, kUsualTextHeight) &&
                       setReal(store, kWidthFactorKey, kUsualTextWidthFactor) &&
                       setReal(store, kRotationKey, 0.0) && store.SetInt(kAttachmentKey, 0);
  return written ? 0 : -1;
}

}  // namespace kovra
