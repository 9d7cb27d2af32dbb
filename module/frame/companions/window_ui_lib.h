#pragma once

#include "module/frame/seam.h"

/// Moves a window by as little as needed so that it lies on a monitor's work area; with its upper
/// left corner there when it is larger. The number is reserved.
void FitWindowToMonitor(HWND window, int reserved);
