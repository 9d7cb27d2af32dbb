#pragma once

#include "platform/win/base/windows_types.h"

namespace kovra::win {

/// What an icon handle stands for.
struct Icon {
  HINSTANCE module = nullptr;
  unsigned id = 0;
  int size = 32;  ///< pixels of its width and height
};

/// Null for a handle that is no icon's.
const Icon* findIcon(HICON icon);

}  // namespace kovra::win

inline constexpr UINT IMAGE_ICON = 1;
inline constexpr UINT LR_DEFAULTCOLOR = 0;
inline constexpr UINT LR_SHARED = 0x8000;

/// An icon of the module, 32 pixels wide; null if it has none.
HICON LoadIconW(HINSTANCE module, LPCWSTR name);
/// `type` is IMAGE_ICON, everything else gives null; a width of 0 means 32 pixels.
HANDLE LoadImageW(HINSTANCE module, LPCWSTR name, UINT type, int width, int height, UINT flags);
BOOL DestroyIcon(HICON icon);
