#include "platform/win/desktop/desktop.h"

#include "platform/win/dialogs/dialogs.h"
#include "platform/win/windows/focus.h"
#include "platform/win/windows/message_queue.h"
#include "platform/win/windows/window.h"
#include "platform/win/windows/window_api.h"

namespace kovra::win {
namespace {

constexpr const wchar_t* kFrameClass = L"KOVRAFRAME";
constexpr const wchar_t* kDrawingClass = L"KOVRADRAWING";
/// Where the drawing window lies in the main window: below the tool bars, above the command line.
constexpr LONG kDrawingLeft = 8;
constexpr LONG kDrawingTop = 24;

struct Desktop {
  HWND frame = nullptr;
  HWND drawing = nullptr;
  WNDPROC drawingProcedure = DefWindowProcW;
};

Desktop& desktop() {
  static Desktop single;
  return single;
}

/// The main window hands the focus on to the drawing, and isn't closed by a message.
LRESULT frameProcedure(HWND frame, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SETFOCUS:
      if (desktop().drawing != nullptr) SetFocus(desktop().drawing);
      return 0;
    case WM_CLOSE:
      return 0;
    default:
      return DefWindowProcW(frame, message, wParam, lParam);
  }
}

LRESULT drawingMessage(HWND drawing, UINT message, WPARAM wParam, LPARAM lParam) {
  return desktop().drawingProcedure(drawing, message, wParam, lParam);
}

void makeDesktop() {
  if (IsWindow(desktop().frame)) return;
  WindowSpec frame;
  frame.className = kFrameClass;
  frame.text = L"AutoCAD";
  frame.style = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_VISIBLE;
  frame.place = {0, 0, 1920, 1040};
  desktop().frame = makeWindow(frame);
  WindowSpec drawing;
  drawing.className = kDrawingClass;
  drawing.style = WS_CHILD | WS_VISIBLE;
  drawing.place = {kDrawingLeft, kDrawingTop, kDrawingLeft + kDrawingWidth,
                   kDrawingTop + kDrawingHeight};
  drawing.parentOrOwner = desktop().frame;
  desktop().drawing = makeWindow(drawing);
  SetFocus(desktop().drawing);
}

}  // namespace

const OwnWindowClass kOwnFrameClass({kFrameClass, frameProcedure, nullptr});
const OwnWindowClass kOwnDrawingClass({kDrawingClass, drawingMessage, nullptr});

HWND frameWindow() {
  makeDesktop();
  return desktop().frame;
}

HWND drawingWindow() {
  makeDesktop();
  return desktop().drawing;
}

void setDrawingProcedure(WNDPROC procedure) {
  desktop().drawingProcedure = procedure;
}

void focusDrawing() {
  SetFocus(drawingWindow());
}

void offerFocusToDrawing() {
  const HWND focused = GetFocus();
  if (isInside(frameWindow(), focused)) return;
  if (focused != nullptr && SendMessageW(topLevelOf(focused), kKeepFocusMessage, 0, 0) != 0) return;
  focusDrawing();
}

void moveCursorInDrawing(POINT pixel) {
  ClientToScreen(drawingWindow(), &pixel);
  setCursorPosition(pixel);
  trackCursor(drawingWindow());
}

bool drawingBlocked() {
  return !IsWindowEnabled(frameWindow());
}

void resetDesktop() {
  destroyAllWindows();
  clearMessageQueue();
  forgetFocus();
  desktop().frame = nullptr;
  desktop().drawing = nullptr;
}

}  // namespace kovra::win
