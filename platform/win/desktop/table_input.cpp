#include "platform/win/desktop/table_input.h"

#include "platform/win/base/wide_text.h"
#include "platform/win/controls/edit_control.h"
#include "platform/win/desktop/input_keys.h"
#include "platform/win/desktop/input_targets.h"
#include "platform/win/windows/menus.h"
#include "platform/win/windows/message_queue.h"
#include "platform/win/windows/window_api.h"

namespace kovra::win {
namespace {

using Cell = TableState::Cell;
constexpr Keystroke kEditKey{VK_F1 + 1};

std::string nameOf(Cell cell) {
  return "row " + std::to_string(cell.row) + " column " + std::to_string(cell.column);
}

/// The table, or null with the reason why a user can't get at the cell.
TableState* tableWith(HWND window, Cell cell, Cell least, InputResult& result) {
  result = reachable(window);
  if (!result) return nullptr;
  auto* table = stateOf<TableState>(window);
  if (table == nullptr) {
    result = refused(window, "has no cells");
    return nullptr;
  }
  const Cell size = table->size();
  const bool inside = cell.row >= least.row && cell.row <= size.row &&
                      cell.column >= least.column && cell.column <= size.column;
  if (inside) return table;
  result = refused(window, "has no " + nameOf(cell) + ", it has " + std::to_string(size.row) +
                               " rows and " + std::to_string(size.column) + " columns");
  return nullptr;
}

/// The middle of a cell or header, which comes into sight for it; nothing when it can't be seen.
std::optional<POINT> middleOf(HWND window, Cell cell) {
  auto* table = stateOf<TableState>(window);
  if (table == nullptr) return std::nullopt;
  table->scrollTo(window, cell);
  const RECT place = table->placeOf(cell);
  if (place.right <= place.left) return std::nullopt;
  return POINT{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

bool press(HWND window, Cell cell, UINT message) {
  const std::optional<POINT> place = middleOf(window, cell);
  if (!place) return false;
  deliver(window, message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON, moveCursorTo(window, *place));
  return IsWindow(window) != FALSE;
}

InputResult clickCell(HWND window, Cell cell) {
  if (!press(window, cell, WM_LBUTTONDOWN)) return refused(window, "doesn't show " + nameOf(cell));
  press(window, cell, WM_LBUTTONUP);
  return reachable(window);
}

/// The same cell with the first one in the place of a whole row or column.
Cell cellIn(Cell cell) {
  return {cell.column < 0 ? 1 : cell.column, cell.row < 0 ? 1 : cell.row};
}

/// Types into the open editor; refused, with the cell as it was, when it doesn't take all of it.
InputResult typeIntoCell(HWND window, Cell cell, std::wstring_view text) {
  const HWND field = GetFocus();
  SendMessageW(field, EM_SETSEL, 0, -1);
  if (text.empty()) {
    sendKey(field, {VK_DELETE});
  } else if (auto result = typeCharacters(text); !result) {
    return result;
  }
  const auto* table = stateOf<TableState>(window);
  if (table != nullptr && table->openEditor() == field && windowText(field) != text) {
    sendKey(field, {VK_ESCAPE});
    return refused(window, "doesn't take \"" + toUtf8(text) + "\" in " + nameOf(cell));
  }
  sendKey(GetFocus(), kEditKey);
  return {};
}

/// "Cu&t\tCtrl+X" -> "Cut".
std::wstring plainItem(std::wstring_view text) {
  std::wstring plain;
  for (const wchar_t c : text.substr(0, text.find(L'\t')))
    if (c != L'&') plain += c;
  return plain;
}

struct MenuOutcome {
  bool shown = false;
  bool chosen = false;
  std::string choices;  ///< what could have been chosen
};

/// The position of the item that can be chosen and reads so, or -1.
int positionOf(const std::vector<MenuItem>& items, std::wstring_view wanted, MenuOutcome& outcome) {
  outcome.shown = true;
  for (std::size_t i = 0; i < items.size(); ++i) {
    if ((items[i].flags & (MF_SEPARATOR | MF_GRAYED | MF_DISABLED)) != 0) continue;
    const std::wstring item = plainItem(items[i].text);
    outcome.chosen = equalNoCase(item, wanted);
    if (outcome.chosen) return static_cast<int>(i);
    outcome.choices += (outcome.choices.empty() ? "" : ", ") + toUtf8(item);
  }
  return -1;
}

void pressRight(HWND window, POINT place) {
  const LPARAM where = moveCursorTo(window, place);
  deliver(window, WM_RBUTTONDOWN, 0, where);
  if (IsWindow(window)) deliver(window, WM_RBUTTONUP, 0, where);
}

}  // namespace

InputResult editCell(HWND window, Cell cell, std::wstring_view text) {
  InputResult result;
  const TableState* table = tableWith(window, cell, {1, 1}, result);
  if (table == nullptr) return result;
  if (table->isLocked(cell)) return refused(window, nameOf(cell) + " is locked");
  if (result = clickCell(window, cell); !result) return result;
  press(window, cell, WM_LBUTTONDBLCLK);
  table = stateOf<TableState>(window);
  if (table == nullptr || table->openEditor() == nullptr || GetFocus() != table->openEditor())
    return refused(window, "opens no field in " + nameOf(cell));
  return typeIntoCell(window, cell, text);
}

InputResult selectCells(HWND window, Cell first, Cell last) {
  InputResult result;
  for (const Cell cell : {first, last})
    if (tableWith(window, cell, {-1, -1}, result) == nullptr) return result;
  if ((first.row < 0) != (last.row < 0) || (first.column < 0) != (last.column < 0))
    return refused(window, "takes -1 in both cells or in none");
  const bool wholeRows = first.column < 0, wholeColumns = first.row < 0;
  if (!press(window, cellIn(first), WM_LBUTTONDOWN))
    return refused(window, "doesn't show " + nameOf(first));
  press(window, cellIn(last), WM_MOUSEMOVE);
  press(window, cellIn(last), WM_LBUTTONUP);
  if (wholeRows || wholeColumns) sendKey(window, {VK_SPACE, wholeRows, wholeColumns});
  return {};
}

InputResult doubleClickCell(HWND window, Cell cell) {
  InputResult result;
  if (tableWith(window, cell, {1, 1}, result) == nullptr) return result;
  if (result = clickCell(window, cell); result) press(window, cell, WM_LBUTTONDBLCLK);
  return result;
}

InputResult openMenu(HWND control, std::optional<Cell> cell) {
  InputResult result = reachable(control);
  if (!result) return result;
  const auto* table = stateOf<TableState>(control);
  const HWND inner = table != nullptr ? table->openEditor() : GetWindow(control, GW_CHILD);
  const bool inField = inner != nullptr && !cell;
  const HWND target = inField ? inner : control;
  POINT place = middleOf(target);
  if (table != nullptr && !inField) {
    if (cell && tableWith(control, *cell, {0, 0}, result) == nullptr) return result;
    place = middleOf(control, cell.value_or(table->activeCell())).value_or(place);
  }
  pressRight(target, place);
  return result;
}

InputResult chooseFromMenu(HWND control, std::wstring_view item) {
  MenuOutcome outcome;
  const MenuAnswer answer(
      [&](const std::vector<MenuItem>& items) { return positionOf(items, item, outcome); });
  if (auto result = openMenu(control); !result || outcome.chosen) return result;
  if (!outcome.shown) return refused(control, "has no context menu");
  return refused(control, "has no item \"" + toUtf8(item) + "\" to choose in its menu" +
                              (outcome.choices.empty() ? "" : ", but " + outcome.choices));
}

}  // namespace kovra::win
