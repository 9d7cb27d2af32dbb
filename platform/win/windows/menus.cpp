#include "platform/win/windows/menus.h"

#include <algorithm>
#include <map>
#include <utility>

#include "platform/win/windows/window_api.h"

namespace kovra::win {
namespace {

using Items = std::vector<MenuItem>;

struct Menus {
  std::map<HMENU, Items> all;
  std::uintptr_t lastHandle = 0x3000;
  MenuChooser chooser;
};

/// Handles are counted up and never used again. Never destroyed: menus may belong to static objects
/// that end later.
Menus& menus() {
  static Menus& single = *new Menus;
  return single;
}

Items* find(HMENU menu) {
  const auto found = menus().all.find(menu);
  return found != menus().all.end() ? &found->second : nullptr;
}

/// By position or by command; null if the menu has no such item.
MenuItem* findItem(HMENU menu, UINT item, UINT flags) {
  Items* items = find(menu);
  if (items == nullptr) return nullptr;
  if ((flags & MF_BYPOSITION) != 0) return item < items->size() ? &(*items)[item] : nullptr;
  const auto found = std::find_if(items->begin(), items->end(), [item](const MenuItem& one) {
    return one.id == item && (one.flags & MF_SEPARATOR) == 0;
  });
  return found != items->end() ? &*found : nullptr;
}

MenuItem made(UINT flags, UINT_PTR id, LPCWSTR text) {
  const bool hasText = (flags & MF_SEPARATOR) == 0 && text != nullptr;
  return {flags & ~MF_BYPOSITION, id, hasText ? text : L""};
}

/// The item that was chosen among those that can be; null for none.
const MenuItem* chosenItem(const Items& items) {
  const int position = menus().chooser ? menus().chooser(items) : -1;
  if (position < 0 || static_cast<std::size_t>(position) >= items.size()) return nullptr;
  const MenuItem& item = items[static_cast<std::size_t>(position)];
  return (item.flags & (MF_SEPARATOR | MF_GRAYED | MF_DISABLED)) == 0 ? &item : nullptr;
}

}  // namespace

MenuAnswer::MenuAnswer(MenuChooser chooser)
    : outer_(std::exchange(menus().chooser, std::move(chooser))) {}

MenuAnswer::~MenuAnswer() {
  menus().chooser = std::move(outer_);
}

}  // namespace kovra::win

using kovra::win::find;
using kovra::win::findItem;
using kovra::win::MenuItem;

HMENU CreatePopupMenu() {
  auto& menus = kovra::win::menus();
  menus.lastHandle += 4;
  auto* const handle = reinterpret_cast<HMENU>(menus.lastHandle);
  menus.all[handle];
  return handle;
}

BOOL DestroyMenu(HMENU menu) {
  return kovra::win::menus().all.erase(menu) > 0 ? TRUE : FALSE;
}

BOOL IsMenu(HMENU menu) {
  return find(menu) != nullptr ? TRUE : FALSE;
}

BOOL AppendMenuW(HMENU menu, UINT flags, UINT_PTR id, LPCWSTR text) {
  auto* items = find(menu);
  if (items == nullptr) return FALSE;
  items->push_back(kovra::win::made(flags, id, text));
  return TRUE;
}

BOOL ModifyMenuW(HMENU menu, UINT item, UINT flags, UINT_PTR id, LPCWSTR text) {
  MenuItem* found = findItem(menu, item, flags);
  if (found == nullptr) return FALSE;
  *found = kovra::win::made(flags, id, text);
  return TRUE;
}

BOOL EnableMenuItem(HMENU menu, UINT item, UINT flags) {
  constexpr UINT kStates = MF_GRAYED | MF_DISABLED;
  MenuItem* found = findItem(menu, item, flags);
  if (found == nullptr) return -1;
  const UINT before = found->flags & kStates;
  found->flags = (found->flags & ~kStates) | (flags & kStates);
  return static_cast<BOOL>(before);
}

int GetMenuItemCount(HMENU menu) {
  const auto* items = find(menu);
  return items != nullptr ? static_cast<int>(items->size()) : -1;
}

UINT GetMenuItemID(HMENU menu, int position) {
  const MenuItem* found = findItem(menu, static_cast<UINT>(position), MF_BYPOSITION);
  return found != nullptr ? static_cast<UINT>(found->id) : static_cast<UINT>(-1);
}

int GetMenuStringW(HMENU menu, UINT item, LPWSTR buffer, int capacity, UINT flags) {
  const MenuItem* found = findItem(menu, item, flags);
  if (found == nullptr) return 0;
  if (buffer == nullptr || capacity <= 0) return static_cast<int>(found->text.size());
  const auto length = std::min(found->text.size(), static_cast<std::size_t>(capacity) - 1);
  std::copy_n(found->text.data(), length, buffer);
  buffer[length] = 0;
  return static_cast<int>(length);
}

BOOL TrackPopupMenu(HMENU menu, UINT flags, int /*x*/, int /*y*/, int /*reserved*/, HWND owner,
                    const RECT* /*keepOut*/) {
  if (find(menu) == nullptr || !IsWindow(owner)) return FALSE;
  if ((flags & TPM_NONOTIFY) == 0) {
    SendMessageW(owner, WM_INITMENU, reinterpret_cast<WPARAM>(menu), 0);
    SendMessageW(owner, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), 0);
  }
  const auto* items = find(menu);
  if (items == nullptr) return FALSE;
  const MenuItem* chosen = kovra::win::chosenItem(*items);
  const UINT_PTR id = chosen != nullptr ? chosen->id : 0;
  if ((flags & TPM_RETURNCMD) != 0) return static_cast<BOOL>(id);
  if (chosen != nullptr) PostMessageW(owner, WM_COMMAND, LOWORD(id), 0);
  return TRUE;
}
