#include "platform/mfc/data_exchange.h"

#include <cwchar>
#include <string>

#include "platform/mfc/controls.h"
#include "platform/mfc/message_boxes.h"
#include "platform/win/base/wide_format.h"
#include "platform/win/base/wide_text.h"
#include "platform/win/windows/window.h"

namespace {

/// What CDataExchange::Fail throws; UpdateData catches it.
struct ExchangeFailed {};

std::wstring textOf(HWND control) {
  return kovra::win::windowText(control);
}

void refuse(CDataExchange* exchange, const wchar_t* message) {
  AfxMessageBox(message);
  exchange->Fail();
}

/// True if nothing but blanks stands behind the number.
bool onlyBlanks(const wchar_t* text) {
  return text[std::wcsspn(text, L" \t")] == 0;
}

/// The radios of the group that begins with `first`, in their order.
template <typename Visit>
void forRadiosFrom(HWND first, Visit visit) {
  int index = 0;
  for (HWND control = first; control != nullptr; control = ::GetWindow(control, GW_HWNDNEXT)) {
    if (control != first && kovra::win::hasStyle(control, WS_GROUP)) return;
    const LRESULT code = ::SendMessageW(control, WM_GETDLGCODE, 0, 0);
    if ((code & DLGC_RADIOBUTTON) != 0) visit(control, index++);
  }
}

}  // namespace

BOOL CWnd::UpdateData(BOOL saveAndValidate) {
  CDataExchange exchange(this, saveAndValidate);
  try {
    DoDataExchange(&exchange);
  } catch (const ExchangeFailed&) {
    return FALSE;
  }
  return TRUE;
}

HWND CDataExchange::PrepareCtrl(int id) {
  const HWND control = ::GetDlgItem(m_pDlgWnd->m_hWnd, id);
  if (control == nullptr) throw ExchangeFailed{};
  last_ = control;
  return control;
}

HWND CDataExchange::PrepareEditCtrl(int id) {
  return PrepareCtrl(id);
}

void CDataExchange::Fail() {
  if (m_bSaveAndValidate && last_ != nullptr) {
    ::SetFocus(last_);
    ::SendMessageW(last_, EM_SETSEL, 0, -1);
  }
  throw ExchangeFailed{};
}

void DDX_Text(CDataExchange* exchange, int id, CString& value) {
  const HWND control = exchange->PrepareEditCtrl(id);
  if (exchange->m_bSaveAndValidate) {
    value = textOf(control).c_str();
  } else {
    ::SetWindowTextW(control, value);
  }
}

void DDX_Text(CDataExchange* exchange, int id, int& value) {
  exchange->PrepareEditCtrl(id);
  const HWND dialog = exchange->m_pDlgWnd->m_hWnd;
  if (!exchange->m_bSaveAndValidate) {
    ::SetDlgItemInt(dialog, id, static_cast<UINT>(value), TRUE);
    return;
  }
  BOOL read = FALSE;
  const UINT number = ::GetDlgItemInt(dialog, id, &read, TRUE);
  if (!read) refuse(exchange, L"Please enter an integer.");
  value = static_cast<int>(number);
}

void DDX_Text(CDataExchange* exchange, int id, double& value) {
  const HWND control = exchange->PrepareEditCtrl(id);
  if (!exchange->m_bSaveAndValidate) {
    ::SetWindowTextW(control, kovra::win::formatWide(L"%.15g", value).c_str());
    return;
  }
  const std::wstring text = textOf(control);
  wchar_t* end = nullptr;
  const double number = _wcstod(text.c_str(), &end);
  if (end == text.c_str() || !onlyBlanks(end)) refuse(exchange, L"Please enter a number.");
  value = number;
}

void DDX_Check(CDataExchange* exchange, int id, int& value) {
  const HWND control = exchange->PrepareCtrl(id);
  if (exchange->m_bSaveAndValidate) {
    value = static_cast<int>(::SendMessageW(control, BM_GETCHECK, 0, 0));
  } else {
    ::SendMessageW(control, BM_SETCHECK, static_cast<WPARAM>(value), 0);
  }
}

void DDX_Radio(CDataExchange* exchange, int id, int& value) {
  const HWND first = exchange->PrepareCtrl(id);
  if (exchange->m_bSaveAndValidate) {
    value = -1;
    forRadiosFrom(first, [&](HWND radio, int index) {
      if (::SendMessageW(radio, BM_GETCHECK, 0, 0) != 0) value = index;
    });
  } else {
    forRadiosFrom(first, [&](HWND radio, int index) {
      ::SendMessageW(radio, BM_SETCHECK, index == value ? BST_CHECKED : BST_UNCHECKED, 0);
    });
  }
}

namespace {

/// The text into the list: selects the item found by `message`, else shows it in the field.
void showInCombo(HWND control, UINT message, const CString& value) {
  const auto text = reinterpret_cast<LPARAM>(value.GetString());
  const auto fromStart = static_cast<WPARAM>(-1);
  const LRESULT found = ::SendMessageW(control, message, fromStart, text);
  if (found == CB_ERR) {
    ::SetWindowTextW(control, value);
  } else {
    ::SendMessageW(control, CB_SETCURSEL, static_cast<WPARAM>(found), 0);
  }
}

void exchangeComboText(CDataExchange* exchange, int id, UINT message, CString& value) {
  const HWND control = exchange->PrepareCtrl(id);
  if (exchange->m_bSaveAndValidate) {
    value = textOf(control).c_str();
  } else {
    showInCombo(control, message, value);
  }
}

}  // namespace

void DDX_CBString(CDataExchange* exchange, int id, CString& value) {
  exchangeComboText(exchange, id, CB_FINDSTRING, value);
}

void DDX_CBStringExact(CDataExchange* exchange, int id, CString& value) {
  exchangeComboText(exchange, id, CB_FINDSTRINGEXACT, value);
}

void DDX_CBIndex(CDataExchange* exchange, int id, int& value) {
  const HWND control = exchange->PrepareCtrl(id);
  if (exchange->m_bSaveAndValidate) {
    value = static_cast<int>(::SendMessageW(control, CB_GETCURSEL, 0, 0));
  } else {
    ::SendMessageW(control, CB_SETCURSEL, static_cast<WPARAM>(static_cast<LONG_PTR>(value)), 0);
  }
}

void DDX_Control(CDataExchange* exchange, int id, CWnd& control) {
  if (control.m_hWnd == nullptr) control.SubclassWindow(exchange->PrepareCtrl(id));
}

void DDV_MaxChars(CDataExchange* exchange, const CString& value, int limit) {
  if (exchange->m_bSaveAndValidate && value.GetLength() > limit) {
    refuse(exchange,
           kovra::win::formatWide(L"Please enter no more than %d characters.", limit).c_str());
  }
}
