#include "platform/win/controls/edit_menu.h"

#include "platform/win/base/interaction.h"
#include "platform/win/windows/menus.h"
#include "platform/win/windows/window_api.h"

namespace kovra::win {
namespace {

HMENU makeEditMenu(HWND field, const EditState& state) {
  const bool writable = !hasStyle(field, ES_READONLY);
  const bool selected = !state.edit.selected().empty();
  const struct {
    UINT id;
    const wchar_t* text;
    bool possible;
  } items[] = {
      {WM_UNDO, L"&Undo", writable && state.edit.canUndo()},
      {0, nullptr, false},
      {WM_CUT, L"Cu&t", writable && selected},
      {WM_COPY, L"&Copy", selected},
      {WM_PASTE, L"&Paste", writable && interaction().clipboard().has_value()},
      {WM_CLEAR, L"&Delete", writable && selected},
      {0, nullptr, false},
      {EM_SETSEL, L"Select &All", !state.edit.text().empty()},
  };
  const HMENU menu = CreatePopupMenu();
  for (const auto& [id, text, possible] : items) {
    if (text == nullptr) {
      AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    } else {
      AppendMenuW(menu, MF_STRING | (possible ? MF_ENABLED : MF_GRAYED), id, text);
    }
  }
  return menu;
}

}  // namespace

void showEditMenu(HWND field, const EditState& state, LPARAM where) {
  const HMENU menu = makeEditMenu(field, state);
  const int x = static_cast<SHORT>(LOWORD(where)), y = static_cast<SHORT>(HIWORD(where));
  const BOOL chosen =
      TrackPopupMenu(menu, TPM_RIGHTBUTTON | TPM_RETURNCMD, x, y, 0, field, nullptr);
  DestroyMenu(menu);
  const auto message = static_cast<UINT>(chosen);
  if (message != 0) SendMessageW(field, message, 0, message == EM_SETSEL ? -1 : 0);
}

}  // namespace kovra::win
