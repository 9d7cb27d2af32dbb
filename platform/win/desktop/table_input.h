#pragma once

#include "platform/win/desktop/user_input.h"
#include "platform/win/windows/table_state.h"

/// What a user does with a table of cells, and with context menus; as user_input.h says. A table
/// that holds too little, a locked cell, a text that the cell doesn't take and an item that the
/// menu lacks are refused.
namespace kovra::win {

/// Clicks a cell, types over its text and closes the editor by F2; the cell stays the active one.
InputResult editCell(HWND table, TableState::Cell cell, std::wstring_view text);

/// Drags from one cell to another. A 0 is a click on the header, a -1 takes whole rows or columns
/// by the keyboard.
InputResult selectCells(HWND table, TableState::Cell first, TableState::Cell last);

/// Clicks a cell twice, which opens its field.
InputResult doubleClickCell(HWND table, TableState::Cell cell);

/// Presses the right button on a control, of a table on the cell or, without one, on the active
/// cell or its open field. Who answers menus is shown the one that comes up.
InputResult openMenu(HWND control, std::optional<TableState::Cell> cell = std::nullopt);

/// Presses the right button on the active cell of a table, its open field or any other control, and
/// chooses from the menu that comes up.
InputResult chooseFromMenu(HWND control, std::wstring_view item);

}  // namespace kovra::win
