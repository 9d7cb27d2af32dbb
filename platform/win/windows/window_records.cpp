#include <algorithm>
#include <map>
#include <unordered_map>
#include <utility>

#include "platform/win/base/wide_text.h"
#include "platform/win/windows/window.h"
#include "platform/win/windows/window_api.h"

namespace kovra::win {
namespace {

/// All windows. Handles are counted up and never used again.
struct WindowTable {
  std::unordered_map<HWND, std::unique_ptr<Window>> windows;
  std::vector<HWND> topLevel;
  std::vector<WindowObserver*> observers;
  std::map<std::wstring, WindowClass> classes;
  std::uintptr_t lastHandle = 0x10000;
};

WindowTable& table() {
  static WindowTable single;
  return single;
}

std::vector<HWND>& siblingList(const Window& window) {
  Window* parent = findWindow(window.parent);
  return parent != nullptr ? parent->children : table().topLevel;
}

/// Puts a new window into its list: children behind their siblings, top-level windows on top.
void linkWindow(const Window& window) {
  auto& list = siblingList(window);
  list.insert(window.parent != nullptr ? list.end() : list.begin(), window.handle);
}

Window& newRecord(const WindowSpec& spec, const WindowClass& windowClass) {
  auto record = std::make_unique<Window>();
  table().lastHandle += 2;
  record->handle = reinterpret_cast<HWND>(table().lastHandle);
  record->windowClass = &windowClass;
  record->procedure = windowClass.procedure;
  record->instance = spec.instance;
  const bool isChild = (spec.style & WS_CHILD) != 0;
  record->parent = isChild ? spec.parentOrOwner : nullptr;
  record->owner = isChild ? nullptr : topLevelOf(spec.parentOrOwner);
  record->id = spec.id;
  record->style = spec.style & ~WS_VISIBLE;
  record->exStyle = spec.exStyle;
  record->place = spec.place;
  record->text = spec.text;
  record->inputMethodOpen = false;
  if (windowClass.makeState != nullptr) record->state = windowClass.makeState();
  Window& window = *record;
  table().windows.emplace(window.handle, std::move(record));
  return window;
}

/// The messages a new window gets. False when it refused or destroyed itself.
bool introduce(HWND handle, const WindowSpec& spec) {
  const std::wstring text(spec.text);
  const std::wstring className(spec.className);
  CREATESTRUCTW create{};
  create.lpCreateParams = spec.parameter;
  create.hInstance = spec.instance;
  create.hwndParent = spec.parentOrOwner;
  create.x = spec.place.left;
  create.y = spec.place.top;
  create.cx = widthOf(spec.place);
  create.cy = heightOf(spec.place);
  create.style = static_cast<LONG>(spec.style);
  create.lpszName = text.c_str();
  create.lpszClass = className.c_str();
  create.dwExStyle = spec.exStyle;
  const auto parameter = reinterpret_cast<LPARAM>(&create);
  if (SendMessageW(handle, WM_NCCREATE, 0, parameter) == FALSE) return false;
  return SendMessageW(handle, WM_CREATE, 0, parameter) != -1 && IsWindow(handle);
}

void removeRecord(HWND handle) {
  const Window* window = findWindow(handle);
  if (window == nullptr) return;
  tellObservers(handle, Change::destroyed);
  std::erase(siblingList(*window), handle);
  table().windows.erase(handle);
}

std::vector<HWND> ownedBy(HWND owner) {
  std::vector<HWND> owned;
  for (const HWND handle : table().topLevel) {
    const Window* window = findWindow(handle);
    if (window != nullptr && window->owner == owner) owned.push_back(handle);
  }
  return owned;
}

/// WM_DESTROY from the outside in, WM_NCDESTROY from the inside out, as each window's end.
void destroyTree(HWND handle) {
  SendMessageW(handle, WM_DESTROY, 0, 0);
  for (const HWND child : childrenOf(handle)) {
    if (IsWindow(child)) destroyTree(child);
  }
  dropPostedMessages(handle);
  SendMessageW(handle, WM_NCDESTROY, 0, 0);
  removeRecord(handle);
}

}  // namespace

Window* findWindow(HWND handle) {
  const auto found = table().windows.find(handle);
  return found != table().windows.end() ? found->second.get() : nullptr;
}

void registerWindowClass(const WindowClass& windowClass) {
  table().classes.try_emplace(upperCase(windowClass.name), windowClass);
}

const WindowClass* findWindowClass(std::wstring_view name) {
  const auto found = table().classes.find(upperCase(name));
  return found != table().classes.end() ? &found->second : nullptr;
}

HWND makeWindow(const WindowSpec& spec, const std::function<void(HWND)>& attach) {
  const WindowClass* windowClass = findWindowClass(spec.className);
  if (windowClass == nullptr) return nullptr;
  if ((spec.style & WS_CHILD) != 0 && findWindow(spec.parentOrOwner) == nullptr) return nullptr;
  const Window& window = newRecord(spec, *windowClass);
  const HWND handle = window.handle;
  linkWindow(window);
  if (attach) attach(handle);
  if (!introduce(handle, spec)) {
    DestroyWindow(handle);
    return nullptr;
  }
  tellObservers(handle, Change::created);
  if ((spec.style & WS_VISIBLE) != 0) ShowWindow(handle, SW_SHOW);
  return IsWindow(handle) ? handle : nullptr;
}

const std::vector<HWND>& topLevelWindows() {
  return table().topLevel;
}

HWND topLevelOf(HWND handle) {
  const Window* window = findWindow(handle);
  while (window != nullptr && window->parent != nullptr) window = findWindow(window->parent);
  return window != nullptr ? window->handle : nullptr;
}

bool isInside(HWND ancestor, HWND handle) {
  while (handle != nullptr && handle != ancestor) {
    const Window* window = findWindow(handle);
    handle = window != nullptr ? window->parent : nullptr;
  }
  return handle != nullptr;
}

bool hasStyle(HWND handle, DWORD style) {
  const Window* window = findWindow(handle);
  return window != nullptr && (window->style & style) == style;
}

std::vector<HWND> siblingsOf(HWND handle) {
  const Window* window = findWindow(handle);
  return window != nullptr ? siblingList(*window) : std::vector<HWND>();
}

std::vector<HWND> childrenOf(HWND handle) {
  const Window* window = findWindow(handle);
  return window != nullptr ? window->children : std::vector<HWND>();
}

void reorder(HWND handle, HWND after) {
  Window* window = findWindow(handle);
  if (window == nullptr || handle == after) return;
  auto& list = siblingList(*window);
  std::erase(list, handle);
  auto place = list.begin();
  if (after == HWND_BOTTOM) {
    place = list.end();
  } else if (const auto found = std::find(list.begin(), list.end(), after); found != list.end()) {
    place = found + 1;
  }
  list.insert(place, handle);
  tellObservers(handle, Change::order);
}

std::wstring classNameOf(HWND handle) {
  const Window* window = findWindow(handle);
  return window != nullptr ? window->windowClass->name : std::wstring();
}

void addObserver(WindowObserver* observer) {
  table().observers.push_back(observer);
}
void removeObserver(WindowObserver* observer) {
  std::erase(table().observers, observer);
}

void tellObservers(HWND window, Change change) {
  const std::vector<WindowObserver*> observers = table().observers;
  for (WindowObserver* observer : observers) observer->windowChanged(window, change);
}

void destroyAllWindows() {
  while (!table().topLevel.empty()) {
    const HWND handle = table().topLevel.front();
    if (!DestroyWindow(handle)) removeRecord(handle);
  }
}

}  // namespace kovra::win

HWND CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR text, DWORD style, int x, int y,
                     int width, int height, HWND parentOrOwner, HMENU idOrMenu, HINSTANCE instance,
                     LPVOID parameter) {
  kovra::win::WindowSpec spec;
  spec.className = className != nullptr ? className : L"";
  spec.text = text != nullptr ? text : L"";
  spec.style = style;
  spec.exStyle = exStyle;
  spec.place = {x, y, x + width, y + height};
  spec.parentOrOwner = parentOrOwner;
  spec.id =
      (style & WS_CHILD) != 0 ? static_cast<int>(reinterpret_cast<std::intptr_t>(idOrMenu)) : 0;
  spec.instance = instance;
  spec.parameter = parameter;
  return kovra::win::makeWindow(spec);
}

BOOL IsWindow(HWND window) {
  return kovra::win::findWindow(window) != nullptr ? TRUE : FALSE;
}

BOOL DestroyWindow(HWND handle) {
  using namespace kovra::win;
  Window* window = findWindow(handle);
  if (window == nullptr || window->destroying) return FALSE;
  window->destroying = true;
  for (const HWND owned : ownedBy(handle)) DestroyWindow(owned);
  window = findWindow(handle);
  if (window == nullptr) return TRUE;
  window->style &= ~WS_VISIBLE;
  releaseInput(handle);
  if (IsWindow(handle)) destroyTree(handle);
  return TRUE;
}
