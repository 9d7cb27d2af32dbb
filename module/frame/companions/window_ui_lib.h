#pragma once

#include "module/frame/seam.h"

/// Moves a window by as little as needed so that it lies on a monitor's work area. One that is
/// larger is made smaller if it can be sized, and else has its upper left corner there. The number
/// is reserved.
void FitWindowToMonitor(HWND window, int reserved);
