#include "platform/win/controls/button_control.h"

#include "platform/win/windows/focus.h"
#include "platform/win/windows/window_api.h"

namespace kovra::win {

DWORD buttonKind(HWND button) {
  const Window* window = findWindow(button);
  return window != nullptr ? window->style & BS_TYPEMASK : BS_PUSHBUTTON;
}

bool isCheckBox(DWORD kind) {
  return kind == BS_CHECKBOX || kind == BS_AUTOCHECKBOX || kind == BS_3STATE ||
         kind == BS_AUTO3STATE;
}

bool isRadio(DWORD kind) {
  return kind == BS_RADIOBUTTON || kind == BS_AUTORADIOBUTTON;
}

const char* ButtonState::kind(const Window& window) const {
  const DWORD type = window.style & BS_TYPEMASK;
  if (isCheckBox(type)) return "check";
  if (isRadio(type)) return "radio";
  return type == BS_GROUPBOX ? "group" : "button";
}

std::optional<int> ButtonState::checkState(const Window& window) const {
  const DWORD type = window.style & BS_TYPEMASK;
  if (!isCheckBox(type) && !isRadio(type)) return std::nullopt;
  return static_cast<int>(check);
}

namespace {

void setCheck(HWND button, WPARAM check) {
  auto* state = stateOf<ButtonState>(button);
  const DWORD kind = buttonKind(button);
  if (state == nullptr || (!isCheckBox(kind) && !isRadio(kind))) return;
  state->check = check;
  // Tab reaches a group of radios at the one that is checked.
  if (isRadio(kind)) {
    Window* window = findWindow(button);
    const bool on = check == BST_CHECKED;
    window->style = on ? window->style | WS_TABSTOP : window->style & ~WS_TABSTOP;
  }
  tellObservers(button, Change::content);
}

void checkAloneInGroup(HWND radio) {
  const HWND parent = GetParent(radio);
  for (HWND other = GetNextDlgGroupItem(parent, radio, FALSE); other != nullptr && other != radio;
       other = GetNextDlgGroupItem(parent, other, FALSE)) {
    if (buttonKind(other) == BS_AUTORADIOBUTTON && stateOf<ButtonState>(other) != nullptr) {
      setCheck(other, BST_UNCHECKED);
    }
  }
  setCheck(radio, BST_CHECKED);
}

/// What a press does: the automatic kinds change first, then the parent is told.
void press(HWND button) {
  const auto* state = stateOf<ButtonState>(button);
  if (state == nullptr) return;
  switch (buttonKind(button)) {
    case BS_AUTOCHECKBOX:
      setCheck(button, state->check == BST_CHECKED ? BST_UNCHECKED : BST_CHECKED);
      break;
    case BS_AUTO3STATE:
      setCheck(button, (state->check + 1) % 3);
      break;
    case BS_AUTORADIOBUTTON:
      checkAloneInGroup(button);
      break;
    case BS_GROUPBOX:
      return;
    default:
      break;
  }
  notifyParent(button, BN_CLICKED);
}

void setPressed(HWND button, bool pressed) {
  if (auto* state = stateOf<ButtonState>(button)) {
    state->pressed = pressed;
    tellObservers(button, Change::repaint);
  }
}

void mouseDown(HWND button) {
  SetFocus(button);
  // The field that lost the focus may have had this button disabled.
  if (!canTakeFocus(button) || !IsWindowVisible(button)) return;
  SetCapture(button);
  setPressed(button, true);
}

void release(HWND button) {
  const auto* state = stateOf<ButtonState>(button);
  if (state == nullptr || !state->pressed) return;
  ReleaseCapture();
  setPressed(button, false);
  press(button);
}

void focusMoved(HWND button, bool got) {
  if (!got) setPressed(button, false);
  if (hasStyle(button, BS_NOTIFY)) notifyParent(button, got ? BN_SETFOCUS : BN_KILLFOCUS);
}

LRESULT dialogCode(HWND button) {
  const DWORD kind = buttonKind(button);
  if (kind == BS_PUSHBUTTON) return DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON;
  if (kind == BS_DEFPUSHBUTTON) return DLGC_BUTTON | DLGC_DEFPUSHBUTTON;
  if (kind == BS_GROUPBOX) return DLGC_STATIC;
  return isRadio(kind) ? DLGC_BUTTON | DLGC_RADIOBUTTON : DLGC_BUTTON;
}

LRESULT stateBits(HWND button, const ButtonState& state) {
  return static_cast<LRESULT>(state.check | (state.pressed ? BST_PUSHED : 0) |
                              (GetFocus() == button ? BST_FOCUS : 0));
}

void setStyle(HWND button, DWORD style) {
  Window* window = findWindow(button);
  window->style = (window->style & ~DWORD{0xFFFF}) | (style & 0xFFFF);
  tellObservers(button, Change::style);
}

LRESULT setImage(HWND button, ButtonState& state, LPARAM image) {
  const HICON former = state.icon;
  state.icon = reinterpret_cast<HICON>(image);
  tellObservers(button, Change::content);
  return reinterpret_cast<LRESULT>(former);
}

/// The messages of the mouse and the keyboard; false for others.
bool inputMessage(HWND button, UINT message, WPARAM wParam) {
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      mouseDown(button);
      return true;
    case WM_LBUTTONUP:
      release(button);
      return true;
    case WM_KEYDOWN:
      if (wParam == VK_SPACE) setPressed(button, true);
      return true;
    case WM_KEYUP:
      if (wParam == VK_SPACE) release(button);
      return true;
    case BM_CLICK:
      mouseDown(button);
      release(button);
      return true;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      focusMoved(button, message == WM_SETFOCUS);
      return true;
    default:
      return false;
  }
}

LRESULT buttonProcedure(HWND button, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* state = stateOf<ButtonState>(button);
  if (state == nullptr) return DefWindowProcW(button, message, wParam, lParam);
  if (inputMessage(button, message, wParam)) return 0;
  switch (message) {
    case WM_GETDLGCODE:
      return dialogCode(button);
    case BM_GETCHECK:
      return static_cast<LRESULT>(state->check);
    case BM_SETCHECK:
      setCheck(button, wParam);
      return 0;
    case BM_GETSTATE:
      return stateBits(button, *state);
    case BM_SETSTATE:
      setPressed(button, wParam != 0);
      return 0;
    case BM_SETSTYLE:
      setStyle(button, static_cast<DWORD>(wParam));
      return 0;
    case BM_GETIMAGE:
      return reinterpret_cast<LRESULT>(state->icon);
    case BM_SETIMAGE:
      return setImage(button, *state, lParam);
    default:
      return DefWindowProcW(button, message, wParam, lParam);
  }
}

std::unique_ptr<WindowState> makeButtonState() {
  return std::make_unique<ButtonState>();
}

}  // namespace

const OwnWindowClass kButtonClass({L"BUTTON", buttonProcedure, makeButtonState});

}  // namespace kovra::win
