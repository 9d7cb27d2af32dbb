// Clicks and keys on tables of cells.
#include <QCoreApplication>
#include <QTableView>

#include "platform/win/windows/table_state.h"
#include "platform/win/windows/window_api.h"
#include "tests/desktop/hands/native_hands.h"
#include "tests/desktop/hands/native_input.h"

namespace kovra::test {
namespace {

using Cell = win::TableState::Cell;

/// Whether there is such a cell, and a user can type into it.
bool isOpenCell(const win::TableState* table, Cell cell) {
  if (table == nullptr || cell.row < 1 || cell.column < 1) return false;
  const Cell size = table->size();
  return cell.row <= size.row && cell.column <= size.column && !table->isLocked(cell);
}

QPoint middleOf(QTableView& view, Cell cell) {
  const QModelIndex index = view.model()->index(cell.row - 1, cell.column - 1);
  view.scrollTo(index);
  QCoreApplication::processEvents();
  return view.visualRect(index).center();
}

bool isCell(Cell cell) {
  return cell.row > 0 && cell.column > 0;
}

}  // namespace

win::InputResult NativeHands::editCell(HWND table, Cell cell, std::wstring_view text) {
  auto* view = qobject_cast<QTableView*>(usableWidget(table));
  if (view == nullptr || !isOpenCell(win::stateOf<win::TableState>(table), cell))
    return refusal("cell", UserHands::editCell(table, cell, text));
  doubleClickWidget(view->viewport(), middleOf(*view, cell));
  if (auto opened = played("cell"); !opened) return opened;
  showAll();
  const auto* state = win::stateOf<win::TableState>(table);
  const HWND field = state != nullptr ? state->openEditor() : nullptr;
  if (field == nullptr || GetFocus() != field)
    return refusal("cell", UserHands::editCell(table, cell, text));
  selectField();
  if (text.empty()) {
    pressNativeKey({VK_DELETE});
  } else if (auto typed = typeWatched(text); !typed) {
    return typed;
  }
  seeThrough();
  state = win::stateOf<win::TableState>(table);
  if (state != nullptr && state->openEditor() == field && win::windowText(field) != text) {
    pressNativeKey({VK_ESCAPE});
    seeThrough();
    return refusal("cell", UserHands::editCell(table, cell, text));
  }
  pressNativeKey({VK_F1 + 1});
  return played("cell");
}

win::InputResult NativeHands::selectCells(HWND table, Cell first, Cell last) {
  auto* view = qobject_cast<QTableView*>(usableWidget(table));
  if (view == nullptr) return refusal("cells", UserHands::selectCells(table, first, last));
  if (!isCell(first) || !isCell(last))
    return instead("cells", UserHands::selectCells(table, first, last));
  const QPoint from = middleOf(*view, first), to = middleOf(*view, last);
  // A drag that has to scroll on the way isn't one between two places.
  if (!view->viewport()->rect().contains(middleOf(*view, first)))
    return instead("cells", UserHands::selectCells(table, first, last));
  dragWidget(view->viewport(), from, to);
  return played("cells");
}

}  // namespace kovra::test
