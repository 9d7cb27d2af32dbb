#include "module/frame/companions/window_ui_lib.h"

#include <algorithm>

#include "platform/win/windows/system_metrics.h"
#include "platform/win/windows/window_api.h"

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
  LONG width = place.right - place.left;
  LONG height = place.bottom - place.top;
  // A size that was chosen on a larger screen.
  if ((GetWindowLongPtrW(window, GWL_STYLE) & WS_THICKFRAME) != 0) {
    width = std::min(width, area.right - area.left);
    height = std::min(height, area.bottom - area.top);
  }
  const LONG left = fit(place.left, width, area.left, area.right);
  const LONG top = fit(place.top, height, area.top, area.bottom);
  SetWindowPos(window, nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}
