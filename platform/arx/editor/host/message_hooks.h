#pragma once

#include "platform/arx/base/adesk.h"
#include "platform/arx/base/ads.h"
#include "platform/win/base/windows_types.h"

/// Sees each message of the program before its window does; TRUE swallows it.
using AcedFilterWinMsgFn = BOOL (*)(MSG* message);
/// Is told of each message of the program.
using AcedWatchWinMsgFn = void (*)(const MSG* message);

/// FALSE for a null function and one that is registered already (or isn't, for removals). Hooks may
/// remove themselves while they run.
BOOL acedRegisterFilterWinMsg(AcedFilterWinMsgFn filter);
BOOL acedRemoveFilterWinMsg(AcedFilterWinMsgFn filter);
BOOL acedRegisterWatchWinMsg(AcedWatchWinMsgFn watch);
BOOL acedRemoveWatchWinMsg(AcedWatchWinMsgFn watch);

/// The number of the viewport at a pixel of the drawing window; 0 outside.
int acedGetWinNum(int x, int y);
/// The world point at a pixel of the drawing window; where the pointer was put by coordinates, the
/// very point that was meant. FALSE without a drawing.
BOOL acedCoordFromPixelToWorld(int windowNumber, POINT pixel, ads_point world);
void acedCoordFromPixelToWorld(const POINT& pixel, ads_point world);

/// The windows of the CAD program: its frame and, inside it, the one that shows the drawing.
HWND adsw_acadMainWnd();
HWND adsw_acadDocWnd();

namespace kovra::arx {

/// Takes an input message for the drawing window past filters and watches to the window. False when
/// a filter swallowed it.
bool sendDrawingMessage(UINT message, WPARAM wParam, int pixelX, int pixelY);

/// Gives the keyboard to the drawing window, so that the control that had it is told.
void focusDrawing();
/// As the cursor enters the drawing: the dialog that has the focus is asked whether it keeps it.
void cursorEntersDrawing();

}  // namespace kovra::arx
