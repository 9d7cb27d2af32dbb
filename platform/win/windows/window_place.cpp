#include <algorithm>
#include <limits>

#include "platform/win/windows/focus.h"
#include "platform/win/windows/message_queue.h"
#include "platform/win/windows/system_metrics.h"
#include "platform/win/windows/window.h"
#include "platform/win/windows/window_api.h"

namespace kovra::win {
namespace {

/// Pixels that the frame of a window takes on each side.
RECT frameOf(DWORD style, DWORD exStyle) {
  const bool caption = (style & WS_CAPTION) == WS_CAPTION;
  LONG border = 0;
  if ((style & WS_THICKFRAME) != 0) {
    border = GetSystemMetrics(SM_CXSIZEFRAME);
  } else if (caption || (style & WS_DLGFRAME) != 0) {
    border = GetSystemMetrics(SM_CXFIXEDFRAME);
  } else if ((exStyle & WS_EX_CLIENTEDGE) != 0) {
    border = GetSystemMetrics(SM_CXEDGE);
  } else if ((style & WS_BORDER) != 0) {
    border = GetSystemMetrics(SM_CXBORDER);
  }
  return {border, border + (caption ? GetSystemMetrics(SM_CYCAPTION) : 0), border, border};
}

RECT shifted(RECT rect, LONG dx, LONG dy) {
  return {rect.left + dx, rect.top + dy, rect.right + dx, rect.bottom + dy};
}

/// Where the minimised are out of the way.
constexpr LONG kMinimizedPlace = -32000;
constexpr LONG kMinimizedWidth = 160;
constexpr LONG kMinimizedHeight = 28;

/// Tells a window its new place, as far as it has changed.
void tellPlace(HWND handle, bool moved, bool sized) {
  const Window* window = findWindow(handle);
  if (window == nullptr) return;
  const RECT client = clientOnScreen(handle);
  if (moved) {
    SendMessageW(
        handle, WM_MOVE, 0,
        MAKELPARAM(static_cast<UINT>(window->place.left), static_cast<UINT>(window->place.top)));
  }
  if (sized) {
    SendMessageW(
        handle, WM_SIZE, SIZE_RESTORED,
        MAKELPARAM(static_cast<UINT>(widthOf(client)), static_cast<UINT>(heightOf(client))));
  }
  if (moved || sized) tellObservers(handle, Change::place);
}

}  // namespace

RECT screenPlace(HWND handle) {
  const Window* window = findWindow(handle);
  if (window == nullptr) return {};
  if ((window->style & WS_MINIMIZE) != 0 && window->parent == nullptr) {
    return {kMinimizedPlace, kMinimizedPlace, kMinimizedPlace + kMinimizedWidth,
            kMinimizedPlace + kMinimizedHeight};
  }
  if (window->parent == nullptr) return window->place;
  const RECT parent = clientOnScreen(window->parent);
  return shifted(window->place, parent.left, parent.top);
}

RECT clientOnScreen(HWND handle) {
  const Window* window = findWindow(handle);
  if (window == nullptr) return {};
  const RECT outer = screenPlace(handle);
  const RECT frame = frameOf(window->style, window->exStyle);
  RECT client{outer.left + frame.left, outer.top + frame.top, outer.right - frame.right,
              outer.bottom - frame.bottom};
  client.right = std::max(client.left, client.right);
  client.bottom = std::max(client.top, client.bottom);
  return client;
}

SIZE limitedSize(HWND handle, SIZE size) {
  MINMAXINFO limits{};
  constexpr LONG kFar = std::numeric_limits<SHORT>::max();
  limits.ptMinTrackSize = {GetSystemMetrics(SM_CXMINTRACK), GetSystemMetrics(SM_CYMINTRACK)};
  limits.ptMaxTrackSize = {kFar, kFar};
  limits.ptMaxSize = {GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
  SendMessageW(handle, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
  const auto limited = [](LONG value, LONG low, LONG high) {
    return std::max(low, std::min(value, high));
  };
  return {limited(size.cx, limits.ptMinTrackSize.x, limits.ptMaxTrackSize.x),
          limited(size.cy, limits.ptMinTrackSize.y, limits.ptMaxTrackSize.y)};
}

void placeWindow(HWND handle, RECT place) {
  Window* window = findWindow(handle);
  if (window == nullptr) return;
  const RECT old = window->place;
  window->place = place;
  tellPlace(handle, old.left != place.left || old.top != place.top,
            widthOf(old) != widthOf(place) || heightOf(old) != heightOf(place));
}

void tellFirstPlace(HWND handle) {
  tellPlace(handle, true, true);
}

}  // namespace kovra::win

using kovra::win::findWindow;
using kovra::win::Window;

BOOL GetWindowRect(HWND window, RECT* rect) {
  if (!IsWindow(window) || rect == nullptr) return FALSE;
  *rect = kovra::win::screenPlace(window);
  return TRUE;
}

BOOL GetClientRect(HWND window, RECT* rect) {
  if (!IsWindow(window) || rect == nullptr) return FALSE;
  const RECT client = kovra::win::clientOnScreen(window);
  *rect = {0, 0, kovra::win::widthOf(client), kovra::win::heightOf(client)};
  return TRUE;
}

BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL /*repaint*/) {
  return SetWindowPos(window, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

BOOL SetWindowPos(HWND handle, HWND after, int x, int y, int width, int height, UINT flags) {
  using namespace kovra::win;
  // Far beyond any screen, and far from where sums of coordinates have no room.
  constexpr int kFarthest = 1 << 24;
  const Window* window = findWindow(handle);
  if (window == nullptr) return FALSE;
  RECT place = window->place;
  SIZE size{widthOf(place), heightOf(place)};
  if ((flags & SWP_NOSIZE) == 0) {
    size = {std::clamp(width, 0, kFarthest), std::clamp(height, 0, kFarthest)};
    if (hasStyle(handle, WS_THICKFRAME)) size = limitedSize(handle, size);
  }
  if ((flags & SWP_NOMOVE) == 0) {
    place.left = std::clamp(x, -kFarthest, kFarthest);
    place.top = std::clamp(y, -kFarthest, kFarthest);
  }
  place.right = place.left + size.cx;
  place.bottom = place.top + size.cy;
  const bool orders = after != HWND_TOPMOST && after != HWND_NOTOPMOST;
  if ((flags & SWP_NOZORDER) == 0 && orders) reorder(handle, after);
  placeWindow(handle, place);
  if ((flags & SWP_SHOWWINDOW) != 0) ShowWindow(handle, SW_SHOWNOACTIVATE);
  if ((flags & SWP_HIDEWINDOW) != 0) ShowWindow(handle, SW_HIDE);
  if ((flags & SWP_NOACTIVATE) == 0 && IsWindowVisible(handle)) SetActiveWindow(handle);
  return TRUE;
}

BOOL ScreenToClient(HWND window, POINT* point) {
  if (!IsWindow(window) || point == nullptr) return FALSE;
  const RECT client = kovra::win::clientOnScreen(window);
  *point = {point->x - client.left, point->y - client.top};
  return TRUE;
}

BOOL ClientToScreen(HWND window, POINT* point) {
  if (!IsWindow(window) || point == nullptr) return FALSE;
  const RECT client = kovra::win::clientOnScreen(window);
  *point = {point->x + client.left, point->y + client.top};
  return TRUE;
}

int MapWindowPoints(HWND from, HWND to, POINT* points, UINT count) {
  for (UINT i = 0; i < count; ++i) {
    ClientToScreen(from, points + i);
    ScreenToClient(to, points + i);
  }
  return 1;
}

BOOL AdjustWindowRectEx(RECT* rect, DWORD style, BOOL /*menu*/, DWORD exStyle) {
  if (rect == nullptr) return FALSE;
  const RECT frame = kovra::win::frameOf(style, exStyle);
  *rect = {rect->left - frame.left, rect->top - frame.top, rect->right + frame.right,
           rect->bottom + frame.bottom};
  return TRUE;
}

BOOL PtInRect(const RECT* rect, POINT point) {
  return rect != nullptr && point.x >= rect->left && point.x < rect->right &&
                 point.y >= rect->top && point.y < rect->bottom
             ? TRUE
             : FALSE;
}

namespace {

HWND deepestAt(HWND window, POINT point) {
  for (const HWND child : kovra::win::childrenOf(window)) {
    const RECT place = kovra::win::screenPlace(child);
    if (IsWindowVisible(child) && PtInRect(&place, point)) return deepestAt(child, point);
  }
  return window;
}

}  // namespace

HWND WindowFromPoint(POINT point) {
  for (const HWND window : kovra::win::topLevelWindows()) {
    const RECT place = kovra::win::screenPlace(window);
    if (IsWindowVisible(window) && PtInRect(&place, point)) return deepestAt(window, point);
  }
  return nullptr;
}
