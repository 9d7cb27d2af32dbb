#pragma once

#include "platform/win/base/windows_types.h"

namespace kovra::arx {

/// The program's main window; made at the first use.
HWND frameWindow();
/// The window inside it that shows the current drawing, as large as windowSize() says.
/// Characters that are posted to it are typed into the current document's command line.
HWND drawingWindow();

}  // namespace kovra::arx
