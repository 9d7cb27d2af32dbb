#pragma once

#include "platform/win/base/windows_types.h"

/// Measures of the one screen there is: 1920 by 1080 pixels at 96 dots an inch, with a bar of 40 at
/// its bottom that windows leave free.

inline constexpr int SM_CXSCREEN = 0;
inline constexpr int SM_CYSCREEN = 1;
inline constexpr int SM_CXVSCROLL = 2;
inline constexpr int SM_CYHSCROLL = 3;
inline constexpr int SM_CYCAPTION = 4;
inline constexpr int SM_CXBORDER = 5;
inline constexpr int SM_CYBORDER = 6;
inline constexpr int SM_CXFIXEDFRAME = 7;
inline constexpr int SM_CYFIXEDFRAME = 8;
inline constexpr int SM_CXICON = 11;
inline constexpr int SM_CYICON = 12;
inline constexpr int SM_CYMENU = 15;
inline constexpr int SM_CXMIN = 28;
inline constexpr int SM_CYMIN = 29;
inline constexpr int SM_CXSIZEFRAME = 32;
inline constexpr int SM_CYSIZEFRAME = 33;
inline constexpr int SM_CXMINTRACK = 34;
inline constexpr int SM_CYMINTRACK = 35;
inline constexpr int SM_CXEDGE = 45;
inline constexpr int SM_CYEDGE = 46;
inline constexpr int SM_CXSMICON = 49;
inline constexpr int SM_CYSMICON = 50;
inline constexpr int SM_CXVIRTUALSCREEN = 78;
inline constexpr int SM_CYVIRTUALSCREEN = 79;

/// 0 for a measure that isn't listed above.
int GetSystemMetrics(int which);

struct MONITORINFO {
  DWORD cbSize;
  RECT rcMonitor;
  RECT rcWork;
  DWORD dwFlags;
};
inline constexpr DWORD MONITOR_DEFAULTTONULL = 0;
inline constexpr DWORD MONITOR_DEFAULTTOPRIMARY = 1;
inline constexpr DWORD MONITOR_DEFAULTTONEAREST = 2;
inline constexpr DWORD MONITORINFOF_PRIMARY = 1;

/// The screen if the rectangle touches it, else what `flags` says.
HMONITOR MonitorFromRect(const RECT* rect, DWORD flags);
HMONITOR MonitorFromPoint(POINT point, DWORD flags);
HMONITOR MonitorFromWindow(HWND window, DWORD flags);
BOOL GetMonitorInfoW(HMONITOR monitor, MONITORINFO* info);
/// The free part of the screen, for SPI_GETWORKAREA; FALSE for everything else.
BOOL SystemParametersInfoW(UINT action, UINT parameter, LPVOID value, UINT flags);
inline constexpr UINT SPI_GETWORKAREA = 0x0030;
