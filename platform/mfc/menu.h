#pragma once

#include "platform/mfc/object.h"
#include "platform/win/windows/menus.h"

class CWnd;

/// A menu; it goes with the object.
class CMenu : public CObject {
 public:
  CMenu() = default;
  ~CMenu() override { DestroyMenu(); }
  CMenu(const CMenu&) = delete;
  CMenu& operator=(const CMenu&) = delete;

  HMENU m_hMenu = nullptr;
  HMENU GetSafeHmenu() const { return m_hMenu; }

  BOOL CreatePopupMenu() {
    if (m_hMenu == nullptr) m_hMenu = ::CreatePopupMenu();
    return m_hMenu != nullptr;
  }
  BOOL DestroyMenu();
  BOOL AppendMenu(UINT flags, UINT_PTR id = 0, LPCWSTR text = nullptr) {
    return ::AppendMenuW(m_hMenu, flags, id, text);
  }
  UINT EnableMenuItem(UINT item, UINT flags) {
    return static_cast<UINT>(::EnableMenuItem(m_hMenu, item, flags));
  }
  int GetMenuItemCount() const { return ::GetMenuItemCount(m_hMenu); }
  /// See ::TrackPopupMenu; x and y are on the screen.
  BOOL TrackPopupMenu(UINT flags, int x, int y, CWnd* owner, LPCRECT keepOut = nullptr);
};
