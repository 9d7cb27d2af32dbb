// Lines for tables of cells and for context menus.
#include "host/lines/line_handlers.h"
#include "platform/win/desktop/table_input.h"

namespace kovra::host {
namespace {

Result<win::TableState::Cell> cellArgument(Arguments& arguments) {
  const Result<int> row = arguments.integer("a row");
  if (!row) return row.error();
  const Result<int> column = arguments.integer("a column");
  if (!column) return column.error();
  return win::TableState::Cell{column.value(), row.value()};
}

Result<void> cellLine(LineContext& context, Arguments& arguments) {
  const Result<HWND> window = namedControl(context, arguments);
  if (!window) return window.error();
  const Result<win::TableState::Cell> cell = cellArgument(arguments);
  if (!cell) return cell.error();
  const Result<std::wstring> text = arguments.text("a text (\"\" for none)");
  if (!text) return text.error();
  return done(context.hands.editCell(window.value(), cell.value(), text.value()));
}

Result<void> cellsLine(LineContext& context, Arguments& arguments) {
  const Result<HWND> window = namedControl(context, arguments);
  if (!window) return window.error();
  const Result<win::TableState::Cell> first = cellArgument(arguments);
  if (!first) return first.error();
  const Result<win::TableState::Cell> last = cellArgument(arguments);
  if (!last) return last.error();
  if (const Result<void> end = arguments.end(); !end) return end;
  return done(context.hands.selectCells(window.value(), first.value(), last.value()));
}

Result<void> menuLine(LineContext& context, Arguments& arguments) {
  const Result<HWND> window = namedControl(context, arguments);
  if (!window) return window.error();
  const Result<std::wstring> item = arguments.text("an item of the menu");
  if (!item) return item.error();
  return done(context.hands.chooseFromMenu(window.value(), item.value()));
}

constexpr LineHandler kLines[] = {
    {L"cell", cellLine, false, L"ID ROW COL TEXT",
     L"types over a cell of a table, \"\" empties it"},
    {L"cells", cellsLine, false, L"ID R1 C1 R2 C2",
     L"selects cells, from 1; 0 clicks a header, -1 takes whole rows or columns"},
    {L"menu", menuLine, false, L"ID MENU-ITEM", L"chooses from the context menu"},
};

}  // namespace

std::span<const LineHandler> tableLines() {
  return kLines;
}

}  // namespace kovra::host
