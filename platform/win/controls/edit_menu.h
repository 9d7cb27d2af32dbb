#pragma once

#include "platform/win/controls/edit_control.h"

namespace kovra::win {

/// The context menu that every field has: undo, the clipboard, select all. `where` is on the
/// screen, as WM_CONTEXTMENU carries it.
void showEditMenu(HWND field, const EditState& state, LPARAM where);

}  // namespace kovra::win
