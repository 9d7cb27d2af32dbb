#include "platform/win/windows/focus.h"

#include <algorithm>
#include <utility>

#include "platform/win/windows/window.h"
#include "platform/win/windows/window_api.h"

namespace kovra::win {
namespace {

struct FocusState {
  HWND focus = nullptr;
  bool told = false;  ///< the window with the focus has had its WM_SETFOCUS
  HWND active = nullptr;
  HWND capture = nullptr;
  bool chosen = false;
  HWND tracked = nullptr;
  DWORD trackedFor = 0;
};

FocusState& state() {
  static FocusState single;
  return single;
}

WPARAM asParameter(HWND window) {
  return reinterpret_cast<WPARAM>(window);
}

/// Puts a top-level window above the others, and what it owns above it.
void raise(HWND window) {
  if (topLevelWindows().empty() || topLevelWindows().front() == window) return;
  reorder(window, HWND_TOP);
  std::vector<HWND> order = topLevelWindows();  // a copy: raising changes the list
  for (auto handle = order.rbegin(); handle != order.rend(); ++handle) {
    const Window* other = findWindow(*handle);
    if (other != nullptr && other->owner == window) raise(*handle);
  }
}

bool usable(HWND window) {
  return IsWindowVisible(window) && IsWindowEnabled(window);
}

/// The window to become active instead of one that goes away.
HWND successorOf(HWND window) {
  const Window* record = findWindow(window);
  if (record != nullptr && usable(record->owner)) return record->owner;
  const auto& all = topLevelWindows();
  const auto next = std::find_if(all.begin(), all.end(),
                                 [=](HWND other) { return other != window && usable(other); });
  return next != all.end() ? *next : nullptr;
}

}  // namespace

void changeFocus(HWND window) {
  const HWND old = state().focus;
  if (window == old) return;
  const bool oldWasTold = std::exchange(state().told, false);
  state().focus = window;
  if (old != nullptr && oldWasTold) SendMessageW(old, WM_KILLFOCUS, asParameter(window), 0);
  if (state().focus != window) return;  // what lost it has moved it elsewhere
  state().told = true;
  if (window != nullptr) SendMessageW(window, WM_SETFOCUS, asParameter(old), 0);
  if (state().focus == window) tellObservers(window, Change::focus);
}

bool focusIsChosen() {
  return state().chosen;
}

void activate(HWND window, bool restoreFocus) {
  const HWND old = state().active;
  if (window == old) return;
  const bool chosenBefore = std::exchange(state().chosen, !restoreFocus);
  state().active = window;
  if (IsWindow(old)) {
    SendMessageW(old, WM_ACTIVATE, WA_INACTIVE, reinterpret_cast<LPARAM>(window));
  }
  if (window != nullptr && state().active == window) {
    raise(window);
    SendMessageW(window, WM_ACTIVATE, WA_ACTIVE, reinterpret_cast<LPARAM>(old));
  }
  state().chosen = chosenBefore;
}

bool canTakeFocus(HWND handle) {
  const Window* window = findWindow(handle);
  if (window == nullptr) return false;
  for (; window != nullptr; window = findWindow(window->parent)) {
    if ((window->style & (WS_DISABLED | WS_MINIMIZE)) != 0) return false;
  }
  return true;
}

void deactivate(HWND window) {
  if (state().active != window) return;
  const HWND next = successorOf(window);
  if (next != nullptr) {
    SetActiveWindow(next);
  } else {
    activate(nullptr, false);
  }
}

void releaseInput(HWND window) {
  if (isInside(window, state().capture)) state().capture = nullptr;
  if (isInside(window, state().tracked)) state().tracked = nullptr;
  deactivate(window);
  if (isInside(window, state().focus)) changeFocus(nullptr);
}

FocusLoan::FocusLoan() : former_(state().focus) {
  changeFocus(nullptr);
}

FocusLoan::~FocusLoan() {
  if (state().focus == nullptr && canTakeFocus(former_) && IsWindowVisible(former_)) {
    changeFocus(former_);
  }
}

void trackCursor(HWND over) {
  const HWND tracked = state().tracked;
  if (tracked == nullptr) return;
  if (over == tracked) {
    if ((state().trackedFor & TME_HOVER) != 0) PostMessageW(tracked, WM_MOUSEHOVER, 0, 0);
    state().trackedFor &= ~TME_HOVER;
    return;
  }
  state().tracked = nullptr;
  if ((state().trackedFor & TME_LEAVE) != 0) PostMessageW(tracked, WM_MOUSELEAVE, 0, 0);
}

void forgetFocus() {
  state() = FocusState{};
}

}  // namespace kovra::win

HWND SetFocus(HWND window) {
  using namespace kovra::win;
  const HWND old = state().focus;
  if (window == nullptr) {
    changeFocus(nullptr);
    return old;
  }
  if (!canTakeFocus(window)) return nullptr;
  if (topLevelOf(window) != state().active) activate(topLevelOf(window), false);
  if (canTakeFocus(window)) changeFocus(window);
  return old;
}

HWND GetFocus() {
  return kovra::win::state().focus;
}

HWND SetActiveWindow(HWND window) {
  using namespace kovra::win;
  const HWND old = state().active;
  if (topLevelOf(window) != window || !canTakeFocus(window)) return nullptr;
  activate(window, true);
  if (state().active == window && !isInside(window, state().focus)) changeFocus(window);
  return old;
}

HWND GetActiveWindow() {
  return kovra::win::state().active;
}
HWND GetForegroundWindow() {
  return kovra::win::state().active;
}
BOOL SetForegroundWindow(HWND window) {
  return SetActiveWindow(window) != nullptr ? TRUE : FALSE;
}

HWND SetCapture(HWND window) {
  return std::exchange(kovra::win::state().capture, window);
}
HWND GetCapture() {
  return kovra::win::state().capture;
}
BOOL ReleaseCapture() {
  kovra::win::state().capture = nullptr;
  return TRUE;
}

BOOL TrackMouseEvent(TRACKMOUSEEVENT* event) {
  using kovra::win::state;
  if (event == nullptr || !IsWindow(event->hwndTrack)) return FALSE;
  state().tracked = event->hwndTrack;
  state().trackedFor = event->dwFlags & (TME_HOVER | TME_LEAVE);
  return TRUE;
}
