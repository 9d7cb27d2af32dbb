#include "platform/spread/grid_editor.h"

#include <utility>

#include "platform/spread/cell_text.h"
#include "platform/win/controls/edit_control.h"
#include "platform/win/windows/window_api.h"

namespace kovra::spread {
namespace {

constexpr const wchar_t* kTextEditor = L"SprEdit";
constexpr const wchar_t* kNumberEditor = L"SprNumber";

SS_CELLTYPE activeType(const GridState& state) {
  return state.cells.type(state.selection.active.col, state.selection.active.row);
}

LRESULT asField(HWND editor, UINT message, WPARAM wParam, LPARAM lParam) {
  static const WNDPROC kProcedure = win::findWindowClass(L"EDIT")->procedure;
  return CallWindowProcW(kProcedure, editor, message, wParam, lParam);
}

/// The keys of the clipboard, which the grid's option takes from its editor.
bool isClipboardKey(UINT message, WPARAM wParam) {
  const bool shift = GetKeyState(VK_SHIFT) < 0, control = GetKeyState(VK_CONTROL) < 0;
  constexpr WPARAM kCopy = 3, kPaste = 22, kCut = 24;
  if (message == WM_CHAR) return wParam == kCopy || wParam == kPaste || wParam == kCut;
  return (wParam == VK_INSERT && (shift || control)) || (wParam == VK_DELETE && shift);
}

bool takenFromField(HWND grid, UINT message, WPARAM wParam) {
  const GridState* state = gridOf(grid);
  return state == nullptr ||
         (!state->option(SS_BOOL_EDIT_CLIPBOARD) && isClipboardKey(message, wParam));
}

/// The grid is asked first; a field of text has a menu of its own beside it.
void contextMenu(HWND grid, HWND editor, WPARAM wParam, LPARAM lParam) {
  if (!tellActive(grid, SSN_CONTEXT_MENU)) return;
  const GridState* state = gridOf(grid);
  if (state->editor != editor || activeType(*state).type == SS_TYPE_NUMBER) return;
  asField(editor, WM_CONTEXTMENU, wParam, lParam);
}

LRESULT editorProcedure(HWND editor, UINT message, WPARAM wParam, LPARAM lParam) {
  const HWND grid = GetParent(editor);
  switch (message) {
    case WM_GETDLGCODE:
      return dialogCode(grid, reinterpret_cast<const MSG*>(lParam), true);
    case WM_KEYDOWN:
      if (keyPressed(grid, wParam, true) || !IsWindow(editor)) return 0;
      if (takenFromField(grid, message, wParam)) return 0;
      break;
    case WM_CHAR:
      if (takenFromField(grid, message, wParam)) return 0;
      break;
    case WM_KILLFOCUS:
      if (gridOf(grid) != nullptr && gridOf(grid)->editor == editor) closeEditor(grid, true);
      return 0;
    case WM_CONTEXTMENU:
      contextMenu(grid, editor, wParam, lParam);
      return 0;
    default:
      break;
  }
  return asField(editor, message, wParam, lParam);
}

std::unique_ptr<win::WindowState> makeEditorState() {
  return std::make_unique<win::EditState>();
}

const win::OwnWindowClass kTextEditorClass({kTextEditor, editorProcedure, makeEditorState});
const win::OwnWindowClass kNumberEditorClass({kNumberEditor, editorProcedure, makeEditorState});

HWND makeEditor(HWND grid, GridState& state) {
  const auto [col, row] = state.selection.active;
  const SS_CELLTYPE type = activeType(state);
  state.updated(grid).scrollTo(state.selection.active);
  state.editorStart = state.cells.shown(col, row);
  win::WindowSpec spec;
  spec.className = type.type == SS_TYPE_NUMBER ? kNumberEditor : kTextEditor;
  spec.text = state.editorStart;
  spec.style = WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL;
  spec.place = state.layout.placeOf(col, row);
  spec.parentOrOwner = grid;
  spec.id = 1;
  const HWND editor = win::makeWindow(spec);
  if (auto* field = win::stateOf<win::EditState>(editor))
    field->allows = [type](std::wstring_view text) { return mayBeTyped(type, text); };
  return editor;
}

/// Puts what was entered into the cell; true when that has changed it.
bool takeText(GridState& state, std::wstring_view text) {
  if (text == state.editorStart) return false;
  const SS_CELL cell = state.selection.active;
  const std::optional<std::wstring> entered = enteredText(activeType(state), text);
  if (!entered || *entered == state.cells.text(cell.col, cell.row)) return false;
  return state.setText(cell, *entered);
}

}  // namespace

bool openEditor(HWND grid) {
  GridState* state = gridOf(grid);
  if (state == nullptr) return false;
  if (state->editor != nullptr) return true;
  const SS_CELL active = state->selection.active;
  if (!state->cells.has(active.col, active.row) || state->locked(active)) return false;
  const HWND editor = makeEditor(grid, *state);
  if (editor == nullptr) return false;
  state->editor = editor;
  SetFocus(editor);
  state = gridOf(grid);
  if (state == nullptr || state->editor != editor) return false;
  const WPARAM length = state->editorStart.size();
  SendMessageW(editor, EM_SETSEL, state->option(SS_BOOL_EDIT_SELECTS) ? 0 : length, -1);
  changed(grid);
  return tellActive(grid, SSN_EDIT_OPENED) && gridOf(grid)->editor != nullptr;
}

void openEditorTyping(HWND grid, wchar_t character) {
  const GridState* state = gridOf(grid);
  if (state == nullptr) return;
  const bool empties = character == L'\b';
  if (!empties && !mayBeTyped(activeType(*state), std::wstring_view(&character, 1))) return;
  if (!openEditor(grid)) return;
  const HWND editor = gridOf(grid)->editor;
  SendMessageW(editor, EM_SETSEL, 0, -1);
  SendMessageW(editor, WM_CHAR, static_cast<WPARAM>(character), 0);
}

bool closeEditor(HWND grid, bool take) {
  GridState* state = gridOf(grid);
  if (state == nullptr || state->editor == nullptr) return state != nullptr;
  const HWND editor = std::exchange(state->editor, nullptr);
  const bool told = take && takeText(*state, win::windowText(editor));
  if (GetFocus() == editor) SetFocus(grid);
  DestroyWindow(editor);
  changed(grid);
  if (told && !tellActive(grid, SSN_DATA_CHANGED)) return false;
  return tellActive(grid, SSN_EDIT_CLOSED);
}

}  // namespace kovra::spread
