#include <algorithm>
#include <string>
#include <vector>

#include "platform/win/base/wide_text.h"
#include "platform/win/dialogs/dialogs.h"
#include "platform/win/windows/focus.h"
#include "platform/win/windows/key_translation.h"
#include "platform/win/windows/window.h"
#include "platform/win/windows/window_api.h"

namespace {

using kovra::win::canTakeFocus;
using kovra::win::dialogControls;
using kovra::win::hasStyle;
using kovra::win::isInside;

/// The direct control of a dialog that holds `window`: a combo box for its field.
HWND controlHolding(const std::vector<HWND>& controls, HWND window) {
  const auto found = std::find_if(controls.begin(), controls.end(),
                                  [=](HWND control) { return isInside(control, window); });
  return found != controls.end() ? *found : nullptr;
}

bool isReachable(HWND control) {
  return IsWindowVisible(control) && canTakeFocus(control);
}

/// In a dialog that isn't shown yet its controls count by their own style.
bool isTabStop(HWND dialog, HWND control) {
  const bool shown =
      IsWindowVisible(dialog) ? IsWindowVisible(control) != FALSE : hasStyle(control, WS_VISIBLE);
  return shown && canTakeFocus(control) && hasStyle(control, WS_TABSTOP);
}

LRESULT codeOf(HWND control, const MSG* message) {
  return SendMessageW(control, WM_GETDLGCODE, message != nullptr ? message->wParam : 0,
                      reinterpret_cast<LPARAM>(message));
}

/// The focus as a key of the keyboard moves it: a field is selected as a whole.
void moveFocusByKey(HWND control) {
  SetFocus(control);
  if (GetFocus() == control && (codeOf(control, nullptr) & DLGC_HASSETSEL) != 0) {
    SendMessageW(control, EM_SETSEL, 0, -1);
  }
}

void moveByTab(HWND dialog, HWND from) {
  const bool back = GetKeyState(VK_SHIFT) < 0;
  const HWND next = GetNextDlgTabItem(dialog, from, back ? TRUE : FALSE);
  if (next != nullptr) moveFocusByKey(next);
}

void moveByArrow(HWND dialog, HWND from, bool back) {
  const HWND next = GetNextDlgGroupItem(dialog, from, back ? TRUE : FALSE);
  if (next == nullptr || next == from) return;
  if ((codeOf(next, nullptr) & DLGC_RADIOBUTTON) != 0) {
    SendMessageW(next, BM_CLICK, 0, 0);
  } else {
    moveFocusByKey(next);
  }
}

void sendCommand(HWND dialog, int id) {
  const HWND button = GetDlgItem(dialog, id);
  if (button != nullptr && !IsWindowEnabled(button)) return;
  SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(static_cast<UINT>(id), BN_CLICKED),
               reinterpret_cast<LPARAM>(button));
}

/// Enter: the push button with the focus, else the dialog's default button.
void pressDefault(HWND dialog, HWND focused) {
  const LRESULT code = codeOf(focused, nullptr);
  if ((code & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) != 0) {
    sendCommand(GetParent(focused), GetDlgCtrlID(focused));
    return;
  }
  const LRESULT answer = SendMessageW(dialog, DM_GETDEFID, 0, 0);
  sendCommand(dialog, HIWORD(answer) == DC_HASDEFID ? static_cast<int>(LOWORD(answer)) : IDOK);
}

/// The character behind a lone "&" in a caption, in lower case; 0 if there is none.
wchar_t accessKeyOf(HWND control) {
  const std::wstring text = kovra::win::windowText(control);
  for (std::size_t i = 0; i + 1 < text.size(); ++i) {
    if (text[i] != L'&') continue;
    if (text[i + 1] != L'&') return kovra::win::lowerCase(text.substr(i + 1, 1)).front();
    ++i;
  }
  return 0;
}

/// The control that an access key means: the one with it, or the next one behind a label.
HWND accessTarget(const std::vector<HWND>& controls, std::size_t index) {
  if ((codeOf(controls[index], nullptr) & DLGC_STATIC) == 0) {
    return isReachable(controls[index]) ? controls[index] : nullptr;
  }
  for (std::size_t i = index + 1; i < controls.size(); ++i) {
    const bool label = (codeOf(controls[i], nullptr) & DLGC_STATIC) != 0;
    if (!label && isReachable(controls[i])) return controls[i];
  }
  return nullptr;
}

bool pressAccessKey(HWND dialog, wchar_t character) {
  const wchar_t wanted = kovra::win::lowerCase(std::wstring(1, character)).front();
  const std::vector<HWND> controls = dialogControls(dialog);
  for (std::size_t i = 0; i < controls.size(); ++i) {
    const std::wstring className = kovra::win::classNameOf(controls[i]);
    const bool hasCaption = className == L"BUTTON" || className == L"STATIC";
    if (!hasCaption || !IsWindowVisible(controls[i]) || accessKeyOf(controls[i]) != wanted)
      continue;
    const HWND target = accessTarget(controls, i);
    if (target == nullptr) continue;
    if ((codeOf(target, nullptr) & DLGC_BUTTON) != 0) {
      SendMessageW(target, BM_CLICK, 0, 0);
    } else {
      moveFocusByKey(target);
    }
    return true;
  }
  return false;
}

/// The dialog whose keys these are: a dialog that stands in another one as a control shares the
/// tab order, default button and Cancel of the outer one.
HWND keyboardOwner(HWND dialog) {
  while (hasStyle(dialog, DS_CONTROL) && kovra::win::isDialog(GetParent(dialog))) {
    dialog = GetParent(dialog);
  }
  return dialog;
}

/// True when the key means something to the dialog itself.
bool dialogKey(HWND dialog, const MSG& message) {
  const LRESULT code = codeOf(message.hwnd, &message);
  if ((code & DLGC_WANTALLKEYS) != 0) return false;
  switch (message.wParam) {
    case VK_TAB:
      if ((code & DLGC_WANTTAB) != 0) return false;
      moveByTab(dialog, message.hwnd);
      return true;
    case VK_LEFT:
    case VK_UP:
    case VK_RIGHT:
    case VK_DOWN:
      if ((code & DLGC_WANTARROWS) != 0) return false;
      moveByArrow(dialog, message.hwnd, message.wParam == VK_LEFT || message.wParam == VK_UP);
      return true;
    case VK_RETURN:
      pressDefault(dialog, message.hwnd);
      return true;
    case VK_ESCAPE:
      sendCommand(dialog, IDCANCEL);
      return true;
    default:
      return false;
  }
}

}  // namespace

HWND GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous) {
  std::vector<HWND> controls = dialogControls(dialog);
  if (controls.empty()) return nullptr;
  if (previous) std::reverse(controls.begin(), controls.end());
  const HWND from = controlHolding(controls, control);
  // Without a control the search begins at the first one.
  const auto place = std::find(controls.begin(), controls.end(), from);
  const bool found = place != controls.end();
  std::rotate(controls.begin(), found ? place + 1 : controls.begin(), controls.end());
  const auto next = std::find_if(controls.begin(), controls.end(),
                                 [=](HWND other) { return isTabStop(dialog, other); });
  return next != controls.end() ? *next : nullptr;
}

HWND GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous) {
  const std::vector<HWND> controls = dialogControls(dialog);
  const auto place = std::find(controls.begin(), controls.end(), controlHolding(controls, control));
  if (place == controls.end()) return nullptr;
  // A group begins at a control with the style and ends before the next one.
  auto first = place;
  while (first != controls.begin() && !hasStyle(*first, WS_GROUP)) --first;
  auto last = place + 1;
  while (last != controls.end() && !hasStyle(*last, WS_GROUP)) ++last;
  std::vector<HWND> group(first, last);
  if (previous) std::reverse(group.begin(), group.end());
  std::rotate(group.begin(), std::find(group.begin(), group.end(), *place) + 1, group.end());
  const auto next = std::find_if(group.begin(), group.end(), [](HWND other) {
    return hasStyle(other, WS_VISIBLE) && canTakeFocus(other) &&
           (codeOf(other, nullptr) & DLGC_STATIC) == 0;
  });
  return next != group.end() ? *next : nullptr;
}

BOOL IsDialogMessageW(HWND dialog, MSG* message) {
  if (message == nullptr || !kovra::win::isDialog(dialog) || !isInside(dialog, message->hwnd)) {
    return FALSE;
  }
  dialog = keyboardOwner(dialog);
  if (message->message == WM_KEYDOWN && dialogKey(dialog, *message)) return TRUE;
  if (message->message == WM_SYSCHAR &&
      pressAccessKey(dialog, static_cast<wchar_t>(message->wParam))) {
    return TRUE;
  }
  // A character that the control has no use for may be an access key, too.
  const bool isCharacter = message->message == WM_CHAR && message->wParam > VK_SPACE;
  if (isCharacter && (codeOf(message->hwnd, message) & DLGC_WANTCHARS) == 0 &&
      pressAccessKey(dialog, static_cast<wchar_t>(message->wParam))) {
    return TRUE;
  }
  kovra::win::translateAndDispatch(*message);
  return TRUE;
}
