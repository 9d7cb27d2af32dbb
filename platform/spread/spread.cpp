#include "platform/spread/spread.h"

#include <algorithm>

#include "platform/spread/cell_text.h"
#include "platform/spread/grid_editor.h"
#include "platform/win/base/interaction.h"
#include "platform/win/controls/edit_control.h"
#include "platform/win/windows/clipboard.h"
#include "platform/win/windows/window_api.h"

using namespace kovra::spread;

namespace {

BOOL answer(bool done) {
  return done ? TRUE : FALSE;
}

/// The field of the open editor; null when none is open.
const kovra::win::EditState* openField(HWND grid) {
  const GridState* state = gridOf(grid);
  return state != nullptr ? kovra::win::stateOf<kovra::win::EditState>(state->editor) : nullptr;
}

std::wstring_view given(LPCWSTR text) {
  return text != nullptr ? text : L"";
}

}  // namespace

BOOL SSSetFont(HWND grid, LONG /*col*/, LONG /*row*/, HFONT font, BOOL /*reserved*/) {
  if (gridOf(grid) == nullptr) return FALSE;
  kovra::win::findWindow(grid)->font = font;
  return TRUE;
}

BOOL SSSetBool(HWND grid, SHORT option, BOOL value) {
  GridState* state = gridOf(grid);
  if (state == nullptr || !state->setOption(option, value != FALSE)) return FALSE;
  changed(grid);
  return TRUE;
}

BOOL SSGetBool(HWND grid, SHORT option) {
  const GridState* state = gridOf(grid);
  return answer(state != nullptr && state->option(option));
}

BOOL SSGetActiveCell(HWND grid, LONG* col, LONG* row) {
  const GridState* state = gridOf(grid);
  const bool any = state != nullptr && state->cells.columns() > 0 && state->cells.rows() > 0;
  if (any && col != nullptr) *col = state->selection.active.col;
  if (any && row != nullptr) *row = state->selection.active.row;
  return answer(any);
}

BOOL SSSetActiveCell(HWND grid, LONG col, LONG row) {
  const GridState* state = gridOf(grid);
  if (state == nullptr || col < 1 || row < 1 || !state->cells.has(col, row)) return FALSE;
  if (!closeEditor(grid, true)) return FALSE;
  goToCell(grid, {col, row}, false);
  return TRUE;
}

BOOL SSGetSelectBlock(HWND grid, SS_CELL* first, SS_CELL* last) {
  const GridState* state = gridOf(grid);
  if (state == nullptr || !state->selection.block) return FALSE;
  if (first != nullptr) *first = state->selection.block->first;
  if (last != nullptr) *last = state->selection.block->last;
  return TRUE;
}

BOOL SSSetSelectBlock(HWND grid, const SS_CELL* first, const SS_CELL* last) {
  GridState* state = gridOf(grid);
  if (state == nullptr || first == nullptr || last == nullptr) return FALSE;
  if (!closeEditor(grid, true)) return FALSE;
  Selection& selection = state->selection;
  const Block block = blockBetween(*first, *last);
  const Block cells = bounded(block, state->extent());
  if (!holds(block, selection.active)) selection.active = cells.first;
  selection.block = block;
  selection.lead = cells.last;
  changed(grid);
  return TRUE;
}

LONG SSGetMaxCols(HWND grid) {
  const GridState* state = gridOf(grid);
  return state != nullptr ? state->cells.columns() : 0;
}

LONG SSGetMaxRows(HWND grid) {
  const GridState* state = gridOf(grid);
  return state != nullptr ? state->cells.rows() : 0;
}

BOOL SSSetMaxCols(HWND grid, LONG count) {
  if (gridOf(grid) == nullptr || !closeEditor(grid, true)) return FALSE;
  GridState* state = gridOf(grid);
  if (!state->cells.setColumns(count)) return FALSE;
  state->selection.moveTo(boundedCell(state->selection.active, state->extent()));
  state->updated(grid);
  changed(grid);
  return TRUE;
}

BOOL SSDelRow(HWND grid, LONG row) {
  if (gridOf(grid) == nullptr || !closeEditor(grid, true)) return FALSE;
  GridState* state = gridOf(grid);
  if (!state->cells.deleteRow(row)) return FALSE;
  state->selection.moveTo(boundedCell(state->selection.active, state->extent()));
  changed(grid);
  return TRUE;
}

BOOL SSGetCellType(HWND grid, LONG col, LONG row, SS_CELLTYPE* type) {
  const GridState* state = gridOf(grid);
  if (state == nullptr || type == nullptr || !state->cells.has(col, row)) return FALSE;
  *type = state->cells.type(col, row);
  return TRUE;
}

BOOL SSSetCellType(HWND grid, LONG col, LONG row, const SS_CELLTYPE* type) {
  GridState* state = gridOf(grid);
  if (state == nullptr || type == nullptr || col < -1 || row < -1) return FALSE;
  state->cells.types.set(col, row, *type);
  changed(grid);
  return TRUE;
}

BOOL SSSetTypeNumber(HWND grid, SS_CELLTYPE* type, DWORD style, SHORT digits, double min,
                     double max) {
  constexpr SHORT kMostDigits = 15;
  if (gridOf(grid) == nullptr || type == nullptr || min > max) return FALSE;
  *type = {SS_TYPE_NUMBER, std::clamp<SHORT>(digits, 0, kMostDigits), style, min, max};
  return TRUE;
}

BOOL SSGetLock(HWND grid, LONG col, LONG row) {
  const GridState* state = gridOf(grid);
  return answer(state != nullptr && state->locked({col, row}));
}

BOOL SSSetLock(HWND grid, LONG col, LONG row, BOOL lock) {
  GridState* state = gridOf(grid);
  if (state == nullptr || col < -1 || row < -1) return FALSE;
  state->cells.locks.set(col, row, lock != FALSE);
  return TRUE;
}

LONG SSGetDataLen(HWND grid, LONG col, LONG row) {
  const GridState* state = gridOf(grid);
  return state != nullptr ? static_cast<LONG>(state->cells.text(col, row).size()) : 0;
}

BOOL SSGetData(HWND grid, LONG col, LONG row, LPWSTR buffer) {
  const GridState* state = gridOf(grid);
  if (state == nullptr || buffer == nullptr) return FALSE;
  const std::wstring& text = state->cells.text(col, row);
  std::copy_n(text.c_str(), text.size() + 1, buffer);
  return answer(state->cells.has(col, row));
}

BOOL SSSetData(HWND grid, LONG col, LONG row, LPCWSTR text) {
  GridState* state = gridOf(grid);
  if (state == nullptr || !state->setText({col, row}, given(text))) return FALSE;
  changed(grid);
  return TRUE;
}

BOOL SSGetEditMode(HWND grid) {
  const GridState* state = gridOf(grid);
  return answer(state != nullptr && state->editor != nullptr);
}

BOOL SSSetEditMode(HWND grid, BOOL edit) {
  return answer(edit ? openEditor(grid) : closeEditor(grid, true));
}

BOOL SSSetEditEnterAction(HWND grid, SHORT action) {
  GridState* state = gridOf(grid);
  if (state == nullptr) return FALSE;
  state->enterAction = action;
  return TRUE;
}

HGLOBAL SSGetSelText(HWND grid) {
  const auto* field = openField(grid);
  if (field == nullptr || field->edit.selected().empty()) return nullptr;
  const std::wstring text(field->edit.selected());
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t));
  auto* const target = static_cast<wchar_t*>(GlobalLock(memory));
  if (target == nullptr) return nullptr;
  std::copy_n(text.c_str(), text.size() + 1, target);
  GlobalUnlock(memory);
  return memory;
}

BOOL SSReplaceSel(HWND grid, LPCWSTR text) {
  const auto* field = openField(grid);
  if (field == nullptr) return FALSE;
  std::wstring taken(given(text));
  taken.resize(std::min(taken.find_first_of(L"\r\n"), taken.size()));
  if (field->allows && !field->allows(field->edit.textWith(taken))) return FALSE;
  SendMessageW(gridOf(grid)->editor, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(taken.c_str()));
  return TRUE;
}

BOOL SSClipboardCopy(HWND grid) {
  const GridState* state = gridOf(grid);
  if (state == nullptr) return FALSE;
  kovra::win::interaction().setClipboard(selectedText(*state));
  return TRUE;
}

BOOL SSClipboardCut(HWND grid) {
  if (!SSClipboardCopy(grid)) return FALSE;
  clearSelected(*gridOf(grid));
  changed(grid);
  return TRUE;
}

BOOL SSGetClientRect(HWND grid, RECT* rect) {
  GridState* state = gridOf(grid);
  if (state == nullptr || rect == nullptr) return FALSE;
  *rect = state->updated(grid).cellsArea();
  return TRUE;
}

BOOL SSSetColWidthInPixels(HWND grid, LONG col, LONG width) {
  GridState* state = gridOf(grid);
  if (state == nullptr || col < 1 || width < 0) return FALSE;
  state->layout.widths[col] = width;
  changed(grid);
  return TRUE;
}
