#pragma once

#include "platform/mfc/wnd.h"

/// The ties between windows and their objects, for the class library's own files.
struct WndTies {
  /// The object of a window, if it has one of its own.
  static CWnd* permanent(HWND window);
  /// An object for the time being, of the class that fits the window's. Kept until the window is
  /// gone.
  static CWnd* temporary(HWND window);
  static void add(HWND window, CWnd* object);
  static void remove(HWND window);
};

/// The procedure of every window that is tied to an object.
LRESULT AfxWndProc(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
