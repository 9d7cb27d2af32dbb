#include "platform/win/windows/message_queue.h"

#include <deque>
#include <exception>
#include <set>
#include <string>

#include "platform/win/base/interaction.h"
#include "platform/win/base/pump.h"
#include "platform/win/windows/key_translation.h"
#include "platform/win/windows/window.h"
#include "platform/win/windows/window_api.h"

namespace kovra::win {
namespace {

/// Posted messages, taken one by one by the pump.
class PostedMessages : public PumpSource {
 public:
  PostedMessages() { Pump::instance().addSource(kPostedMessages, this); }

  bool dispatchOne() override {
    if (queue.empty()) return false;
    const MSG message = queue.front();
    queue.pop_front();
    deliver(message);
    return true;
  }

  std::deque<MSG> queue;
};

PostedMessages& posted() {
  static PostedMessages single;
  return single;
}

struct InputState {
  MessageFilter filter = nullptr;
  MessageHook hook = nullptr;
  POINT cursor{};
  std::set<int> keysDown;
  DWORD ticks = 0;
};

InputState& input() {
  static InputState single;
  return single;
}

bool dialogTakes(MSG& message) {
  const HWND top = topLevelOf(message.hwnd);
  return classNameOf(top) == L"#32770" && IsDialogMessageW(top, &message);
}

void noteException(const char* what) {
  interaction().noteFailure(std::string("a window's handler failed: ") + what);
}

}  // namespace

void setMessageFilter(MessageFilter filter) {
  input().filter = filter;
}

void setMessageHook(MessageHook hook) {
  input().hook = hook;
}

bool deliver(const MSG& original) {
  MSG message = original;
  if (!IsWindow(message.hwnd)) return true;
  try {
    if (input().hook != nullptr && input().hook(message)) return false;
    // A hook may have ended the window.
    if (!IsWindow(message.hwnd)) return true;
    const MessageFilter filter = input().filter != nullptr ? input().filter : dialogTakes;
    if (!filter(message)) translateAndDispatch(message);
  } catch (const std::exception& error) {
    noteException(error.what());
  } catch (...) {
    noteException("unknown exception");
  }
  return true;
}

void deliver(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  deliver(MSG{window, message, wParam, lParam, ++input().ticks, input().cursor});
}

POINT cursorPosition() {
  return input().cursor;
}
void setCursorPosition(POINT screen) {
  input().cursor = screen;
}

KeyHeld::KeyHeld(int key, bool held) : key_(key), before_(input().keysDown.contains(key)) {
  if (held) input().keysDown.insert(key);
}

KeyHeld::~KeyHeld() {
  if (!before_) input().keysDown.erase(key_);
}

void dropPostedMessages(HWND window) {
  std::erase_if(posted().queue, [window](const MSG& m) { return m.hwnd == window; });
}

void clearMessageQueue() {
  posted().queue.clear();
  input().keysDown.clear();
  input().cursor = {};
}

}  // namespace kovra::win

LRESULT SendMessageW(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
  const kovra::win::Window* window = kovra::win::findWindow(handle);
  return window != nullptr ? window->procedure(handle, message, wParam, lParam) : 0;
}

BOOL PostMessageW(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
  using kovra::win::input;
  if (!IsWindow(handle)) return FALSE;
  kovra::win::posted().queue.push_back(
      MSG{handle, message, wParam, lParam, ++input().ticks, input().cursor});
  return TRUE;
}

LRESULT CallWindowProcW(WNDPROC procedure, HWND window, UINT message, WPARAM wParam,
                        LPARAM lParam) {
  return procedure != nullptr ? procedure(window, message, wParam, lParam) : 0;
}

LRESULT DispatchMessageW(const MSG* message) {
  return message != nullptr
             ? SendMessageW(message->hwnd, message->message, message->wParam, message->lParam)
             : 0;
}

SHORT GetKeyState(int key) {
  return kovra::win::input().keysDown.contains(key) ? static_cast<SHORT>(-128) : SHORT{0};
}

BOOL GetCursorPos(POINT* point) {
  if (point == nullptr) return FALSE;
  *point = kovra::win::cursorPosition();
  return TRUE;
}
