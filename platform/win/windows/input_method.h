#pragma once

#include "platform/win/base/windows_types.h"

/// Input methods as far as programs switch them: each window has one that is open or closed, until
/// it is detached. Typed characters arrive as they are, with and without one.

/// The window's input method; null while it is detached. Ends with ImmReleaseContext.
HIMC ImmGetContext(HWND window);
BOOL ImmReleaseContext(HWND window, HIMC context);
BOOL ImmGetOpenStatus(HIMC context);
BOOL ImmSetOpenStatus(HIMC context, BOOL open);
/// Null detaches the window's input method; gives what it had, to be handed back later.
HIMC ImmAssociateContext(HWND window, HIMC context);
