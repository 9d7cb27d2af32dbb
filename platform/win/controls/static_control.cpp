#include "platform/win/controls/static_control.h"

#include <utility>

#include "platform/win/windows/window_api.h"

namespace kovra::win {
namespace {

LRESULT setIcon(HWND control, StaticState& state, WPARAM icon) {
  const HICON former = std::exchange(state.icon, reinterpret_cast<HICON>(icon));
  tellObservers(control, Change::content);
  return reinterpret_cast<LRESULT>(former);
}

LRESULT staticProcedure(HWND control, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* state = stateOf<StaticState>(control);
  if (state == nullptr) return DefWindowProcW(control, message, wParam, lParam);
  switch (message) {
    case WM_GETDLGCODE:
      return DLGC_STATIC;
    case WM_LBUTTONDOWN:
      if (hasStyle(control, SS_NOTIFY)) notifyParent(control, STN_CLICKED);
      return 0;
    case STM_SETICON:
      return setIcon(control, *state, wParam);
    case STM_GETICON:
      return reinterpret_cast<LRESULT>(state->icon);
    default:
      return DefWindowProcW(control, message, wParam, lParam);
  }
}

std::unique_ptr<WindowState> makeStaticState() {
  return std::make_unique<StaticState>();
}

}  // namespace

const OwnWindowClass kStaticClass({L"STATIC", staticProcedure, makeStaticState});

}  // namespace kovra::win
