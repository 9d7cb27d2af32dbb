#include "module/frame/dialog_items.h"

namespace kovra {

void EnableItem(CWnd& dialog, int id, bool enable) {
  if (CWnd* item = dialog.GetDlgItem(id)) item->EnableWindow(enable ? TRUE : FALSE);
}

void EnableItems(CWnd& dialog, std::initializer_list<int> ids, bool enable) {
  for (const int id : ids) EnableItem(dialog, id, enable);
}

bool IsItemEnabled(const CWnd& dialog, int id) {
  const CWnd* item = dialog.GetDlgItem(id);
  return item != nullptr && item->IsWindowEnabled();
}

bool IsItemChecked(const CWnd& dialog, int id) {
  return dialog.IsDlgButtonChecked(id) == BST_CHECKED;
}

void CheckItem(CWnd& dialog, int id, bool check) {
  dialog.CheckDlgButton(id, static_cast<UINT>(check ? BST_CHECKED : BST_UNCHECKED));
}

CString ItemText(const CWnd& dialog, int id) {
  CString text;
  dialog.GetDlgItemText(id, text);
  return text;
}

int ItemNumber(const CWnd& dialog, int id) {
  return static_cast<int>(dialog.GetDlgItemInt(id, nullptr, TRUE));
}

double ItemReal(const CWnd& dialog, int id) {
  return _wtof(ItemText(dialog, id).GetString());
}

int SelectedIndex(CWnd& dialog, int comboId) {
  return static_cast<int>(dialog.SendDlgItemMessage(comboId, CB_GETCURSEL));
}

void SelectIndex(CWnd& dialog, int comboId, int index) {
  dialog.SendDlgItemMessage(comboId, CB_SETCURSEL, static_cast<WPARAM>(index));
}

void AddComboItem(CWnd& dialog, int comboId, const ACHAR* text, int data) {
  const LRESULT index =
      dialog.SendDlgItemMessage(comboId, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
  if (index < 0) return;
  dialog.SendDlgItemMessage(comboId, CB_SETITEMDATA, static_cast<WPARAM>(index), data);
}

}  // namespace kovra
