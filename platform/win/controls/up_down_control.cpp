#include "platform/win/controls/up_down_control.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <map>
#include <string>
#include <utility>

#include "platform/win/base/wide_text.h"
#include "platform/win/windows/window_api.h"

namespace kovra::win {
namespace {

constexpr int kUsualWidth = 16;

/// Windows whose arrow keys and wheel belong to an up-down, with the procedure that they had.
struct Borrowed {
  HWND control;
  WNDPROC procedure;
};
std::map<HWND, Borrowed>& borrowed() {
  static std::map<HWND, Borrowed> single;
  return single;
}

// The buddy's text.

/// "-12345" -> "-12,345".
std::wstring withThousands(std::wstring digits) {
  const std::size_t first = digits.starts_with(L'-') ? 1 : 0;
  for (std::size_t at = digits.size(); at > first + 3;) digits.insert(at -= 3, L",");
  return digits;
}

void showPosition(HWND control) {
  const auto* state = stateOf<UpDownState>(control);
  if (state == nullptr || !hasStyle(control, UDS_SETBUDDYINT)) return;
  const std::wstring digits = std::to_wstring(state->position);
  const bool plain = hasStyle(control, UDS_NOTHOUSANDS);
  const std::wstring text = plain ? digits : withThousands(digits);
  const HWND buddy = state->buddy;
  if (windowText(buddy) != text) SetWindowTextW(buddy, text.c_str());
}

/// The position that the buddy's text says, if the control looks after it. False when it is no
/// number of the range; the position stays then.
bool readBuddy(HWND control, UpDownState& state) {
  if (!hasStyle(control, UDS_SETBUDDYINT) || !IsWindow(state.buddy)) return true;
  std::string digits = toUtf8(windowText(state.buddy));
  std::erase(digits, ',');
  int number = 0;
  const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  const auto [least, most] = std::minmax(state.lower, state.upper);
  if (failure != std::errc() || end != digits.data() + digits.size()) return false;
  if (number < least || number > most) return false;
  state.position = number;
  return true;
}

// Positions.

int setPosition(HWND control, UpDownState& state, int position) {
  const int former = state.position;
  const auto [least, most] = std::minmax(state.lower, state.upper);
  state.position = std::clamp(position, least, most);
  tellObservers(control, Change::content);
  showPosition(control);
  return former;
}

void moveBy(HWND control, UpDownState& state, int delta) {
  const auto [least, most] = std::minmax(state.lower, state.upper);
  const long long wanted = static_cast<long long>(state.position) + delta;
  const bool wraps = hasStyle(control, UDS_WRAP);
  const int above = wraps ? least : most;
  const int below = wraps ? most : least;
  setPosition(control, state,
              wanted > most    ? above
              : wanted < least ? below
                               : static_cast<int>(wanted));
}

/// What `presses` of an arrow do, above 0 of the upper one: the parent is asked first.
void press(HWND control, int presses) {
  auto* state = stateOf<UpDownState>(control);
  if (state == nullptr || presses == 0) return;
  readBuddy(control, *state);
  const HWND parent = GetParent(control);
  const auto id = static_cast<UINT_PTR>(GetDlgCtrlID(control));
  const int delta = state->upper < state->lower ? -presses : presses;
  NMUPDOWN asked{{control, id, UDN_DELTAPOS}, state->position, delta};
  const LRESULT refused = SendMessageW(parent, WM_NOTIFY, id, reinterpret_cast<LPARAM>(&asked));
  state = stateOf<UpDownState>(control);
  if (state == nullptr || refused != 0) return;
  moveBy(control, *state, asked.iDelta);
}

void turnWheel(HWND control, WPARAM wParam) {
  auto* state = stateOf<UpDownState>(control);
  if (state == nullptr) return;
  state->turned += static_cast<SHORT>(HIWORD(wParam));
  const int presses = state->turned / WHEEL_DELTA;
  state->turned %= WHEEL_DELTA;
  press(control, presses);
}

void mouseDown(HWND control, LPARAM where) {
  const auto* state = stateOf<UpDownState>(control);
  if (classNameOf(state->buddy) == L"EDIT") SetFocus(state->buddy);
  if (!IsWindow(control) || !IsWindowEnabled(control) || !IsWindowVisible(control)) return;
  const RECT client = clientOnScreen(control);
  const bool sideways = hasStyle(control, UDS_HORZ);
  const int x = static_cast<SHORT>(LOWORD(where));
  const int y = static_cast<SHORT>(HIWORD(where));
  const bool up = sideways ? x >= widthOf(client) / 2 : y < heightOf(client) / 2;
  press(control, up ? 1 : -1);
}

// The buddy.

LRESULT buddyProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const auto found = borrowed().find(window);
  if (found == borrowed().end()) return DefWindowProcW(window, message, wParam, lParam);
  const Borrowed buddy = found->second;
  if (message == WM_NCDESTROY) borrowed().erase(found);
  const bool arrow = message == WM_KEYDOWN && (wParam == VK_UP || wParam == VK_DOWN);
  if ((arrow || message == WM_MOUSEWHEEL) && IsWindow(buddy.control)) {
    if (!IsWindowEnabled(buddy.control)) return 0;
    if (arrow) {
      press(buddy.control, wParam == VK_UP ? 1 : -1);
    } else {
      turnWheel(buddy.control, wParam);
    }
    return 0;
  }
  return CallWindowProcW(buddy.procedure, window, message, wParam, lParam);
}

void borrowKeys(HWND control, HWND buddy) {
  const auto found = borrowed().find(buddy);
  if (found != borrowed().end()) {
    found->second.control = control;
    return;
  }
  const LONG_PTR former =
      SetWindowLongPtrW(buddy, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(buddyProcedure));
  borrowed()[buddy] = {control, reinterpret_cast<WNDPROC>(former)};
}

/// Takes the control's room from the buddy's end.
void takeRoom(HWND control, UpDownState& state) {
  const bool left = hasStyle(control, UDS_ALIGNLEFT);
  if (!left && !hasStyle(control, UDS_ALIGNRIGHT)) return;
  const RECT whole = findWindow(state.buddy)->place;
  const int own = widthOf(findWindow(control)->place);
  const LONG width = std::min(own > 0 ? own : kUsualWidth, widthOf(whole));
  state.buddyPlace = whole;
  const HWND buddy = state.buddy;
  RECT field = whole;
  RECT arrows = whole;
  if (left) {
    arrows.right = field.left += width;
  } else {
    arrows.left = field.right -= width;
  }
  placeWindow(buddy, field);
  placeWindow(control, arrows);
}

void releaseBuddy(HWND control, UpDownState& state) {
  const auto keys = borrowed().find(state.buddy);
  if (keys != borrowed().end() && keys->second.control == control) keys->second.control = nullptr;
  const RECT place = std::exchange(state.buddyPlace, {});
  const HWND buddy = std::exchange(state.buddy, nullptr);
  if (widthOf(place) > 0 && IsWindow(buddy)) placeWindow(buddy, place);
}

LRESULT setBuddy(HWND control, UpDownState& state, HWND buddy) {
  const HWND former = state.buddy;
  releaseBuddy(control, state);
  if (!IsWindow(buddy)) return reinterpret_cast<LRESULT>(former);
  state.buddy = buddy;
  if (hasStyle(control, UDS_ARROWKEYS)) borrowKeys(control, buddy);
  takeRoom(control, state);
  return reinterpret_cast<LRESULT>(former);
}

// Messages.

LRESULT rangeMessage(HWND control, UpDownState& state, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case UDM_SETRANGE:
      state.upper = static_cast<SHORT>(LOWORD(lParam));
      state.lower = static_cast<SHORT>(HIWORD(lParam));
      break;
    case UDM_SETRANGE32:
      state.lower = static_cast<int>(wParam);
      state.upper = static_cast<int>(lParam);
      break;
    case UDM_GETRANGE:
      return static_cast<LRESULT>(
          MAKELONG(static_cast<UINT>(state.upper), static_cast<UINT>(state.lower)));
    default:  // UDM_GETRANGE32
      if (wParam != 0) *reinterpret_cast<int*>(wParam) = state.lower;
      if (lParam != 0) *reinterpret_cast<int*>(lParam) = state.upper;
      return 0;
  }
  tellObservers(control, Change::content);
  return 0;
}

LRESULT positionMessage(HWND control, UpDownState& state, UINT message, LPARAM lParam) {
  switch (message) {
    case UDM_SETPOS:
      return setPosition(control, state, static_cast<SHORT>(LOWORD(lParam)));
    case UDM_SETPOS32:
      return setPosition(control, state, static_cast<int>(lParam));
    case UDM_GETPOS: {
      const bool read = readBuddy(control, state);
      return static_cast<LRESULT>(MAKELONG(static_cast<UINT>(state.position), read ? 0U : 1U));
    }
    default: {  // UDM_GETPOS32
      const bool read = readBuddy(control, state);
      if (lParam != 0) *reinterpret_cast<BOOL*>(lParam) = read ? FALSE : TRUE;
      return state.position;
    }
  }
}

LRESULT upDownProcedure(HWND control, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* state = stateOf<UpDownState>(control);
  if (state == nullptr) return DefWindowProcW(control, message, wParam, lParam);
  switch (message) {
    case WM_CREATE:
      if (hasStyle(control, UDS_AUTOBUDDY))
        setBuddy(control, *state, GetWindow(control, GW_HWNDPREV));
      return 0;
    case WM_GETDLGCODE:
      return DLGC_STATIC;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      mouseDown(control, lParam);
      return 0;
    case WM_MOUSEWHEEL:
      turnWheel(control, wParam);
      return 0;
    case UDM_SETRANGE:
    case UDM_GETRANGE:
    case UDM_SETRANGE32:
    case UDM_GETRANGE32:
      return rangeMessage(control, *state, message, wParam, lParam);
    case UDM_SETPOS:
    case UDM_GETPOS:
    case UDM_SETPOS32:
    case UDM_GETPOS32:
      return positionMessage(control, *state, message, lParam);
    case UDM_SETBUDDY:
      return setBuddy(control, *state, reinterpret_cast<HWND>(wParam));
    case UDM_GETBUDDY:
      return reinterpret_cast<LRESULT>(state->buddy);
    default:
      return DefWindowProcW(control, message, wParam, lParam);
  }
}

std::unique_ptr<WindowState> makeUpDownState() {
  return std::make_unique<UpDownState>();
}

}  // namespace

POINT arrowOf(HWND control, bool up) {
  const RECT client = clientOnScreen(control);
  const LONG width = widthOf(client);
  const LONG height = heightOf(client);
  if (hasStyle(control, UDS_HORZ)) return {up ? width * 3 / 4 : width / 4, height / 2};
  return {width / 2, up ? height / 4 : height * 3 / 4};
}

const OwnWindowClass kUpDownClass({UPDOWN_CLASSW, upDownProcedure, makeUpDownState});

}  // namespace kovra::win
