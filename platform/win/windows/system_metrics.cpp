#include "platform/win/windows/system_metrics.h"

#include "platform/win/windows/window_api.h"

namespace {

constexpr RECT kScreen{0, 0, 1920, 1080};
constexpr RECT kWorkArea{0, 0, 1920, 1040};
const HMONITOR kMonitor = reinterpret_cast<HMONITOR>(std::uintptr_t{0x10001});

struct Metric {
  int which;
  int pixels;
};
constexpr Metric kMetrics[] = {
    {SM_CXSCREEN, 1920},
    {SM_CYSCREEN, 1080},
    {SM_CXVSCROLL, 17},
    {SM_CYHSCROLL, 17},
    {SM_CYCAPTION, 23},
    {SM_CXBORDER, 1},
    {SM_CYBORDER, 1},
    {SM_CXFIXEDFRAME, 3},
    {SM_CYFIXEDFRAME, 3},
    {SM_CXICON, 32},
    {SM_CYICON, 32},
    {SM_CYMENU, 20},
    {SM_CXMIN, 136},
    {SM_CYMIN, 39},
    {SM_CXSIZEFRAME, 8},
    {SM_CYSIZEFRAME, 8},
    {SM_CXMINTRACK, 136},
    {SM_CYMINTRACK, 39},
    {SM_CXEDGE, 2},
    {SM_CYEDGE, 2},
    {SM_CXSMICON, 16},
    {SM_CYSMICON, 16},
    {SM_CXVIRTUALSCREEN, 1920},
    {SM_CYVIRTUALSCREEN, 1080},
};

}  // namespace

int GetSystemMetrics(int which) {
  for (const Metric& metric : kMetrics) {
    if (metric.which == which) return metric.pixels;
  }
  return 0;
}

HMONITOR MonitorFromRect(const RECT* rect, DWORD flags) {
  if (rect != nullptr && rect->left < kScreen.right && rect->right > kScreen.left &&
      rect->top < kScreen.bottom && rect->bottom > kScreen.top) {
    return kMonitor;
  }
  return flags != MONITOR_DEFAULTTONULL ? kMonitor : nullptr;
}

HMONITOR MonitorFromPoint(POINT point, DWORD flags) {
  const RECT rect{point.x, point.y, point.x + 1, point.y + 1};
  return MonitorFromRect(&rect, flags);
}

HMONITOR MonitorFromWindow(HWND window, DWORD flags) {
  RECT rect{};
  return GetWindowRect(window, &rect) ? MonitorFromRect(&rect, flags)
                                      : MonitorFromRect(nullptr, flags);
}

BOOL GetMonitorInfoW(HMONITOR monitor, MONITORINFO* info) {
  if (monitor != kMonitor || info == nullptr) return FALSE;
  info->rcMonitor = kScreen;
  info->rcWork = kWorkArea;
  info->dwFlags = MONITORINFOF_PRIMARY;
  return TRUE;
}

BOOL SystemParametersInfoW(UINT action, UINT /*parameter*/, LPVOID value, UINT /*flags*/) {
  if (action != SPI_GETWORKAREA || value == nullptr) return FALSE;
  *static_cast<RECT*>(value) = kWorkArea;
  return TRUE;
}
