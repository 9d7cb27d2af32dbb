#pragma once

#include "platform/win/base/messages.h"

/// The up-down control (class msctls_updown32): styles, messages and its notification, with the
/// numbers that the platform gives them. Positions are decimal; a press moves by one.

inline constexpr LPCWSTR UPDOWN_CLASSW = L"msctls_updown32";

inline constexpr DWORD UDS_WRAP = 0x0001;         ///< beyond one end of the range it begins anew
inline constexpr DWORD UDS_SETBUDDYINT = 0x0002;  ///< the buddy's text is the position
inline constexpr DWORD UDS_ALIGNRIGHT = 0x0004;   ///< takes its room from the buddy's right end
inline constexpr DWORD UDS_ALIGNLEFT = 0x0008;
inline constexpr DWORD UDS_AUTOBUDDY = 0x0010;    ///< the buddy is the control before it
inline constexpr DWORD UDS_ARROWKEYS = 0x0020;    ///< the buddy's Up and Down keys press it
inline constexpr DWORD UDS_HORZ = 0x0040;         ///< arrows side by side, the right one counts up
inline constexpr DWORD UDS_NOTHOUSANDS = 0x0080;  ///< no commas in the buddy's text

inline constexpr UINT UDM_SETRANGE = WM_USER + 101;  ///< lParam: upper, lower, of 16 bits each
inline constexpr UINT UDM_GETRANGE = WM_USER + 102;
inline constexpr UINT UDM_SETPOS = WM_USER + 103;  ///< gives the former position
inline constexpr UINT UDM_GETPOS = WM_USER + 104;  ///< high word 1: the buddy holds no position
inline constexpr UINT UDM_SETBUDDY = WM_USER + 105;
inline constexpr UINT UDM_GETBUDDY = WM_USER + 106;
inline constexpr UINT UDM_SETRANGE32 = WM_USER + 111;  ///< wParam lower, lParam upper
inline constexpr UINT UDM_GETRANGE32 = WM_USER + 112;  ///< pointers to both; either may be null
inline constexpr UINT UDM_SETPOS32 = WM_USER + 113;
inline constexpr UINT UDM_GETPOS32 = WM_USER + 114;  ///< lParam: null, or where the failure goes
inline constexpr int UD_MAXVAL = 0x7FFF;
inline constexpr int UD_MINVAL = -UD_MAXVAL;

/// WM_NOTIFY before a position changes, also at the end of the range. An answer other than 0
/// refuses the step; the handler may change `iDelta`.
inline constexpr UINT UDN_DELTAPOS = static_cast<UINT>(-722);

struct NMUPDOWN {
  NMHDR hdr;
  int iPos;    ///< before the step
  int iDelta;  ///< above 0 towards the upper end, which may be the smaller number
};
using LPNMUPDOWN = NMUPDOWN*;
using NM_UPDOWN = NMUPDOWN;
