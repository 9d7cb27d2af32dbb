#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/win/base/windows_types.h"
#include "platform/win/windows/table_state.h"

namespace kovra::win {

/// What a user sees of a table of cells.
struct TableListing {
  TableState::Cell size;
  TableState::Cell active;
  std::optional<std::pair<TableState::Cell, TableState::Cell>> block;
  std::vector<TableState::FilledCell> cells;  ///< with a text, row by row
  bool editing = false;
  std::wstring editorText;
  std::size_t from = 0;  ///< the editor's selection, or twice its caret
  std::size_t to = 0;
};

/// What a user sees of a control.
struct ControlListing {
  HWND window = nullptr;
  int id = 0;
  std::string kind;  ///< "button", "check", "radio", "edit", "combo", "list", "label" ...
  bool enabled = false;
  bool visible = false;
  std::optional<int> check;  ///< 0, 1 or 2 (in between), of what can be checked
  std::wstring text;
  std::wstring shown;               ///< the text as it is read: without the marks of access keys;
                                    ///< of a control without a text its tip
  RECT place{};                     ///< in screen pixels
  std::vector<std::wstring> items;  ///< of a list
  std::vector<int> checks;          ///< 0 or 1 for each item, of a list with check boxes
  int selected = -1;                ///< index into them
  std::optional<TableListing> table;
};

/// What a user sees of a dialog.
struct DialogListing {
  HWND window = nullptr;
  std::wstring title;
  unsigned templateId = 0;
  RECT place{};  ///< in screen pixels
  bool minimized = false;
  int focusId = 0;                       ///< id of the control with the focus, 0 for none
  std::vector<ControlListing> controls;  ///< in tab order, those of child dialogs included
};

DialogListing listDialog(HWND dialog);
ControlListing listControl(HWND control);

}  // namespace kovra::win
