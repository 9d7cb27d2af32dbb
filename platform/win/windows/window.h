#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/win/base/messages.h"
#include "platform/win/base/windows_types.h"
#include "platform/win/windows/observer.h"

/// The records behind the window handles, for the windowing layer's own files.
namespace kovra::win {

struct Window;

/// What a window of a class keeps beside the common fields, and what a user can see of it and do
/// with it as a list. A new class of controls overrides what applies.
class WindowState {
 public:
  virtual ~WindowState() = default;

  /// A word for what it is: "button", "edit".
  virtual const char* kind(const Window& /*window*/) const { return "window"; }
  /// 0, 1 or 2 (in between) of what can be checked.
  virtual std::optional<int> checkState(const Window& /*window*/) const { return std::nullopt; }
  virtual std::vector<std::wstring> itemTexts() const { return {}; }
  virtual int selectedItem() const { return -1; }
  /// 0 or 1 for each item of a list with check boxes.
  virtual std::vector<int> itemChecks() const { return {}; }
  /// Scrolls the check box of an item into sight; where it is in the client area. Nothing without
  /// one.
  virtual std::optional<POINT> bringCheckBox(HWND /*window*/, int /*index*/) {
    return std::nullopt;
  }
  /// The user picks an item that there is; false if this is no list.
  virtual bool pickItem(HWND /*window*/, int /*index*/) { return false; }
};

struct WindowClass {
  std::wstring name;  ///< in upper case
  WNDPROC procedure;
  std::unique_ptr<WindowState> (*makeState)();  ///< may be null
};

struct Window {
  HWND handle = nullptr;
  const WindowClass* windowClass = nullptr;
  WNDPROC procedure = nullptr;
  HINSTANCE instance = nullptr;
  HWND parent = nullptr;  ///< of a child window
  HWND owner = nullptr;   ///< of a top-level window
  int id = 0;
  DWORD style = 0;
  DWORD exStyle = 0;
  RECT place{};  ///< in the parent's client area, or on the screen
  std::wstring text;
  std::wstring tip;            ///< shows while the cursor rests on the window
  std::vector<HWND> children;  ///< topmost first
  LONG_PTR userData = 0;
  HFONT font = nullptr;
  bool inputMethodDetached = false;
  bool inputMethodOpen = false;
  bool wasShown = false;  ///< it has been told its first place
  bool destroying = false;
  std::unique_ptr<WindowState> state;
};

/// Null for a handle whose window is gone. The pointer holds until a message is sent: look the
/// window up anew after that.
Window* findWindow(HWND handle);

/// The class's own record of a window; null if the window is gone or of another class.
template <typename State>
State* stateOf(HWND handle) {
  Window* window = findWindow(handle);
  return window != nullptr ? dynamic_cast<State*>(window->state.get()) : nullptr;
}

/// A class by name, without regard to case; null if it is unknown.
const WindowClass* findWindowClass(std::wstring_view name);
/// Makes a class known, once.
void registerWindowClass(const WindowClass& windowClass);
/// A class that the library itself has: known from the moment when the library is loaded.
struct OwnWindowClass {
  explicit OwnWindowClass(const WindowClass& windowClass) { registerWindowClass(windowClass); }
};

struct WindowSpec {
  std::wstring_view className;
  std::wstring_view text;
  DWORD style = 0;
  DWORD exStyle = 0;
  RECT place{};  ///< left, top, right, bottom
  HWND parentOrOwner = nullptr;
  int id = 0;
  HINSTANCE instance = nullptr;
  LPVOID parameter = nullptr;
};

/// Makes a window; `attach` gets the handle before the window gets its first message. Null if the
/// class is unknown or the window destroyed itself.
HWND makeWindow(const WindowSpec& spec, const std::function<void(HWND)>& attach = {});

/// The top-level windows, topmost first.
const std::vector<HWND>& topLevelWindows();
/// The outermost window that holds this one.
HWND topLevelOf(HWND window);
/// True if the window is `ancestor` or lies in it.
bool isInside(HWND ancestor, HWND window);
bool hasStyle(HWND window, DWORD style);
/// The siblings of a window, itself included, topmost first.
std::vector<HWND> siblingsOf(HWND window);
std::vector<HWND> childrenOf(HWND window);
/// The place of the window on the screen, and of its client area.
RECT screenPlace(HWND window);
RECT clientOnScreen(HWND window);
std::wstring windowText(HWND window);
std::wstring classNameOf(HWND window);

/// WM_COMMAND to the parent.
void notifyParent(HWND control, UINT code);
void tellObservers(HWND window, Change change);

/// Forgets the focus, activation and capture of a window that is going away, telling it first.
void releaseInput(HWND window);
/// Gives activation away from a top-level window that is hidden or destroyed.
void deactivate(HWND window);
/// Puts a window behind a sibling; a null one puts it on top.
void reorder(HWND window, HWND after);
void destroyAllWindows();
void dropPostedMessages(HWND window);

/// A size brought within the window's own limits (WM_GETMINMAXINFO).
SIZE limitedSize(HWND window, SIZE size);
/// Gives the window a place and tells it.
void placeWindow(HWND window, RECT place);
/// Tells the window its place at its first appearance.
void tellFirstPlace(HWND window);

inline int widthOf(const RECT& r) {
  return r.right - r.left;
}
inline int heightOf(const RECT& r) {
  return r.bottom - r.top;
}

}  // namespace kovra::win
