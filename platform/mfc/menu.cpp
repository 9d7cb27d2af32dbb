#include "platform/mfc/menu.h"

#include <utility>

#include "platform/mfc/wnd.h"

BOOL CMenu::DestroyMenu() {
  return ::DestroyMenu(std::exchange(m_hMenu, nullptr));
}

BOOL CMenu::TrackPopupMenu(UINT flags, int x, int y, CWnd* owner, LPCRECT keepOut) {
  return ::TrackPopupMenu(m_hMenu, flags, x, y, 0, owner != nullptr ? owner->m_hWnd : nullptr,
                          keepOut);
}
