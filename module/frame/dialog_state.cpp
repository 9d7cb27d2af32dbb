#include "module/frame/dialog_state.h"

#include "module/frame/companions/window_ui_lib.h"

namespace kovra {

bool GetStateText(const DialogStateStore& store, const ACHAR* key, CString& text) {
  StateStringRef stored;
  if (!store.GetString(key, stored)) return false;
  text = stored.text;
  DialogStateStore::ReleaseString(stored);
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

void RestoreWindowPlace(CWnd& dialog, const DialogStateStore& store) {
  int left = 0;
  int top = 0;
  if (!store.GetInt(L"X", left) || !store.GetInt(L"Y", top)) return;
  dialog.SetWindowPos(nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  FitWindowToMonitor(dialog.GetSafeHwnd(), 1);
}

void StoreWindowPlace(const CWnd& dialog, DialogStateStore& store) {
  CRect place;
  dialog.GetWindowRect(&place);
  store.SetInt(L"X", place.left);
  store.SetInt(L"Y", place.top);
}

}  // namespace kovra
