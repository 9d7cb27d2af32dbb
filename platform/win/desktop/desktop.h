#pragma once

#include "platform/win/base/windows_types.h"

namespace kovra::win {

/// Pixels of the drawing window.
inline constexpr int kDrawingWidth = 1600;
inline constexpr int kDrawingHeight = 1000;

/// The program's main window and the window in it that shows the current drawing. Made at the first
/// call. The main window passes the focus on to the drawing.
HWND frameWindow();
HWND drawingWindow();

/// What the drawing window does with its messages, instead of DefWindowProcW.
void setDrawingProcedure(WNDPROC procedure);

/// To be called before a click in the drawing or a typed line counts: moves the focus to the
/// drawing, so that the field which had it is told first.
void focusDrawing();

/// To be called when the cursor moves in the drawing: asks the dialog that has the focus with
/// kKeepFocusMessage and moves the focus to the drawing only if the answer is 0.
void offerFocusToDrawing();

/// Puts the cursor on a pixel of the drawing window (origin top left), for those who ask for it.
void moveCursorInDrawing(POINT pixel);

/// True while a modal dialog keeps the user from the drawing and the command line.
bool drawingBlocked();

/// Destroys all windows and forgets focus, queue and cursor: a fresh desktop.
void resetDesktop();

}  // namespace kovra::win
