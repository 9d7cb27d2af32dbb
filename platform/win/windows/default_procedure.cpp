#include <algorithm>

#include "platform/win/windows/focus.h"
#include "platform/win/windows/message_queue.h"
#include "platform/win/windows/window.h"
#include "platform/win/windows/window_api.h"

namespace {

using kovra::win::findWindow;
using kovra::win::Window;

LRESULT copyText(const std::wstring& text, WPARAM capacity, LPARAM target) {
  auto* buffer = reinterpret_cast<wchar_t*>(target);
  if (buffer == nullptr || capacity == 0) return 0;
  const auto length = std::min(text.size(), capacity - 1);
  std::copy_n(text.data(), length, buffer);
  buffer[length] = 0;
  return static_cast<LRESULT>(length);
}

LRESULT setText(HWND handle, LPARAM source) {
  const auto* text = reinterpret_cast<const wchar_t*>(source);
  findWindow(handle)->text = text != nullptr ? std::wstring(text) : std::wstring();
  kovra::win::tellObservers(handle, kovra::win::Change::text);
  return TRUE;
}

LRESULT systemCommand(HWND handle, WPARAM command) {
  switch (command & 0xFFF0) {
    case SC_CLOSE:
      SendMessageW(handle, WM_CLOSE, 0, 0);
      break;
    case SC_MINIMIZE:
      ShowWindow(handle, SW_MINIMIZE);
      break;
    case SC_RESTORE:
      ShowWindow(handle, SW_RESTORE);
      break;
    default:
      break;
  }
  return 0;
}

LRESULT hitTest(HWND handle, LPARAM where) {
  const POINT point{static_cast<SHORT>(LOWORD(where)), static_cast<SHORT>(HIWORD(where))};
  const RECT client = kovra::win::clientOnScreen(handle);
  return PtInRect(&client, point) ? HTCLIENT : HTCAPTION;
}

/// The right button asks for the context menu, with the place on the screen.
LRESULT contextMenu(HWND handle, LPARAM where) {
  POINT point{static_cast<SHORT>(LOWORD(where)), static_cast<SHORT>(HIWORD(where))};
  ClientToScreen(handle, &point);
  return SendMessageW(handle, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(handle),
                      MAKELPARAM(static_cast<UINT>(point.x), static_cast<UINT>(point.y)));
}

}  // namespace

LRESULT DefWindowProcW(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
  const Window* window = findWindow(handle);
  if (window == nullptr) return 0;
  switch (message) {
    case WM_NCCREATE:
      return TRUE;
    case WM_SETTEXT:
      return setText(handle, lParam);
    case WM_GETTEXT:
      return copyText(window->text, wParam, lParam);
    case WM_GETTEXTLENGTH:
      return static_cast<LRESULT>(window->text.size());
    case WM_SETFONT:
      findWindow(handle)->font = reinterpret_cast<HFONT>(wParam);
      return 0;
    case WM_GETFONT:
      return reinterpret_cast<LRESULT>(window->font);
    case WM_CLOSE:
      DestroyWindow(handle);
      return 0;
    case WM_SYSCOMMAND:
      return systemCommand(handle, wParam);
    case WM_NCHITTEST:
      return hitTest(handle, lParam);
    case WM_RBUTTONUP:
      return contextMenu(handle, lParam);
    case WM_ACTIVATE:
      if (LOWORD(wParam) != WA_INACTIVE && !kovra::win::focusIsChosen()) SetFocus(handle);
      return 0;
    default:
      return 0;
  }
}
