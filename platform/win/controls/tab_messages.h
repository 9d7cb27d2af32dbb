#pragma once

#include "platform/win/base/messages.h"

/// Tab controls, windows of the class "SysTabControl32".

inline constexpr UINT TCM_GETITEMCOUNT = 0x1304;
inline constexpr UINT TCM_DELETEITEM = 0x1308;
inline constexpr UINT TCM_DELETEALLITEMS = 0x1309;
inline constexpr UINT TCM_GETITEMRECT = 0x130A;
inline constexpr UINT TCM_GETCURSEL = 0x130B;
inline constexpr UINT TCM_SETCURSEL = 0x130C;
inline constexpr UINT TCM_ADJUSTRECT = 0x1328;
inline constexpr UINT TCM_GETITEMW = 0x133C;
inline constexpr UINT TCM_SETITEMW = 0x133D;
inline constexpr UINT TCM_INSERTITEMW = 0x133E;
inline constexpr UINT TCN_SELCHANGE = static_cast<UINT>(-551);
inline constexpr UINT TCN_SELCHANGING = static_cast<UINT>(-552);

inline constexpr UINT TCIF_TEXT = 0x0001;
inline constexpr UINT TCIF_PARAM = 0x0008;

struct TCITEMW {
  UINT mask;
  DWORD dwState;
  DWORD dwStateMask;
  LPWSTR pszText;
  int cchTextMax;
  int iImage;
  LPARAM lParam;
};
using TCITEM = TCITEMW;
