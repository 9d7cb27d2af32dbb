#include "module/frame/companions/window_ui_lib.h"

#include <algorithm>

#include "platform/win/system_metrics.h"
#include "platform/win/window_api.h"

namespace {

// The place of one edge: inside the area, at its beginning when the window is longer.
LONG fit(LONG position, LONG length, LONG begin, LONG end) {
  return std::max(begin, std::min(position, end - length));
}

}  // namespace

void FitWindowToMonitor(HWND window, int /*reserved*/) {
  RECT place{};
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  if (!GetWindowRect(window, &place) ||
      !GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor))
    return;
  const RECT& area = monitor.rcWork;
  const LONG left = fit(place.left, place.right - place.left, area.left, area.right);
  const LONG top = fit(place.top, place.bottom - place.top, area.top, area.bottom);
  if (left == place.left && top == place.top) return;
  SetWindowPos(window, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}
