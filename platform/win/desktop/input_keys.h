#pragma once

#include "platform/win/desktop/user_input.h"

namespace kovra::win {

/// Presses and lets go a key with the keys that are held beside it. The character that it makes, if
/// any, comes between.
void sendKey(HWND target, Keystroke key);

}  // namespace kovra::win
