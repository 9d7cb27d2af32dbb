#include <algorithm>

#include "platform/win/windows/window.h"
#include "platform/win/windows/window_api.h"

using kovra::win::findWindow;
using kovra::win::Window;

HWND GetParent(HWND handle) {
  const Window* window = findWindow(handle);
  if (window == nullptr) return nullptr;
  return window->parent != nullptr ? window->parent : window->owner;
}

namespace {

HWND siblingBeside(HWND handle, bool next) {
  const auto siblings = kovra::win::siblingsOf(handle);
  const auto place = std::find(siblings.begin(), siblings.end(), handle);
  if (next) return siblings.end() - place > 1 ? *(place + 1) : nullptr;
  return place != siblings.begin() ? *(place - 1) : nullptr;
}

}  // namespace

HWND GetWindow(HWND handle, UINT relation) {
  const Window* window = findWindow(handle);
  if (window == nullptr) return nullptr;
  switch (relation) {
    case GW_HWNDFIRST:
      return kovra::win::siblingsOf(handle).front();
    case GW_HWNDLAST:
      return kovra::win::siblingsOf(handle).back();
    case GW_HWNDNEXT:
    case GW_HWNDPREV:
      return siblingBeside(handle, relation == GW_HWNDNEXT);
    case GW_OWNER:
      return window->owner;
    case GW_CHILD:
      return window->children.empty() ? nullptr : window->children.front();
    default:
      return nullptr;
  }
}

HWND GetDlgItem(HWND dialog, int id) {
  for (const HWND child : kovra::win::childrenOf(dialog)) {
    if (GetDlgCtrlID(child) == id) return child;
  }
  return nullptr;
}

int GetDlgCtrlID(HWND handle) {
  const Window* window = findWindow(handle);
  return window != nullptr ? window->id : 0;
}

BOOL IsChild(HWND parent, HWND window) {
  return parent != window && kovra::win::isInside(parent, window) ? TRUE : FALSE;
}

HWND GetAncestor(HWND handle, UINT which) {
  const Window* window = findWindow(handle);
  if (window == nullptr) return nullptr;
  return which == GA_PARENT ? window->parent : kovra::win::topLevelOf(handle);
}

int GetClassNameW(HWND window, LPWSTR buffer, int capacity) {
  if (buffer == nullptr || capacity <= 0) return 0;
  const std::wstring name = kovra::win::classNameOf(window);
  const auto length = std::min(name.size(), static_cast<std::size_t>(capacity) - 1);
  std::copy_n(name.data(), length, buffer);
  buffer[length] = 0;
  return static_cast<int>(length);
}

HWND GetDesktopWindow() {
  return nullptr;
}

namespace kovra::win {

void notifyParent(HWND control, UINT code) {
  const Window* window = findWindow(control);
  if (window == nullptr) return;
  SendMessageW(window->parent, WM_COMMAND, MAKEWPARAM(static_cast<UINT>(window->id), code),
               reinterpret_cast<LPARAM>(control));
}

}  // namespace kovra::win
