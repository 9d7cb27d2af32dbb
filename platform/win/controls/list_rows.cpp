#include "platform/win/controls/list_rows.h"

#include <algorithm>

#include "platform/win/windows/window_api.h"

namespace kovra::win {
namespace {

constexpr int kAllRows = -1;

using Row = ListState::Row;

LRESULT tellState(HWND list, UINT code, int row, const Row& known, UINT bits) {
  NMLISTVIEW record{};
  record.iItem = row;
  record.uNewState = bits;
  record.uOldState = known.state;
  record.uChanged = LVIF_STATE;
  record.lParam = known.data;
  return tellListParent(list, code, record);
}

void setText(Row& row, int column, const wchar_t* text) {
  const auto index = static_cast<std::size_t>(column);
  if (row.texts.size() <= index) row.texts.resize(index + 1);
  row.texts[index] = text != nullptr ? text : L"";
}

}  // namespace

ListState* listWithRow(HWND list, int row) {
  auto* state = stateOf<ListState>(list);
  return state != nullptr && state->hasRow(row) ? state : nullptr;
}

bool changeRowBits(HWND list, int row, UINT bits, UINT mask) {
  ListState* state = listWithRow(list, row);
  if (state == nullptr) return false;
  const Row before = state->rows[static_cast<std::size_t>(row)];
  const UINT after = (before.state & ~mask) | (bits & mask);
  if (after == before.state) return true;
  if (tellState(list, LVN_ITEMCHANGING, row, before, after) != 0) return true;
  state = listWithRow(list, row);
  if (state == nullptr) return false;
  state->rows[static_cast<std::size_t>(row)].state = after;
  tellObservers(list, Change::content);
  tellState(list, LVN_ITEMCHANGED, row, before, after);
  return true;
}

void takeFromOtherRows(HWND list, int row, UINT bit) {
  int other = -1;
  for (const auto* state = stateOf<ListState>(list); state != nullptr;
       state = stateOf<ListState>(list)) {
    other = state->findState(bit, other);
    if (other < 0) return;
    if (other != row) changeRowBits(list, other, 0, bit);
  }
}

bool setRowBits(HWND list, int row, UINT bits, UINT mask) {
  if (listWithRow(list, row) == nullptr) return false;
  const UINT set = bits & mask;
  if ((set & LVIS_FOCUSED) != 0) takeFromOtherRows(list, row, LVIS_FOCUSED);
  if ((set & LVIS_SELECTED) != 0 && hasStyle(list, LVS_SINGLESEL))
    takeFromOtherRows(list, row, LVIS_SELECTED);
  return changeRowBits(list, row, bits, mask);
}

LRESULT setRowState(HWND list, int row, const LVITEMW& item) {
  if (row != kAllRows) return setRowBits(list, row, item.state, item.stateMask) ? TRUE : FALSE;
  for (int i = 0; listWithRow(list, i) != nullptr; ++i)
    setRowBits(list, i, item.state, item.stateMask);
  return TRUE;
}

void toggleRowCheck(HWND list, int row) {
  const ListState* state = listWithRow(list, row);
  if (state == nullptr || !state->hasCheckBoxes()) return;
  changeRowBits(list, row, state->isChecked(row) ? kUncheckedState : kCheckedState,
                LVIS_STATEIMAGEMASK);
}

void scrollToRow(HWND list, int row) {
  auto* state = listWithRow(list, row);
  if (state == nullptr) return;
  const int page = ListLayout::of(list, *state).page;
  const int former = state->top;
  state->top = std::clamp(former, std::max(0, row - page + 1), row);
  if (state->top != former) tellObservers(list, Change::repaint);
}

void goToRow(HWND list, int row) {
  scrollToRow(list, row);
  takeFromOtherRows(list, row, LVIS_SELECTED);
  setRowBits(list, row, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
}

int insertRow(HWND list, ListState& state, const LVITEMW& item) {
  if (item.iItem < 0 || item.iSubItem != 0) return -1;
  const auto row = std::min(item.iItem, static_cast<int>(state.rows.size()));
  Row made;
  if ((item.mask & LVIF_TEXT) != 0) setText(made, 0, item.pszText);
  if ((item.mask & LVIF_PARAM) != 0) made.data = item.lParam;
  state.rows.insert(state.rows.begin() + row, std::move(made));
  tellObservers(list, Change::content);
  NMLISTVIEW record{};
  record.iItem = row;
  tellListParent(list, LVN_INSERTITEM, record);
  const auto* now = stateOf<ListState>(list);
  if (now != nullptr && now->hasCheckBoxes())
    changeRowBits(list, row, kUncheckedState, LVIS_STATEIMAGEMASK);
  if ((item.mask & LVIF_STATE) != 0) setRowBits(list, row, item.state, item.stateMask);
  return row;
}

LRESULT setRow(HWND list, ListState& state, const LVITEMW& item) {
  if (!state.hasRow(item.iItem) || item.iSubItem < 0) return FALSE;
  if (item.iSubItem > 0 && static_cast<std::size_t>(item.iSubItem) >= state.columns.size())
    return FALSE;
  Row& row = state.rows[static_cast<std::size_t>(item.iItem)];
  if ((item.mask & LVIF_TEXT) != 0) setText(row, item.iSubItem, item.pszText);
  if ((item.mask & LVIF_PARAM) != 0) row.data = item.lParam;
  tellObservers(list, Change::content);
  if ((item.mask & LVIF_STATE) != 0) setRowBits(list, item.iItem, item.state, item.stateMask);
  return TRUE;
}

LRESULT copyRowText(const std::wstring& text, const LVITEMW& item) {
  if (item.pszText == nullptr || item.cchTextMax <= 0) return 0;
  const std::size_t length = std::min(text.size(), static_cast<std::size_t>(item.cchTextMax) - 1);
  std::copy_n(text.data(), length, item.pszText);
  item.pszText[length] = 0;
  return static_cast<LRESULT>(length);
}

LRESULT getRow(const ListState& state, LVITEMW& item) {
  if (!state.hasRow(item.iItem)) return FALSE;
  const Row& row = state.rows[static_cast<std::size_t>(item.iItem)];
  if ((item.mask & LVIF_TEXT) != 0) copyRowText(state.text(item.iItem, item.iSubItem), item);
  if ((item.mask & LVIF_PARAM) != 0) item.lParam = row.data;
  if ((item.mask & LVIF_STATE) != 0) item.state = row.state & item.stateMask;
  return TRUE;
}

LRESULT deleteRow(HWND list, int row) {
  if (listWithRow(list, row) == nullptr) return FALSE;
  NMLISTVIEW record{};
  record.iItem = row;
  tellListParent(list, LVN_DELETEITEM, record);
  ListState* state = listWithRow(list, row);
  if (state == nullptr) return FALSE;
  state->rows.erase(state->rows.begin() + row);
  state->top = std::clamp(state->top, 0, std::max(0, static_cast<int>(state->rows.size()) - 1));
  tellObservers(list, Change::content);
  return TRUE;
}

LRESULT deleteAllRows(HWND list) {
  NMLISTVIEW record{};
  record.iItem = -1;
  tellListParent(list, LVN_DELETEALLITEMS, record);
  auto* state = stateOf<ListState>(list);
  if (state == nullptr) return FALSE;
  state->rows.clear();
  state->top = 0;
  tellObservers(list, Change::content);
  return TRUE;
}

}  // namespace kovra::win
