#include "module/frame/dialog_state.h"

#include "module/frame/companions/window_ui_lib.h"
#include "module/frame/reporting.h"

namespace kovra {
namespace {

constexpr UINT kCurrentLayerName = 2731;
constexpr UINT kCurrentLayerNameElsewhere = 3901;

}  // namespace

bool GetStateText(const DialogStateStore& store, const ACHAR* key, CString& text) {
  StateStringRef stored;
  if (!store.GetString(key, stored)) return false;
  text = stored.text;
  DialogStateStore::ReleaseString(stored);
  return true;
}

bool GetStateLayer(const DialogStateStore& store, const ACHAR* key, CString& text) {
  if (!GetStateText(store, key, text)) return false;
  if (text.CompareNoCase(ResourceText(kCurrentLayerNameElsewhere)) == 0) {
    text = ResourceText(kCurrentLayerName);
  }
  return true;
}

void GetStateChoice(const DialogStateStore& store, const ACHAR* key, int largest, int& value) {
  int stored = 0;
  if (store.GetInt(key, stored) && stored >= 0 && stored <= largest) value = stored;
}

void GetStateReal(const DialogStateStore& store, const ACHAR* key, double& value) {
  CString text;
  if (GetStateText(store, key, text)) value = _wtof(text.GetString());
}

void RestoreWindowPlace(CWnd& dialog, const DialogStateStore& store, const PlaceKeys& keys) {
  int left = 0;
  int top = 0;
  if (!store.GetInt(keys.left, left) || !store.GetInt(keys.top, top)) return;
  dialog.SetWindowPos(nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  FitWindowToMonitor(dialog.GetSafeHwnd(), 1);
}

void StoreWindowPlace(const CWnd& dialog, DialogStateStore& store, const PlaceKeys& keys) {
  CRect place;
  dialog.GetWindowRect(&place);
  store.SetInt(keys.left, place.left);
  store.SetInt(keys.top, place.top);
}

}  // namespace kovra
