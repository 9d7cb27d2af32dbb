#include "platform/spread/grid_editor.h"
#include "platform/win/windows/window_api.h"

namespace kovra::spread {
namespace {

POINT pointOf(LPARAM where) {
  return {static_cast<SHORT>(LOWORD(where)), static_cast<SHORT>(HIWORD(where))};
}

/// What the editor tells: a text that the user has changed counts at once.
void editorNotified(HWND grid, WPARAM code, LPARAM from) {
  const GridState* state = gridOf(grid);
  const bool own = state->editor != nullptr && reinterpret_cast<HWND>(from) == state->editor;
  if (own && HIWORD(code) == EN_CHANGE) tellActive(grid, SSN_DATA_CHANGED);
}

void sized(HWND grid) {
  GridState* state = gridOf(grid);
  state->updated(grid).scrollTo(state->selection.active);
  const RECT place =
      state->layout.placeOf(state->selection.active.col, state->selection.active.row);
  if (state->editor != nullptr)
    MoveWindow(state->editor, place.left, place.top, place.right - place.left,
               place.bottom - place.top, TRUE);
}

LRESULT gridProcedure(HWND grid, UINT message, WPARAM wParam, LPARAM lParam) {
  if (gridOf(grid) == nullptr) return DefWindowProcW(grid, message, wParam, lParam);
  switch (message) {
    case WM_GETDLGCODE:
      return dialogCode(grid, reinterpret_cast<const MSG*>(lParam), false);
    case WM_KEYDOWN:
      keyPressed(grid, wParam, false);
      return 0;
    case WM_CHAR:
      characterTyped(grid, static_cast<wchar_t>(wParam));
      return 0;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_LBUTTONDBLCLK:
    case WM_MOUSEMOVE:
    case WM_RBUTTONDOWN:
      mouseMessage(grid, message, wParam, pointOf(lParam));
      return 0;
    case WM_CONTEXTMENU:
      tellActive(grid, SSN_CONTEXT_MENU);
      return 0;
    case WM_COMMAND:
      editorNotified(grid, wParam, lParam);
      return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      changed(grid);
      return 0;
    case WM_SIZE:
      sized(grid);
      return 0;
    case WM_PAINT:
      paint(grid);
      return 0;
    default:
      return DefWindowProcW(grid, message, wParam, lParam);
  }
}

std::unique_ptr<win::WindowState> makeGridState() {
  return std::make_unique<GridState>();
}

const win::OwnWindowClass kGridClass({L"fpUSpread80", gridProcedure, makeGridState});

}  // namespace
}  // namespace kovra::spread
