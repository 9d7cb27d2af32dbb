#pragma once

#include <string>

#include "platform/win/desktop/user_input.h"

/// What the functions of the user's input share: whether a window can be reached, how a refusal
/// names it, where the mouse goes.
namespace kovra::win {

InputResult refused(HWND window, const std::string& why);

/// Why a user can't reach a window; no error if he can.
InputResult reachable(HWND window);

/// Moves the cursor to a place in the window's client area; gives it as messages of the mouse carry
/// it.
LPARAM moveCursorTo(HWND window, POINT place);
/// The middle of the window's client area, for moveCursorTo().
POINT middleOf(HWND window);

}  // namespace kovra::win
