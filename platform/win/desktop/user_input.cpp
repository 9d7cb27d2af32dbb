#include "platform/win/desktop/user_input.h"

#include <algorithm>

#include "platform/win/base/wide_text.h"
#include "platform/win/controls/button_control.h"
#include "platform/win/controls/edit_control.h"
#include "platform/win/controls/up_down_control.h"
#include "platform/win/desktop/input_keys.h"
#include "platform/win/desktop/input_targets.h"
#include "platform/win/dialogs/dialogs.h"
#include "platform/win/windows/focus.h"
#include "platform/win/windows/message_queue.h"
#include "platform/win/windows/table_state.h"
#include "platform/win/windows/window.h"
#include "platform/win/windows/window_api.h"

namespace kovra::win {
namespace {

bool canBeClicked(HWND control) {
  const std::wstring className = classNameOf(control);
  if (className == L"BUTTON") return buttonKind(control) != BS_GROUPBOX;
  if (stateOf<UpDownState>(control) != nullptr) return false;  // which of its arrows?
  return className != L"STATIC" || hasStyle(control, SS_NOTIFY);
}

InputResult clickAt(HWND control, POINT place, UINT pressMessage) {
  const LPARAM where = moveCursorTo(control, place);
  deliver(control, WM_MOUSEMOVE, 0, where);
  deliver(control, pressMessage, MK_LBUTTON, where);
  if (!IsWindow(control)) return {};
  if (auto result = reachable(control); !result) {
    result.error += " since the focus moved";
    return result;
  }
  deliver(control, WM_LBUTTONUP, 0, where);
  return {};
}

InputResult click(HWND control, UINT pressMessage) {
  if (auto result = reachable(control); !result) return result;
  if (!canBeClicked(control)) return refused(control, "can't be clicked");
  return clickAt(control, middleOf(control), pressMessage);
}

/// The edit of a field or combo box, or the one that is open in a table; null for other controls.
HWND fieldOf(HWND control) {
  if (stateOf<EditState>(control) != nullptr) return control;
  const HWND inner = GetWindow(control, GW_CHILD);
  return stateOf<EditState>(inner) != nullptr ? inner : nullptr;
}

InputResult focusField(HWND control) {
  if (auto result = reachable(control); !result) return result;
  const HWND field = fieldOf(control);
  if (field == nullptr) return refused(control, "has no field to type in");
  if (hasStyle(field, ES_READONLY)) return refused(control, "is read-only");
  if (GetFocus() != field) SetFocus(field);
  if (auto result = reachable(control); !result) return result;
  return GetFocus() == field ? InputResult{} : refused(control, "doesn't keep the focus");
}

/// The control as a list; null with an error if it is none or out of reach.
const WindowState* listOf(HWND control, InputResult& result) {
  result = reachable(control);
  if (!result) return nullptr;
  const WindowState* state = findWindow(control)->state.get();
  const bool isList =
      state != nullptr && (classNameOf(control) == L"COMBOBOX" || !state->itemTexts().empty());
  if (!isList) result = refused(control, "has no list to choose from");
  return isList ? state : nullptr;
}

/// The same with the focus on it: who lost the focus may have filled the list anew.
const WindowState* focusedListOf(HWND control, InputResult& result) {
  if (listOf(control, result) == nullptr) return nullptr;
  SetFocus(control);
  const WindowState* list = listOf(control, result);
  if (list != nullptr) moveCursorTo(control, middleOf(control));
  return list;
}

InputResult pick(HWND control, int index) {
  findWindow(control)->state->pickItem(control, index);
  return {};
}

int indexOfItem(const std::vector<std::wstring>& items, std::wstring_view text) {
  auto found = std::find(items.begin(), items.end(), text);
  if (found == items.end()) {
    found = std::find_if(items.begin(), items.end(),
                         [=](const std::wstring& item) { return equalNoCase(item, text); });
  }
  return found != items.end() ? static_cast<int>(found - items.begin()) : -1;
}

}  // namespace

std::vector<HWND> openDialogs() {
  std::vector<HWND> dialogs;
  for (const HWND window : topLevelWindows()) {
    if (isDialog(window) && IsWindowVisible(window) && IsWindowEnabled(window)) {
      dialogs.push_back(window);
    }
  }
  return dialogs;
}

HWND topDialog() {
  const std::vector<HWND> dialogs = openDialogs();
  return dialogs.empty() ? nullptr : dialogs.front();
}

HWND dialogOfTemplate(unsigned templateId) {
  for (const HWND dialog : openDialogs()) {
    if (templateOf(dialog) == templateId) return dialog;
  }
  return nullptr;
}

HWND controlWithId(HWND dialog, int id) {
  HWND hidden = nullptr;
  for (const HWND control : dialogControls(dialog)) {
    if (GetDlgCtrlID(control) != id) continue;
    if (IsWindowVisible(control)) return control;
    if (hidden == nullptr) hidden = control;
  }
  return hidden;
}

HWND focusedControl() {
  const HWND focused = GetFocus();
  const HWND parent = GetParent(focused);
  const bool inner = classNameOf(parent) == L"COMBOBOX" || stateOf<TableState>(parent) != nullptr;
  return inner ? parent : focused;
}

InputResult clickControl(HWND control) {
  return click(control, WM_LBUTTONDOWN);
}

InputResult doubleClickControl(HWND control) {
  if (auto result = click(control, WM_LBUTTONDOWN); !result) return result;
  return IsWindow(control) ? click(control, WM_LBUTTONDBLCLK) : InputResult{};
}

InputResult moveOver(HWND window) {
  if (auto result = reachable(window); !result) return result;
  deliver(window, WM_MOUSEMOVE, 0, moveCursorTo(window, middleOf(window)));
  return {};
}

InputResult pressArrow(HWND control, bool up) {
  if (auto result = reachable(control); !result) return result;
  if (stateOf<UpDownState>(control) == nullptr) return refused(control, "has no arrows to press");
  const LPARAM where = moveCursorTo(control, arrowOf(control, up));
  deliver(control, WM_MOUSEMOVE, 0, where);
  deliver(control, WM_LBUTTONDOWN, MK_LBUTTON, where);
  deliver(control, WM_LBUTTONUP, 0, where);
  return {};
}

InputResult chooseItem(HWND control, std::wstring_view text) {
  InputResult result;
  const WindowState* list = focusedListOf(control, result);
  if (list == nullptr) return result;
  const int index = indexOfItem(list->itemTexts(), text);
  if (index < 0) return refused(control, "has no item \"" + toUtf8(text) + "\"");
  return pick(control, index);
}

InputResult chooseIndex(HWND control, int index) {
  InputResult result;
  const WindowState* list = focusedListOf(control, result);
  if (list == nullptr) return result;
  if (index < 0 || static_cast<std::size_t>(index) >= list->itemTexts().size()) {
    return refused(control, "has no item #" + std::to_string(index));
  }
  return pick(control, index);
}

InputResult clickItemCheck(HWND control, int index) {
  if (auto result = reachable(control); !result) return result;
  WindowState* state = findWindow(control)->state.get();
  if (state == nullptr || state->itemChecks().empty())
    return refused(control, "has no items with check boxes");
  const std::optional<POINT> place = state->bringCheckBox(control, index);
  if (!place) return refused(control, "has no item #" + std::to_string(index));
  return clickAt(control, *place, WM_LBUTTONDOWN);
}

InputResult focusControl(HWND control) {
  if (auto result = reachable(control); !result) return result;
  const bool passive = (SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_STATIC) != 0;
  if (passive) return refused(control, "can't have the focus");
  if (!isInside(control, GetFocus())) SetFocus(control);
  return reachable(control);
}

InputResult placeCaret(HWND control, int from, int to) {
  if (auto result = reachable(control); !result) return result;
  const HWND field = fieldOf(control);
  if (field == nullptr) return refused(control, "has no field with a caret");
  const auto length = GetWindowTextLengthW(field);
  if (from < 0 || to < 0 || from > length || to > length) {
    return refused(control, "has " + std::to_string(length) + " characters");
  }
  if (auto result = focusControl(control); !result) return result;
  SendMessageW(field, EM_SETSEL, static_cast<WPARAM>(from), to);
  return {};
}

InputResult typeOver(HWND control, std::wstring_view text) {
  if (auto result = focusField(control); !result) return result;
  SendMessageW(GetFocus(), EM_SETSEL, 0, -1);
  if (text.empty()) {
    if (GetWindowTextLengthW(GetFocus()) > 0) sendKey(GetFocus(), {VK_DELETE});
    return {};
  }
  return typeCharacters(text);
}

InputResult typeCharacters(std::wstring_view text) {
  // A table opens and closes a field inside it while it is typed to.
  const HWND control = focusedControl();
  if (auto result = reachable(control); !result) return {"no field has the focus"};
  for (std::size_t i = 0; i < text.size(); ++i) {
    const HWND field = GetFocus();
    if (focusedControl() != control)
      return {"the focus left the field after " + std::to_string(i) + " characters"};
    const bool breakPair = text[i] == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n';
    if (breakPair) continue;
    if (text[i] == L'\r' || text[i] == L'\n') {
      sendKey(field, {VK_RETURN});
    } else if (text[i] == L'\b') {
      sendKey(field, {VK_BACK});
    } else {
      deliver(field, WM_CHAR, static_cast<WPARAM>(text[i]), 0);
    }
  }
  return {};
}

InputResult pressKey(HWND control, Keystroke key) {
  if (auto result = focusControl(control); !result) return result;
  if (!isInside(control, GetFocus())) return refused(control, "doesn't keep the focus");
  sendKey(GetFocus(), key);
  return {};
}

InputResult pressKeyInDialog(HWND dialog, Keystroke key) {
  if (auto result = reachable(dialog); !result) return result;
  sendKey(isInside(dialog, GetFocus()) ? GetFocus() : dialog, key);
  return {};
}

InputResult pressCloseBox(HWND dialog) {
  if (auto result = reachable(dialog); !result) return result;
  if (!hasStyle(dialog, WS_SYSMENU)) return refused(dialog, "has no close box");
  deliver(dialog, WM_SYSCOMMAND, SC_CLOSE, 0);
  return {};
}

InputResult moveDialog(HWND dialog, int x, int y) {
  if (auto result = reachable(dialog); !result) return result;
  SetWindowPos(dialog, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  return {};
}

bool dialogCanBeSized(HWND dialog) {
  if (hasStyle(dialog, WS_THICKFRAME)) return true;
  const RECT client = clientOnScreen(dialog);
  const LPARAM corner =
      MAKELPARAM(static_cast<UINT>(client.right - 1), static_cast<UINT>(client.bottom - 1));
  return SendMessageW(dialog, WM_NCHITTEST, 0, corner) == HTBOTTOMRIGHT;
}

InputResult sizeDialog(HWND dialog, int width, int height) {
  if (auto result = reachable(dialog); !result) return result;
  if (!dialogCanBeSized(dialog)) return refused(dialog, "can't be sized");
  const SIZE size = limitedSize(dialog, {width, height});
  SetWindowPos(dialog, nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  return {};
}

InputResult minimizeDialog(HWND dialog) {
  if (auto result = reachable(dialog); !result) return result;
  if (!hasStyle(dialog, WS_MINIMIZEBOX)) return refused(dialog, "has no box to minimise it");
  deliver(dialog, WM_SYSCOMMAND, SC_MINIMIZE, 0);
  return {};
}

InputResult restoreDialog(HWND dialog) {
  if (!IsWindowVisible(dialog) || !IsIconic(dialog)) return refused(dialog, "isn't minimised");
  deliver(dialog, WM_SYSCOMMAND, SC_RESTORE, 0);
  return {};
}

}  // namespace kovra::win
