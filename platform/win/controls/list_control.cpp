#include "platform/win/controls/list_control.h"

#include <algorithm>

#include "platform/win/controls/list_rows.h"
#include "platform/win/windows/focus.h"
#include "platform/win/windows/window_api.h"

namespace kovra::win {
namespace {

using Row = ListState::Row;
using Column = ListState::Column;

int hitRow(HWND list, const ListState& state, LVHITTESTINFO& hit) {
  const ListLayout layout = ListLayout::of(list, state);
  hit.iItem = -1;
  hit.iSubItem = 0;
  hit.flags = LVHT_NOWHERE;
  if (hit.pt.y < layout.header || hit.pt.x < 0 || hit.pt.x >= layout.width) return -1;
  const int row = state.top + (hit.pt.y - layout.header) / layout.rowHeight;
  if (!state.hasRow(row)) return -1;
  // Only the first column is the row itself, unless the whole row is.
  const bool wholeRow = (state.extendedStyle & LVS_EX_FULLROWSELECT) != 0;
  if (!wholeRow && hit.pt.x >= state.columns.front().width) return -1;
  hit.iItem = row;
  const RECT box = layout.checkBox(state, row);
  const bool onBox = state.hasCheckBoxes() && hit.pt.x >= box.left && hit.pt.x < box.right;
  hit.flags = onBox ? LVHT_ONITEMSTATEICON : LVHT_ONITEMLABEL;
  return row;
}

void tellClick(HWND list, UINT code, const LVHITTESTINFO& hit) {
  NMITEMACTIVATE record{};
  record.iItem = hit.iItem;
  record.ptAction = hit.pt;
  tellListParent(list, code, record);
}

void mouseDown(HWND list, LPARAM where, UINT code) {
  SetFocus(list);
  // The field that lost the focus may have had the list disabled.
  const auto* state = stateOf<ListState>(list);
  if (state == nullptr || !canTakeFocus(list) || !IsWindowVisible(list)) return;
  LVHITTESTINFO hit{};
  hit.pt = {static_cast<SHORT>(LOWORD(where)), static_cast<SHORT>(HIWORD(where))};
  hitRow(list, *state, hit);
  if (hit.flags == LVHT_ONITEMSTATEICON) {
    // The click is told first, while the box still is as it was.
    tellClick(list, code, hit);
    toggleRowCheck(list, hit.iItem);
    return;
  }
  if (hit.iItem >= 0) {
    goToRow(list, hit.iItem);
  } else {
    takeFromOtherRows(list, -1, LVIS_SELECTED);
  }
  if (IsWindow(list)) tellClick(list, code, hit);
}

/// The row that a key leads to from the one with the focus; -1 for other keys.
int rowOfKey(HWND list, const ListState& state, WPARAM key) {
  const auto last = static_cast<int>(state.rows.size()) - 1;
  const int from = state.findState(LVIS_FOCUSED);
  const int page = ListLayout::of(list, state).page;
  switch (key) {
    case VK_UP:
      return std::max(0, from - 1);
    case VK_DOWN:
      return std::min(last, from + 1);
    case VK_PRIOR:
      return std::max(0, from - page + 1);
    case VK_NEXT:
      return std::min(last, std::max(0, from) + page - 1);
    case VK_HOME:
      return 0;
    case VK_END:
      return last;
    default:
      return -1;
  }
}

void keyDown(HWND list, WPARAM key) {
  NMLVKEYDOWN record{};
  record.wVKey = static_cast<WORD>(key);
  tellListParent(list, LVN_KEYDOWN, record);
  const auto* state = stateOf<ListState>(list);
  if (state == nullptr || state->rows.empty()) return;
  if (key == VK_SPACE) return toggleRowCheck(list, state->findState(LVIS_FOCUSED));
  const int row = rowOfKey(list, *state, key);
  if (row >= 0) goToRow(list, row);
}

/// The keyboard needs a row to begin with.
void focusMoved(HWND list, bool got) {
  NMITEMACTIVATE record{};
  tellListParent(list, got ? NM_SETFOCUS : NM_KILLFOCUS, record);
  const auto* state = stateOf<ListState>(list);
  if (got && state != nullptr && state->findState(LVIS_FOCUSED) < 0)
    setRowBits(list, 0, LVIS_FOCUSED, LVIS_FOCUSED);
}

int insertColumn(HWND list, ListState& state, int index, const LVCOLUMNW& column) {
  if (index < 0) return -1;
  const auto place = std::min(static_cast<std::size_t>(index), state.columns.size());
  Column made;
  if ((column.mask & LVCF_TEXT) != 0 && column.pszText != nullptr) made.heading = column.pszText;
  if ((column.mask & LVCF_WIDTH) != 0) made.width = std::max(0, column.cx);
  state.columns.insert(state.columns.begin() + static_cast<std::ptrdiff_t>(place), std::move(made));
  for (Row& row : state.rows)
    if (place < row.texts.size())
      row.texts.insert(row.texts.begin() + static_cast<std::ptrdiff_t>(place), L"");
  tellObservers(list, Change::content);
  return static_cast<int>(place);
}

/// The width that a column's texts need, at least its heading's.
int fittingWidth(HWND list, const ListState& state, int column) {
  constexpr int kHalfWidth = 6, kMargins = 12;
  const auto widthOfText = [](const std::wstring& text) {
    int width = 0;
    for (const wchar_t c : text) width += c < 0x1100 ? kHalfWidth : 2 * kHalfWidth;
    return width;
  };
  int width = widthOfText(state.columns[static_cast<std::size_t>(column)].heading);
  for (int row = 0; state.hasRow(row); ++row)
    width = std::max(width, widthOfText(state.text(row, column)));
  const ListLayout layout = ListLayout::of(list, state);
  const bool boxed = column == 0 && state.hasCheckBoxes();
  return width + (boxed ? layout.cell(state, 0, 0).left : 0) + kMargins;
}

LRESULT setColumnWidth(HWND list, ListState& state, int column, int width) {
  if (column < 0 || static_cast<std::size_t>(column) >= state.columns.size()) return FALSE;
  const bool fit = width == LVSCW_AUTOSIZE || width == LVSCW_AUTOSIZE_USEHEADER;
  if (fit) width = fittingWidth(list, state, column);
  state.columns[static_cast<std::size_t>(column)].width = std::max(0, width);
  tellObservers(list, Change::content);
  return TRUE;
}

LRESULT setExtendedStyle(HWND list, ListState& state, DWORD mask, DWORD style) {
  const DWORD former = state.extendedStyle;
  const bool hadBoxes = state.hasCheckBoxes();
  state.extendedStyle = mask == 0 ? style : (former & ~mask) | (style & mask);
  tellObservers(list, Change::style);
  if (hadBoxes == state.hasCheckBoxes()) return former;
  const UINT image = hadBoxes ? 0 : kUncheckedState;
  for (int row = 0; listWithRow(list, row) != nullptr; ++row)
    changeRowBits(list, row, image, LVIS_STATEIMAGEMASK);
  return former;
}

LRESULT itemRect(HWND list, const ListState& state, int row, RECT& rect) {
  if (!state.hasRow(row)) return FALSE;
  const ListLayout layout = ListLayout::of(list, state);
  const bool label = rect.left == LVIR_LABEL && !state.columns.empty();
  rect = label ? layout.cell(state, row, 0) : layout.row(state, row);
  return TRUE;
}

template <typename Record>
Record& recordAt(LPARAM lParam) {
  return *reinterpret_cast<Record*>(lParam);
}

LRESULT rowMessage(HWND list, ListState& state, UINT message, WPARAM wParam, LPARAM lParam) {
  const auto row = static_cast<int>(wParam);
  auto& item = recordAt<LVITEMW>(lParam);
  switch (message) {
    case LVM_INSERTITEMW:
      return insertRow(list, state, item);
    case LVM_SETITEMW:
      return setRow(list, state, item);
    case LVM_GETITEMW:
      return getRow(state, item);
    case LVM_SETITEMSTATE:
      return setRowState(list, row, item);
    case LVM_SETITEMTEXTW: {
      LVITEMW change = item;
      change.mask = LVIF_TEXT;
      change.iItem = row;
      return setRow(list, state, change);
    }
    default:  // LVM_GETITEMTEXTW
      return state.hasRow(row) ? copyRowText(state.text(row, item.iSubItem), item) : 0;
  }
}

LRESULT queryMessage(HWND list, ListState& state, UINT message, WPARAM wParam, LPARAM lParam) {
  const auto index = static_cast<int>(wParam);
  switch (message) {
    case LVM_GETITEMCOUNT:
      return static_cast<LRESULT>(state.rows.size());
    case LVM_GETSELECTEDCOUNT:
      return std::ranges::count_if(state.rows,
                                   [](const Row& row) { return (row.state & LVIS_SELECTED) != 0; });
    case LVM_GETITEMSTATE:
      return state.hasRow(index)
                 ? static_cast<LRESULT>(state.rows[wParam].state & static_cast<UINT>(lParam))
                 : 0;
    case LVM_GETNEXTITEM: {
      const auto bits = static_cast<UINT>(lParam) & (LVNI_FOCUSED | LVNI_SELECTED);
      if (bits != 0) return state.findState(bits, index);
      return state.hasRow(index + 1) ? index + 1 : -1;
    }
    case LVM_HITTEST:
      return hitRow(list, state, recordAt<LVHITTESTINFO>(lParam));
    case LVM_GETITEMRECT:
      return itemRect(list, state, index, recordAt<RECT>(lParam));
    case LVM_GETTOPINDEX:
      return state.top;
    case LVM_GETCOUNTPERPAGE:
      return ListLayout::of(list, state).page;
    case LVM_GETCOLUMNWIDTH:
      return wParam < state.columns.size() ? state.columns[wParam].width : 0;
    default:  // LVM_GETEXTENDEDLISTVIEWSTYLE
      return state.extendedStyle;
  }
}

LRESULT listMessage(HWND list, ListState& state, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case LVM_INSERTITEMW:
    case LVM_SETITEMW:
    case LVM_GETITEMW:
    case LVM_SETITEMSTATE:
    case LVM_SETITEMTEXTW:
    case LVM_GETITEMTEXTW:
      return rowMessage(list, state, message, wParam, lParam);
    case LVM_GETITEMCOUNT:
    case LVM_GETSELECTEDCOUNT:
    case LVM_GETITEMSTATE:
    case LVM_GETNEXTITEM:
    case LVM_HITTEST:
    case LVM_GETITEMRECT:
    case LVM_GETTOPINDEX:
    case LVM_GETCOUNTPERPAGE:
    case LVM_GETCOLUMNWIDTH:
    case LVM_GETEXTENDEDLISTVIEWSTYLE:
      return queryMessage(list, state, message, wParam, lParam);
    case LVM_DELETEITEM:
      return deleteRow(list, static_cast<int>(wParam));
    case LVM_DELETEALLITEMS:
      return deleteAllRows(list);
    case LVM_INSERTCOLUMNW:
      return insertColumn(list, state, static_cast<int>(wParam), recordAt<LVCOLUMNW>(lParam));
    case LVM_SETCOLUMNWIDTH:
      return setColumnWidth(list, state, static_cast<int>(wParam), static_cast<int>(lParam));
    case LVM_SETEXTENDEDLISTVIEWSTYLE:
      return setExtendedStyle(list, state, static_cast<DWORD>(wParam), static_cast<DWORD>(lParam));
    case LVM_ENSUREVISIBLE:
      scrollToRow(list, static_cast<int>(wParam));
      return state.hasRow(static_cast<int>(wParam)) ? TRUE : FALSE;
    default:
      return DefWindowProcW(list, message, wParam, lParam);
  }
}

LRESULT listProcedure(HWND list, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* state = stateOf<ListState>(list);
  if (state == nullptr) return DefWindowProcW(list, message, wParam, lParam);
  switch (message) {
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS | DLGC_WANTCHARS;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      focusMoved(list, message == WM_SETFOCUS);
      return 0;
    case WM_LBUTTONDOWN:
      mouseDown(list, lParam, NM_CLICK);
      return 0;
    case WM_LBUTTONDBLCLK:
      mouseDown(list, lParam, NM_DBLCLK);
      return 0;
    case WM_KEYDOWN:
      keyDown(list, wParam);
      return 0;
    default:
      return listMessage(list, *state, message, wParam, lParam);
  }
}

std::unique_ptr<WindowState> makeListState() {
  return std::make_unique<ListState>();
}

}  // namespace

bool ListState::isChecked(int row) const {
  return hasRow(row) &&
         (rows[static_cast<std::size_t>(row)].state & LVIS_STATEIMAGEMASK) == kCheckedState;
}

int ListState::findState(UINT bits, int after) const {
  for (int row = std::max(0, after + 1); hasRow(row); ++row)
    if ((rows[static_cast<std::size_t>(row)].state & bits) == bits) return row;
  return -1;
}

const std::wstring& ListState::text(int row, int column) const {
  static const std::wstring kNone;
  const auto& texts = rows[static_cast<std::size_t>(row)].texts;
  const auto index = static_cast<std::size_t>(column);
  return index < texts.size() ? texts[index] : kNone;
}

std::vector<std::wstring> ListState::itemTexts() const {
  std::vector<std::wstring> texts;
  for (int row = 0; hasRow(row); ++row) {
    texts.push_back(text(row, 0));
    for (std::size_t column = 1; column < columns.size(); ++column)
      texts.back() += L'\t' + text(row, static_cast<int>(column));
  }
  return texts;
}

std::vector<int> ListState::itemChecks() const {
  std::vector<int> checks;
  for (int row = 0; hasCheckBoxes() && hasRow(row); ++row) checks.push_back(isChecked(row) ? 1 : 0);
  return checks;
}

bool ListState::pickItem(HWND list, int row) {
  goToRow(list, row);
  LVHITTESTINFO hit{};
  hit.iItem = row;
  if (IsWindow(list)) tellClick(list, NM_CLICK, hit);
  return true;
}

std::optional<POINT> ListState::bringCheckBox(HWND list, int row) {
  if (!hasCheckBoxes() || !hasRow(row)) return std::nullopt;
  scrollToRow(list, row);
  const RECT box = ListLayout::of(list, *this).checkBox(*this, row);
  return POINT{(box.left + box.right) / 2, (box.top + box.bottom) / 2};
}

const OwnWindowClass kListClass({L"SYSLISTVIEW32", listProcedure, makeListState});

}  // namespace kovra::win
