#include <algorithm>

#include "platform/win/base/wide_text.h"
#include "platform/win/windows/focus.h"
#include "platform/win/windows/window.h"
#include "platform/win/windows/window_api.h"

namespace kovra::win {
namespace {

void setStyleBit(HWND handle, DWORD bit, bool on) {
  if (Window* window = findWindow(handle)) {
    window->style = on ? window->style | bit : window->style & ~bit;
  }
}

void tellSized(HWND handle, WPARAM how) {
  const RECT client = clientOnScreen(handle);
  SendMessageW(handle, WM_SIZE, how,
               MAKELPARAM(static_cast<UINT>(widthOf(client)), static_cast<UINT>(heightOf(client))));
}

void hide(HWND handle) {
  SendMessageW(handle, WM_SHOWWINDOW, FALSE, 0);
  setStyleBit(handle, WS_VISIBLE, false);
  releaseInput(handle);
  tellObservers(handle, Change::visible);
}

void appear(HWND handle) {
  SendMessageW(handle, WM_SHOWWINDOW, TRUE, 0);
  setStyleBit(handle, WS_VISIBLE, true);
  Window* window = findWindow(handle);
  if (window == nullptr) return;
  tellObservers(handle, Change::visible);
  if (!window->wasShown) {
    window->wasShown = true;
    tellFirstPlace(handle);
  }
}

void minimize(HWND handle) {
  if (hasStyle(handle, WS_MINIMIZE)) return;
  setStyleBit(handle, WS_MINIMIZE, true);
  releaseInput(handle);
  SendMessageW(handle, WM_SIZE, SIZE_MINIMIZED, 0);
  tellObservers(handle, Change::place);
}

void restore(HWND handle) {
  if (!hasStyle(handle, WS_MINIMIZE)) return;
  setStyleBit(handle, WS_MINIMIZE, false);
  tellSized(handle, SIZE_RESTORED);
  tellObservers(handle, Change::place);
}

bool activates(int command) {
  return command == SW_SHOW || command == SW_SHOWNORMAL || command == SW_RESTORE;
}

}  // namespace

std::wstring windowText(HWND handle) {
  const LRESULT length = SendMessageW(handle, WM_GETTEXTLENGTH, 0, 0);
  std::wstring text(static_cast<std::size_t>(std::max<LRESULT>(length, 0)) + 1, L'\0');
  const LRESULT copied =
      SendMessageW(handle, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(std::max<LRESULT>(copied, 0)));
  return text;
}

}  // namespace kovra::win

using kovra::win::findWindow;
using kovra::win::Window;

BOOL EnableWindow(HWND handle, BOOL enable) {
  using namespace kovra::win;
  if (!IsWindow(handle)) return FALSE;
  const bool wasDisabled = hasStyle(handle, WS_DISABLED);
  if (wasDisabled == (enable == FALSE)) return wasDisabled ? TRUE : FALSE;
  if (!enable && isInside(handle, GetFocus())) changeFocus(nullptr);
  setStyleBit(handle, WS_DISABLED, enable == FALSE);
  SendMessageW(handle, WM_ENABLE, enable != FALSE ? TRUE : FALSE, 0);
  if (IsWindow(handle)) tellObservers(handle, Change::enabled);
  return wasDisabled ? TRUE : FALSE;
}

BOOL IsWindowEnabled(HWND handle) {
  const Window* window = findWindow(handle);
  return window != nullptr && (window->style & WS_DISABLED) == 0 ? TRUE : FALSE;
}

BOOL ShowWindow(HWND handle, int command) {
  using namespace kovra::win;
  if (!IsWindow(handle)) return FALSE;
  const bool wasVisible = hasStyle(handle, WS_VISIBLE);
  if (command == SW_HIDE) {
    if (wasVisible) hide(handle);
    return wasVisible ? TRUE : FALSE;
  }
  if (!wasVisible || command == SW_SHOWNA) appear(handle);
  if (command == SW_MINIMIZE || command == SW_SHOWMINIMIZED) minimize(handle);
  if (command == SW_RESTORE || command == SW_SHOWNORMAL) restore(handle);
  const Window* window = findWindow(handle);
  if (window != nullptr && window->parent == nullptr && activates(command)) {
    SetActiveWindow(handle);
  }
  return wasVisible ? TRUE : FALSE;
}

BOOL IsWindowVisible(HWND handle) {
  const Window* window = findWindow(handle);
  if (window == nullptr) return FALSE;
  for (; window != nullptr; window = findWindow(window->parent)) {
    if ((window->style & WS_VISIBLE) == 0) return FALSE;
  }
  return TRUE;
}

BOOL IsIconic(HWND handle) {
  return kovra::win::hasStyle(handle, WS_MINIMIZE) ? TRUE : FALSE;
}

BOOL SetWindowTextW(HWND window, LPCWSTR text) {
  return SendMessageW(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)) > 0 ? TRUE : FALSE;
}

int GetWindowTextW(HWND window, LPWSTR buffer, int capacity) {
  if (buffer == nullptr || capacity <= 0) return 0;
  buffer[0] = 0;
  return static_cast<int>(SendMessageW(window, WM_GETTEXT, static_cast<WPARAM>(capacity),
                                       reinterpret_cast<LPARAM>(buffer)));
}

int GetWindowTextLengthW(HWND window) {
  return static_cast<int>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0));
}

LONG_PTR GetWindowLongPtrW(HWND handle, int index) {
  const Window* window = findWindow(handle);
  if (window == nullptr) return 0;
  switch (index) {
    case GWLP_WNDPROC:
      return reinterpret_cast<LONG_PTR>(window->procedure);
    case GWL_STYLE:
      return static_cast<LONG_PTR>(window->style);
    case GWL_EXSTYLE:
      return static_cast<LONG_PTR>(window->exStyle);
    case GWLP_USERDATA:
      return window->userData;
    case GWL_ID:
      return window->id;
    default:
      return 0;
  }
}

LONG_PTR SetWindowLongPtrW(HWND handle, int index, LONG_PTR value) {
  Window* window = findWindow(handle);
  if (window == nullptr) return 0;
  const LONG_PTR old = GetWindowLongPtrW(handle, index);
  switch (index) {
    case GWLP_WNDPROC:
      window->procedure = reinterpret_cast<WNDPROC>(value);
      break;
    case GWL_STYLE:
      window->style = static_cast<DWORD>(value);
      kovra::win::tellObservers(handle, kovra::win::Change::style);
      break;
    case GWL_EXSTYLE:
      window->exStyle = static_cast<DWORD>(value);
      break;
    case GWLP_USERDATA:
      window->userData = value;
      break;
    case GWL_ID:
      window->id = static_cast<int>(value);
      break;
    default:
      return 0;
  }
  return old;
}

BOOL InvalidateRect(HWND window, const RECT* /*rect*/, BOOL /*erase*/) {
  if (!IsWindow(window)) return FALSE;
  kovra::win::tellObservers(window, kovra::win::Change::repaint);
  return TRUE;
}

BOOL UpdateWindow(HWND window) {
  return IsWindow(window);
}

BOOL RedrawWindow(HWND window, const RECT* rect, HANDLE /*region*/, UINT /*flags*/) {
  return InvalidateRect(window, rect, TRUE);
}
