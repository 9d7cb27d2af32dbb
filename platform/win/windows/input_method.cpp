#include "platform/win/windows/input_method.h"

#include "platform/win/windows/window.h"

namespace {

using kovra::win::findWindow;
using kovra::win::Window;

/// An input method's handle is its window's, so that it ends with the window.
HIMC contextOf(HWND window) {
  return reinterpret_cast<HIMC>(window);
}
Window* windowOf(HIMC context) {
  return findWindow(reinterpret_cast<HWND>(context));
}

}  // namespace

HIMC ImmGetContext(HWND handle) {
  const Window* window = findWindow(handle);
  return window != nullptr && !window->inputMethodDetached ? contextOf(handle) : nullptr;
}

BOOL ImmReleaseContext(HWND window, HIMC /*context*/) {
  return findWindow(window) != nullptr ? TRUE : FALSE;
}

BOOL ImmGetOpenStatus(HIMC context) {
  const Window* window = windowOf(context);
  return window != nullptr && window->inputMethodOpen ? TRUE : FALSE;
}

BOOL ImmSetOpenStatus(HIMC context, BOOL open) {
  Window* window = windowOf(context);
  if (window == nullptr) return FALSE;
  window->inputMethodOpen = open != FALSE;
  return TRUE;
}

HIMC ImmAssociateContext(HWND handle, HIMC context) {
  Window* window = findWindow(handle);
  if (window == nullptr) return nullptr;
  const HIMC former = ImmGetContext(handle);
  window->inputMethodDetached = context == nullptr;
  return former;
}
