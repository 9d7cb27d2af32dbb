#include "platform/win/desktop/input_targets.h"

#include "platform/win/base/wide_text.h"
#include "platform/win/dialogs/dialogs.h"
#include "platform/win/windows/focus.h"
#include "platform/win/windows/message_queue.h"
#include "platform/win/windows/window.h"
#include "platform/win/windows/window_api.h"

namespace kovra::win {
namespace {

std::string nameOf(HWND window) {
  if (isDialog(window)) return "the dialog \"" + toUtf8(windowText(window)) + "\"";
  return "control " + std::to_string(GetDlgCtrlID(window));
}

}  // namespace

InputResult refused(HWND window, const std::string& why) {
  return {nameOf(window) + " " + why};
}

InputResult reachable(HWND window) {
  if (!IsWindow(window)) return {"there is no such window"};
  if (!IsWindowVisible(window)) return refused(window, "is hidden");
  if (!IsWindowEnabled(window)) return refused(window, "is disabled");
  if (!IsWindowEnabled(topLevelOf(window))) return refused(topLevelOf(window), "is disabled");
  if (!canTakeFocus(window)) return refused(window, "is disabled with what it lies in");
  return {};
}

LPARAM moveCursorTo(HWND window, POINT place) {
  const RECT client = clientOnScreen(window);
  setCursorPosition({client.left + place.x, client.top + place.y});
  trackCursor(window);
  return MAKELPARAM(static_cast<UINT>(place.x), static_cast<UINT>(place.y));
}

POINT middleOf(HWND window) {
  const RECT client = clientOnScreen(window);
  return {widthOf(client) / 2, heightOf(client) / 2};
}

}  // namespace kovra::win
