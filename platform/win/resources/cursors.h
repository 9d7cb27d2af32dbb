#pragma once

#include "platform/win/base/windows_types.h"

/// Shapes of the mouse pointer. There is no screen, so one is only remembered.

/// The arrow, as LoadCursorW takes it.
inline const LPCWSTR IDC_ARROW = MAKEINTRESOURCEW(32512);

/// A cursor of the system's own. Null for a module's: modules have none here.
HCURSOR LoadCursorW(HINSTANCE module, LPCWSTR name);
/// Gives the former one.
HCURSOR SetCursor(HCURSOR cursor);
HCURSOR GetCursor();
