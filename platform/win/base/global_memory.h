#pragma once

#include "platform/win/base/windows_types.h"

/// Blocks of memory behind handles, as the clipboard passes them. A handle that isn't one (any
/// more) makes every function fail: null, 0.

inline constexpr UINT GMEM_FIXED = 0x0000;
inline constexpr UINT GMEM_MOVEABLE = 0x0002;
inline constexpr UINT GMEM_ZEROINIT = 0x0040;
inline constexpr UINT GHND = GMEM_MOVEABLE | GMEM_ZEROINIT;

/// Null when there is no memory left.
HGLOBAL GlobalAlloc(UINT flags, SIZE_T bytes);
LPVOID GlobalLock(HGLOBAL memory);
/// FALSE also when nothing locks the block any more, as after the last call of a pair.
BOOL GlobalUnlock(HGLOBAL memory);
SIZE_T GlobalSize(HGLOBAL memory);
/// Null when it was freed, else the handle.
HGLOBAL GlobalFree(HGLOBAL memory);
