#include "module/frame/dialog_items.h"

#include <cmath>

namespace kovra {
namespace {

/// CB_ERR also for a combo box that the template doesn't have.
LRESULT comboMessage(const CWnd& dialog, int comboId, UINT message, WPARAM wParam = 0,
                     LPARAM lParam = 0) {
  const CWnd* combo = dialog.GetDlgItem(comboId);
  return combo != nullptr ? combo->SendMessage(message, wParam, lParam) : CB_ERR;
}

WPARAM asIndex(int index) {
  return static_cast<WPARAM>(index);
}

LPARAM asText(const ACHAR* text) {
  return reinterpret_cast<LPARAM>(text);
}

}  // namespace

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

bool IsItemShown(const CWnd& dialog, int id) {
  const CWnd* item = dialog.GetDlgItem(id);
  return item != nullptr && (item->GetStyle() & WS_VISIBLE) != 0;
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

CString TrimmedItemText(const CWnd& dialog, int id) {
  CString text = ItemText(dialog, id);
  text.TrimRight();
  return text;
}

int ItemNumber(const CWnd& dialog, int id) {
  return static_cast<int>(dialog.GetDlgItemInt(id, nullptr, TRUE));
}

double ItemReal(const CWnd& dialog, int id) {
  return _wtof(ItemText(dialog, id).GetString());
}

int SelectedIndex(const CWnd& dialog, int comboId) {
  return static_cast<int>(comboMessage(dialog, comboId, CB_GETCURSEL));
}

void SelectIndex(CWnd& dialog, int comboId, int index) {
  comboMessage(dialog, comboId, CB_SETCURSEL, asIndex(index));
}

void AddComboItem(CWnd& dialog, int comboId, const ACHAR* text) {
  comboMessage(dialog, comboId, CB_ADDSTRING, 0, asText(text));
}

void AddComboItem(CWnd& dialog, int comboId, const ACHAR* text, int data) {
  const LRESULT index = comboMessage(dialog, comboId, CB_ADDSTRING, 0, asText(text));
  if (index < 0) return;
  comboMessage(dialog, comboId, CB_SETITEMDATA, static_cast<WPARAM>(index), data);
}

int ComboItemData(const CWnd& dialog, int comboId, int index) {
  const LRESULT data = comboMessage(dialog, comboId, CB_GETITEMDATA, asIndex(index));
  return data == CB_ERR ? 0 : static_cast<int>(data);
}

int ComboItemCount(const CWnd& dialog, int comboId) {
  const LRESULT count = comboMessage(dialog, comboId, CB_GETCOUNT);
  return count > 0 ? static_cast<int>(count) : 0;
}

CString ComboItemText(const CWnd& dialog, int comboId, int index) {
  CString text;
  const LRESULT length = comboMessage(dialog, comboId, CB_GETLBTEXTLEN, asIndex(index));
  if (length <= 0) return text;
  ACHAR* buffer = text.GetBuffer(static_cast<int>(length));
  comboMessage(dialog, comboId, CB_GETLBTEXT, asIndex(index), asText(buffer));
  text.ReleaseBuffer();
  return text;
}

CString ComboText(const CWnd& dialog, int comboId) {
  const int selected = SelectedIndex(dialog, comboId);
  return selected >= 0 ? ComboItemText(dialog, comboId, selected) : ItemText(dialog, comboId);
}

int FindComboItem(const CWnd& dialog, int comboId, const ACHAR* text) {
  return static_cast<int>(
      comboMessage(dialog, comboId, CB_FINDSTRINGEXACT, asIndex(-1), asText(text)));
}

int FindNumberItem(const CWnd& dialog, int comboId, double number, double tolerance) {
  const int count = ComboItemCount(dialog, comboId);
  for (int index = 0; index < count; ++index) {
    const double item = _wtof(ComboItemText(dialog, comboId, index).GetString());
    if (std::fabs(item - number) <= tolerance) return index;
  }
  return -1;
}

bool SelectComboItem(CWnd& dialog, int comboId, const ACHAR* text) {
  const int index = FindComboItem(dialog, comboId, text);
  if (index < 0) return false;
  SelectIndex(dialog, comboId, index);
  return true;
}

bool SelectComboBeginning(CWnd& dialog, int comboId, const ACHAR* text) {
  return comboMessage(dialog, comboId, CB_SELECTSTRING, asIndex(-1), asText(text)) != CB_ERR;
}

void SelectOrType(CWnd& dialog, int comboId, const ACHAR* text) {
  if (!SelectComboItem(dialog, comboId, text)) dialog.SetDlgItemText(comboId, text);
}

}  // namespace kovra
