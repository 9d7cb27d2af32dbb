#pragma once

#include "platform/win/base/windows_types.h"

namespace kovra::win {

/// What looks at every posted and input message before the window that it is for; true when it has
/// dealt with it. The class library walks the windows' own filters here. Without one, dialogs get
/// their keys.
using MessageFilter = bool (*)(MSG& message);
void setMessageFilter(MessageFilter filter);

/// What the program itself lets look at every such message first; true keeps it from its window.
using MessageHook = bool (*)(MSG& message);
void setMessageHook(MessageHook hook);

/// Takes a message past hook and filter to its window, as the program's message loop does.
/// Exceptions that a handler lets through end here, as a failure of the input in progress. False
/// when the hook kept it.
bool deliver(const MSG& message);
void deliver(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

/// Cursor on the screen; where messages of the mouse carry it.
POINT cursorPosition();
void setCursorPosition(POINT screen);

/// Holds a key down, as GetKeyState tells, for the time of a scope.
class KeyHeld {
 public:
  KeyHeld(int key, bool held);
  ~KeyHeld();
  KeyHeld(const KeyHeld&) = delete;
  KeyHeld& operator=(const KeyHeld&) = delete;

 private:
  int key_;
  bool before_;
};

void clearMessageQueue();

}  // namespace kovra::win
