#include "platform/arx/editor/host/message_hooks.h"

#include <algorithm>
#include <vector>

#include "platform/arx/editor/documents/document_list.h"
#include "platform/arx/editor/documents/document_session.h"
#include "platform/arx/editor/documents/view.h"
#include "platform/arx/editor/host/drawing_window.h"
#include "platform/win/base/messages.h"
#include "platform/win/desktop/desktop.h"
#include "platform/win/windows/message_queue.h"
#include "platform/win/windows/window.h"
#include "platform/win/windows/window_api.h"

namespace kovra::arx {
namespace {

template <class Function>
std::vector<Function>& hooks() {
  static std::vector<Function> registered;
  return registered;
}

template <class Function>
bool isRegistered(Function hook) {
  const auto& all = hooks<Function>();
  return std::find(all.begin(), all.end(), hook) != all.end();
}

bool filtered(MSG& message) {
  // A copy: hooks come and go while they are called.
  const auto filters = hooks<AcedFilterWinMsgFn>();
  return std::any_of(filters.begin(), filters.end(), [&](AcedFilterWinMsgFn filter) {
    return isRegistered(filter) && filter(&message) != FALSE;
  });
}

void tellWatches(const MSG& message) {
  const auto watches = hooks<AcedWatchWinMsgFn>();
  for (const AcedWatchWinMsgFn watch : watches)
    if (isRegistered(watch)) watch(&message);
}

/// True when a filter swallowed the message.
bool passHooks(MSG& message) {
  if (filtered(message)) return true;
  tellWatches(message);
  return false;
}

template <class Function>
BOOL add(Function hook) {
  if (hook == nullptr || isRegistered(hook)) return FALSE;
  hooks<Function>().push_back(hook);
  win::setMessageHook(passHooks);
  return TRUE;
}

template <class Function>
BOOL remove(Function hook) {
  return std::erase(hooks<Function>(), hook) > 0 ? TRUE : FALSE;
}

}  // namespace

bool sendDrawingMessage(UINT message, WPARAM wParam, int pixelX, int pixelY) {
  MSG sent{};
  sent.hwnd = drawingWindow();
  sent.message = message;
  sent.wParam = wParam;
  sent.lParam = MAKELPARAM(static_cast<UINT>(pixelX), static_cast<UINT>(pixelY));
  sent.pt = {pixelX, pixelY};
  ClientToScreen(sent.hwnd, &sent.pt);
  win::setCursorPosition(sent.pt);
  return win::deliver(sent);
}

void focusDrawing() {
  win::focusDrawing();
}

void cursorEntersDrawing() {
  win::offerFocusToDrawing();
}

}  // namespace kovra::arx

BOOL acedRegisterFilterWinMsg(AcedFilterWinMsgFn filter) {
  return kovra::arx::add(filter);
}

BOOL acedRemoveFilterWinMsg(AcedFilterWinMsgFn filter) {
  return kovra::arx::remove(filter);
}

BOOL acedRegisterWatchWinMsg(AcedWatchWinMsgFn watch) {
  return kovra::arx::add(watch);
}

BOOL acedRemoveWatchWinMsg(AcedWatchWinMsgFn watch) {
  return kovra::arx::remove(watch);
}

int acedGetWinNum(int x, int y) {
  const kovra::arx::WindowSize size = kovra::arx::windowSize();
  const bool inside = x >= 0 && y >= 0 && x < size.width && y < size.height;
  // The number of the model space's first viewport.
  return inside ? 2 : 0;
}

void acedCoordFromPixelToWorld(const POINT& pixel, ads_point world) {
  acedCoordFromPixelToWorld(2, pixel, world);
}

BOOL acedCoordFromPixelToWorld(int, POINT pixel, ads_point world) {
  const AcApDocument* document = kovra::arx::DocumentList::instance().current();
  if (document == nullptr || world == nullptr) return FALSE;
  const kovra::arx::Cursor& cursor = document->session().cursor;
  const bool remembered = cursor.known && cursor.pixelX == pixel.x && cursor.pixelY == pixel.y;
  const AcGePoint3d point =
      remembered ? cursor.point
                 : kovra::arx::pixelToWorld(kovra::arx::currentView(*document), pixel.x, pixel.y);
  world[0] = point.x;
  world[1] = point.y;
  world[2] = point.z;
  return TRUE;
}

HWND adsw_acadMainWnd() {
  return kovra::arx::frameWindow();
}

HWND adsw_acadDocWnd() {
  return kovra::arx::drawingWindow();
}
