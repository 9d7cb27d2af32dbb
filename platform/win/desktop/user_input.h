#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/win/base/windows_types.h"

/// What a user does with windows, in the one set of functions that scripts and front ends use. Each
/// returns when everything that the input caused by itself has been handled; posted messages wait
/// for the pump. What a user couldn't do (a hidden, disabled or missing control, an item that the
/// list lacks) is refused with a text that says so, and nothing has happened then.
namespace kovra::win {

struct InputResult {
  std::string error;  ///< UTF-8, for the user; empty when it was done

  bool ok() const { return error.empty(); }
  explicit operator bool() const { return ok(); }
};

// Finding.
/// The visible and enabled dialogs, the topmost first. Child dialogs aren't listed.
std::vector<HWND> openDialogs();
/// The topmost of them; null if there is none.
HWND topDialog();
/// The dialog made from this template among them; null if there is none.
HWND dialogOfTemplate(unsigned templateId);
/// The control with this id in the dialog or its child dialogs; of several the first visible one.
HWND controlWithId(HWND dialog, int id);
/// The control that has the focus (of a combo box's field the combo box); null if none has it.
HWND focusedControl();

// The mouse.
/// Presses a button, toggles a check box, checks a radio, puts the caret in a field.
InputResult clickControl(HWND control);
InputResult doubleClickControl(HWND control);
/// Moves the cursor over a window without pressing anything.
InputResult moveOver(HWND window);
/// Presses an arrow of an up-down once.
InputResult pressArrow(HWND control, bool up);
InputResult chooseItem(HWND control, std::wstring_view text);
InputResult chooseIndex(HWND control, int index);
/// Clicks the check box of an item of a list, scrolled into sight.
InputResult clickItemCheck(HWND control, int index);
InputResult placeCaret(HWND control, int from, int to);
InputResult focusControl(HWND control);

// The keyboard.
/// Focuses the field, selects its text and types over it, character by character. An empty text
/// empties the field.
InputResult typeOver(HWND control, std::wstring_view text);
/// Types into the control that has the focus.
InputResult typeCharacters(std::wstring_view text);

struct Keystroke {
  int key = 0;  ///< VK_ number
  bool shift = false;
  bool control = false;
  bool alt = false;
};
/// "Enter", "Shift+Insert", "Ctrl+C", "Alt+N", "F2"; nothing for an unknown name.
std::optional<Keystroke> keyNamed(std::string_view name);
/// The keys with a name of their own, as keyNamed() knows them.
std::vector<std::string> keyNames();
/// Presses the key in the control, which gets the focus first.
InputResult pressKey(HWND control, Keystroke key);
/// Presses the key where the focus is, or in the dialog if no control of it has the focus.
InputResult pressKeyInDialog(HWND dialog, Keystroke key);

// The dialog itself.
InputResult pressCloseBox(HWND dialog);
InputResult moveDialog(HWND dialog, int x, int y);
/// By its frame, or by a grip in its corner that it answers for itself.
bool dialogCanBeSized(HWND dialog);
/// Refused when the dialog can't be sized; its own limits hold.
InputResult sizeDialog(HWND dialog, int width, int height);
InputResult minimizeDialog(HWND dialog);
InputResult restoreDialog(HWND dialog);

}  // namespace kovra::win
