#include <algorithm>
#include <climits>
#include <string>

#include "platform/win/base/wide_text.h"
#include "platform/win/windows/window.h"
#include "platform/win/windows/window_api.h"

LRESULT SendDlgItemMessageW(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam) {
  return SendMessageW(GetDlgItem(dialog, id), message, wParam, lParam);
}

BOOL SetDlgItemTextW(HWND dialog, int id, LPCWSTR text) {
  return SetWindowTextW(GetDlgItem(dialog, id), text);
}

UINT GetDlgItemTextW(HWND dialog, int id, LPWSTR buffer, int capacity) {
  return static_cast<UINT>(GetWindowTextW(GetDlgItem(dialog, id), buffer, capacity));
}

BOOL SetDlgItemInt(HWND dialog, int id, UINT value, BOOL isSigned) {
  const std::wstring text =
      isSigned ? std::to_wstring(static_cast<int>(value)) : std::to_wstring(value);
  return SetDlgItemTextW(dialog, id, text.c_str());
}

namespace {

/// Digits with an optional sign between blanks, as far as they make a number in the range.
bool readInteger(const std::wstring& text, bool isSigned, long long& value) {
  const auto first = text.find_first_not_of(L" \t");
  if (first == std::wstring::npos) return false;
  std::size_t at = first;
  const bool negative = isSigned && text[at] == L'-';
  if (negative) ++at;
  const std::size_t digits = at;
  value = 0;
  for (; at < text.size() && text[at] >= L'0' && text[at] <= L'9'; ++at) {
    value = value * 10 + (text[at] - L'0');
    if (value > UINT_MAX) return false;
  }
  if (at == digits || text.find_first_not_of(L" \t", at) != std::wstring::npos) return false;
  if (negative) value = -value;
  return !isSigned || (value >= INT_MIN && value <= INT_MAX);
}

}  // namespace

UINT GetDlgItemInt(HWND dialog, int id, BOOL* translated, BOOL isSigned) {
  long long value = 0;
  const bool read =
      readInteger(kovra::win::windowText(GetDlgItem(dialog, id)), isSigned != FALSE, value);
  if (translated != nullptr) *translated = read ? TRUE : FALSE;
  return read ? static_cast<UINT>(value) : 0;
}

BOOL CheckDlgButton(HWND dialog, int id, UINT state) {
  const HWND button = GetDlgItem(dialog, id);
  if (button == nullptr) return FALSE;
  SendMessageW(button, BM_SETCHECK, state, 0);
  return TRUE;
}

UINT IsDlgButtonChecked(HWND dialog, int id) {
  return static_cast<UINT>(SendDlgItemMessageW(dialog, id, BM_GETCHECK, 0, 0));
}

BOOL CheckRadioButton(HWND dialog, int first, int last, int checked) {
  for (const HWND child : kovra::win::childrenOf(dialog)) {
    const int id = GetDlgCtrlID(child);
    if (id < first || id > last || kovra::win::classNameOf(child) != L"BUTTON") continue;
    SendMessageW(child, BM_SETCHECK, id == checked ? BST_CHECKED : BST_UNCHECKED, 0);
  }
  return TRUE;
}
