#include "platform/spread/grid_editor.h"
#include "platform/win/windows/window_api.h"

namespace kovra::spread {
namespace {

constexpr int kEditKey = VK_F1 + 1;

bool isDown(int key) {
  return GetKeyState(key) < 0;
}

/// Tells the key; false when the grid has ended or its editor has opened or closed by that, so that
/// the key is used up.
bool tellKey(HWND grid, WPARAM key) {
  const HWND before = gridOf(grid)->editor;
  const LPARAM held =
      (isDown(VK_SHIFT) ? SS_KEY_SHIFT : 0) | (isDown(VK_CONTROL) ? SS_KEY_CONTROL : 0);
  SendMessageW(grid, SSN_KEY, static_cast<WPARAM>(GetDlgCtrlID(grid)), LOWORD(key) | held);
  return gridOf(grid) != nullptr && gridOf(grid)->editor == before;
}

/// The selected cells become whole rows or columns.
void selectWhole(HWND grid, bool rows, bool columns) {
  Selection& selection = gridOf(grid)->selection;
  const SS_CELL corner = selection.block ? selection.lead : selection.active;
  selection.extendTo({rows ? -1 : corner.col, columns ? -1 : corner.row});
  changed(grid);
}

void afterEnter(HWND grid) {
  const GridState* state = gridOf(grid);
  if (state->enterAction != SS_ENTER_NEXT) return;
  goToCell(grid, nextCell(state->selection.active, isDown(VK_SHIFT), state->extent()), false);
}

void afterTab(HWND grid) {
  const GridState* state = gridOf(grid);
  goToCell(grid, nextCell(state->selection.active, isDown(VK_SHIFT), state->extent()), false);
}

/// Moves the active cell, or with Shift the other corner of the block.
bool moveByKey(HWND grid, WPARAM key, bool extend) {
  GridState* state = gridOf(grid);
  state->updated(grid);
  const SS_CELL from =
      extend && state->selection.block ? state->selection.lead : state->selection.active;
  const auto to = cellByKey(from, static_cast<int>(key), isDown(VK_CONTROL), state->extent());
  if (to) goToCell(grid, *to, extend);
  return to.has_value();
}

bool wantsTab(HWND grid) {
  const GridState* state = gridOf(grid);
  return state != nullptr && !state->option(SS_BOOL_TAB_LEAVES);
}

/// Keys that end the editor; the others are the field's.
bool keyInEditor(HWND grid, WPARAM key) {
  switch (key) {
    case VK_ESCAPE:
      closeEditor(grid, false);
      return true;
    case kEditKey:
      closeEditor(grid, true);
      return true;
    case VK_RETURN:
      if (closeEditor(grid, true)) afterEnter(grid);
      return true;
    case VK_TAB:
      if (wantsTab(grid) && closeEditor(grid, true)) afterTab(grid);
      return true;
    case VK_UP:
    case VK_DOWN:
    case VK_PRIOR:
    case VK_NEXT:
      if (closeEditor(grid, true)) moveByKey(grid, key, false);
      return true;
    default:
      return false;
  }
}

}  // namespace

bool keyPressed(HWND grid, WPARAM key, bool inEditor) {
  if (gridOf(grid) == nullptr || !tellKey(grid, key)) return true;
  if (inEditor) return keyInEditor(grid, key);
  switch (key) {
    case kEditKey:
      openEditor(grid);
      return true;
    case VK_RETURN:
      afterEnter(grid);
      return true;
    case VK_TAB:
      if (wantsTab(grid)) afterTab(grid);
      return true;
    case VK_SPACE:
      if (isDown(VK_SHIFT) || isDown(VK_CONTROL))
        selectWhole(grid, isDown(VK_SHIFT), isDown(VK_CONTROL));
      return true;
    case 'A':
      if (isDown(VK_CONTROL)) selectWhole(grid, true, true);
      return true;
    default:
      return moveByKey(grid, key, isDown(VK_SHIFT));
  }
}

void characterTyped(HWND grid, wchar_t character) {
  const bool selects = character == L' ' && (isDown(VK_SHIFT) || isDown(VK_CONTROL));
  if ((character >= L' ' && !selects) || character == L'\b') openEditorTyping(grid, character);
}

LRESULT dialogCode(HWND grid, const MSG* message, bool inEditor) {
  LRESULT code = DLGC_WANTCHARS | DLGC_WANTARROWS | (wantsTab(grid) ? DLGC_WANTTAB : 0);
  if (message == nullptr || message->message != WM_KEYDOWN) return code;
  const GridState* state = gridOf(grid);
  const bool enterMoves = state != nullptr && state->enterAction != SS_ENTER_STAYS;
  const bool own = (message->wParam == VK_RETURN && (inEditor || enterMoves)) ||
                   (inEditor && message->wParam == VK_ESCAPE);
  return own ? code | DLGC_WANTALLKEYS : code;
}

}  // namespace kovra::spread
