#pragma once

#include "platform/spread/grid_state.h"

/// The editor: a field in the place of the active cell.
namespace kovra::spread {

/// Opens it with the cell's text; true when one is open then. A locked cell has none.
bool openEditor(HWND grid);
/// Opens it with what was typed in the place of the cell's text; a backspace empties it.
void openEditorTyping(HWND grid, wchar_t character);
/// Closes it. With `take` the cell gets its text, if the user has changed it and the cell can take
/// it. False when the grid has ended meanwhile.
bool closeEditor(HWND grid, bool take);

}  // namespace kovra::spread
