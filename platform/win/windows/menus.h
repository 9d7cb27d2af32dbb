#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/win/base/windows_types.h"

/// Pop-up menus. There is no screen: who shows one is told the items and says which was chosen.

inline constexpr UINT MF_BYCOMMAND = 0x0000;
inline constexpr UINT MF_BYPOSITION = 0x0400;
inline constexpr UINT MF_STRING = 0x0000;
inline constexpr UINT MF_ENABLED = 0x0000;
inline constexpr UINT MF_GRAYED = 0x0001;
inline constexpr UINT MF_DISABLED = 0x0002;
inline constexpr UINT MF_CHECKED = 0x0008;
inline constexpr UINT MF_SEPARATOR = 0x0800;
inline constexpr UINT TPM_LEFTBUTTON = 0x0000;
inline constexpr UINT TPM_RIGHTBUTTON = 0x0002;
inline constexpr UINT TPM_LEFTALIGN = 0x0000;
inline constexpr UINT TPM_NONOTIFY = 0x0080;
inline constexpr UINT TPM_RETURNCMD = 0x0100;

HMENU CreatePopupMenu();
BOOL DestroyMenu(HMENU menu);
BOOL IsMenu(HMENU menu);
BOOL AppendMenuW(HMENU menu, UINT flags, UINT_PTR id, LPCWSTR text);
BOOL ModifyMenuW(HMENU menu, UINT item, UINT flags, UINT_PTR id, LPCWSTR text);
/// The item's former state, or -1 (as DWORD) if it isn't there.
BOOL EnableMenuItem(HMENU menu, UINT item, UINT flags);
int GetMenuItemCount(HMENU menu);
UINT GetMenuItemID(HMENU menu, int position);
int GetMenuStringW(HMENU menu, UINT item, LPWSTR buffer, int capacity, UINT flags);
/// Shows the menu and waits. With TPM_RETURNCMD the chosen command, 0 for none; else the command
/// goes to the owner as WM_COMMAND, and the result is TRUE.
BOOL TrackPopupMenu(HMENU menu, UINT flags, int x, int y, int reserved, HWND owner,
                    const RECT* keepOut);

namespace kovra::win {

struct MenuItem {
  UINT flags = 0;  ///< MF_
  UINT_PTR id = 0;
  std::wstring text;
};

/// Gets the items of a menu that is shown, gives the position of the chosen one or -1.
using MenuChooser = std::function<int(const std::vector<MenuItem>&)>;

/// Lets `chooser` answer the menus that are shown as long as it lives. Menus that nobody answers
/// close without a choice.
class MenuAnswer {
 public:
  explicit MenuAnswer(MenuChooser chooser);
  ~MenuAnswer();
  MenuAnswer(const MenuAnswer&) = delete;
  MenuAnswer& operator=(const MenuAnswer&) = delete;

 private:
  MenuChooser outer_;
};

}  // namespace kovra::win
