#include "platform/win/controls/combo_control.h"

#include <algorithm>

#include "platform/win/base/wide_text.h"
#include "platform/win/windows/window_api.h"

namespace kovra::win {
namespace {

constexpr int kFieldId = 1001;
constexpr DWORD kKindMask = 3;
/// What the frame adds to the height of the field.
constexpr int kFrameHeight = 6;

using Item = ComboState::Item;

const wchar_t* textAt(LPARAM lParam) {
  const auto* text = reinterpret_cast<const wchar_t*>(lParam);
  return text != nullptr ? text : L"";
}

bool hasItem(const ComboState& state, WPARAM index) {
  return index < state.items.size();
}

/// Shows a text in the field without telling anybody.
void showInField(HWND combo, const std::wstring& text) {
  auto* state = stateOf<ComboState>(combo);
  if (state == nullptr || state->field == nullptr) return;
  const bool before = state->quiet;
  state->quiet = true;
  const HWND field = state->field;
  SetWindowTextW(field, text.c_str());
  SendMessageW(field, EM_SETSEL, 0, -1);
  if (auto* now = stateOf<ComboState>(combo)) now->quiet = before;
}

std::wstring selectedText(const ComboState& state) {
  return state.selected >= 0 ? state.items[static_cast<std::size_t>(state.selected)].text : L"";
}

void showSelected(HWND combo, const ComboState& state) {
  showInField(combo, selectedText(state));
}

LRESULT select(HWND combo, ComboState& state, int index) {
  const bool known = index >= 0 && hasItem(state, static_cast<WPARAM>(index));
  state.selected = known ? index : -1;
  showSelected(combo, state);
  tellObservers(combo, Change::content);
  return known ? index : CB_ERR;
}

/// The first item from behind `after` on, round the end, that begins with the text or equals it.
int findItem(const ComboState& state, int after, std::wstring_view text, bool whole) {
  const auto count = static_cast<int>(state.items.size());
  if (text.empty() && !whole) return -1;
  const int start = after >= 0 && after < count ? after + 1 : 0;
  for (int i = 0; i < count; ++i) {
    const int index = (start + i) % count;
    const std::wstring& item = state.items[static_cast<std::size_t>(index)].text;
    const auto compared =
        whole ? std::wstring_view(item) : std::wstring_view(item).substr(0, text.size());
    if (equalNoCase(compared, text)) return index;
  }
  return -1;
}

int insertItem(HWND combo, ComboState& state, int index, std::wstring_view text) {
  state.items.insert(state.items.begin() + index, Item{std::wstring(text), 0});
  if (state.selected >= index) ++state.selected;
  tellObservers(combo, Change::content);
  return index;
}

int addItem(HWND combo, ComboState& state, std::wstring_view text) {
  auto index = static_cast<int>(state.items.size());
  if (hasStyle(combo, CBS_SORT)) {
    const auto place = std::upper_bound(
        state.items.begin(), state.items.end(), text,
        [](std::wstring_view t, const Item& item) { return compareNoCase(t, item.text) < 0; });
    index = static_cast<int>(place - state.items.begin());
  }
  return insertItem(combo, state, index, text);
}

LRESULT removeItem(HWND combo, ComboState& state, WPARAM index) {
  if (!hasItem(state, index)) return CB_ERR;
  const auto removed = static_cast<int>(index);
  state.items.erase(state.items.begin() + removed);
  if (state.selected == removed) select(combo, state, -1);
  if (state.selected > removed) --state.selected;
  tellObservers(combo, Change::content);
  return static_cast<LRESULT>(state.items.size());
}

void removeAll(HWND combo, ComboState& state) {
  state.items.clear();
  select(combo, state, -1);
}

LRESULT copyItem(const ComboState& state, WPARAM index, LPARAM target) {
  if (!hasItem(state, index)) return CB_ERR;
  const std::wstring& text = state.items[index].text;
  auto* buffer = reinterpret_cast<wchar_t*>(target);
  std::copy_n(text.c_str(), text.size() + 1, buffer);
  return static_cast<LRESULT>(text.size());
}

LRESULT itemMessage(HWND combo, ComboState& state, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case CB_ADDSTRING:
      return addItem(combo, state, textAt(lParam));
    case CB_INSERTSTRING: {
      const auto count = static_cast<int>(state.items.size());
      const auto index = static_cast<int>(wParam);
      if (index > count) return CB_ERR;
      return insertItem(combo, state, index < 0 ? count : index, textAt(lParam));
    }
    case CB_DELETESTRING:
      return removeItem(combo, state, wParam);
    case CB_RESETCONTENT:
      removeAll(combo, state);
      return 0;
    case CB_GETCOUNT:
      return static_cast<LRESULT>(state.items.size());
    case CB_GETLBTEXT:
      return copyItem(state, wParam, lParam);
    case CB_GETLBTEXTLEN:
      return hasItem(state, wParam) ? static_cast<LRESULT>(state.items[wParam].text.size())
                                    : CB_ERR;
    case CB_GETITEMDATA:
      return hasItem(state, wParam) ? state.items[wParam].data : CB_ERR;
    default:  // CB_SETITEMDATA
      if (!hasItem(state, wParam)) return CB_ERR;
      state.items[wParam].data = lParam;
      return 0;
  }
}

LRESULT selectionMessage(HWND combo, ComboState& state, UINT message, WPARAM wParam,
                         LPARAM lParam) {
  const auto start = static_cast<int>(wParam);
  switch (message) {
    case CB_GETCURSEL:
      return state.selected;
    case CB_SETCURSEL:
      return select(combo, state, start);
    case CB_FINDSTRING:
      return findItem(state, start, textAt(lParam), false);
    case CB_FINDSTRINGEXACT:
      return findItem(state, start, textAt(lParam), true);
    default: {  // CB_SELECTSTRING
      const int index = findItem(state, start, textAt(lParam), false);
      return index >= 0 ? select(combo, state, index) : CB_ERR;
    }
  }
}

/// A text of the program: in a list without a field there is none to be set. One that isn't the
/// selected item's leaves no item selected.
LRESULT setComboText(HWND combo, ComboState& state, LPARAM lParam) {
  if (state.field == nullptr) return CB_ERR;
  const std::wstring text = textAt(lParam);
  if (selectedText(state) != text) state.selected = -1;
  showInField(combo, text);
  tellObservers(combo, Change::text);
  return TRUE;
}

LRESULT listTextMessage(const ComboState& state, UINT message, WPARAM capacity, LPARAM target) {
  const std::wstring text = selectedText(state);
  if (message == WM_GETTEXTLENGTH) return static_cast<LRESULT>(text.size());
  auto* buffer = reinterpret_cast<wchar_t*>(target);
  if (buffer == nullptr || capacity == 0) return 0;
  const std::size_t length = std::min(text.size(), capacity - 1);
  std::copy_n(text.data(), length, buffer);
  buffer[length] = 0;
  return static_cast<LRESULT>(length);
}

LRESULT textMessage(HWND combo, ComboState& state, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_SETTEXT) return setComboText(combo, state, lParam);
  if (state.field != nullptr) return SendMessageW(state.field, message, wParam, lParam);
  return listTextMessage(state, message, wParam, lParam);
}

/// What the field tells, passed on in the combo box's own codes.
void fieldNotified(HWND combo, ComboState& state, UINT code) {
  switch (code) {
    case EN_SETFOCUS:
      return notifyParent(combo, CBN_SETFOCUS);
    case EN_KILLFOCUS:
      state.dropped = false;
      return notifyParent(combo, CBN_KILLFOCUS);
    case EN_UPDATE:
      if (state.quiet) return;
      state.selected = -1;
      return notifyParent(combo, CBN_EDITUPDATE);
    case EN_CHANGE:
      if (!state.quiet) notifyParent(combo, CBN_EDITCHANGE);
      return;
    default:
      return;
  }
}

void keyDown(HWND combo, const ComboState& state, WPARAM key) {
  const auto last = static_cast<int>(state.items.size()) - 1;
  int index = state.selected;
  if (key == VK_DOWN) index = std::min(last, index + 1);
  if (key == VK_UP) index = std::max(0, index - 1);
  if (state.field == nullptr && key == VK_HOME) index = 0;
  if (state.field == nullptr && key == VK_END) index = last;
  if (index != state.selected && index >= 0 && index <= last) pickComboItem(combo, index);
}

/// A character in a list without a field: the next item that begins with it.
void typeCharacter(HWND combo, const ComboState& state, wchar_t character) {
  const int index = findItem(state, state.selected, std::wstring_view(&character, 1), false);
  if (character >= L' ' && index >= 0) pickComboItem(combo, index);
}

void focusMoved(HWND combo, ComboState& state, bool got) {
  if (state.field != nullptr) {
    if (!got) return;
    const HWND field = state.field;
    SetFocus(field);
    SendMessageW(field, EM_SETSEL, 0, -1);
    return;
  }
  if (!got) state.dropped = false;
  notifyParent(combo, got ? CBN_SETFOCUS : CBN_KILLFOCUS);
}

/// A combo box is as high as its field; one whose list is always in sight keeps its height.
void fitHeight(HWND combo, const ComboState& state) {
  const Window* window = findWindow(combo);
  if (window == nullptr || (window->style & kKindMask) == CBS_SIMPLE) return;
  RECT place = window->place;
  place.bottom = place.top + state.fieldHeight + kFrameHeight;
  placeWindow(combo, place);
}

RECT fieldPlace(int width, const ComboState& state) {
  return {3, 3, width - 20, 3 + state.fieldHeight};
}

/// The field keeps its distance from the frame.
void fitField(HWND combo, const ComboState& state) {
  const Window* window = findWindow(combo);
  if (window == nullptr || state.field == nullptr) return;
  placeWindow(state.field, fieldPlace(widthOf(window->place), state));
}

void create(HWND combo, ComboState& state) {
  const Window* window = findWindow(combo);
  const std::wstring text = window->text;
  const DWORD kind = window->style & kKindMask;
  if (kind != CBS_DROPDOWNLIST) {
    WindowSpec spec;
    spec.className = L"EDIT";
    spec.style = WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL | (window->style & WS_DISABLED);
    spec.place = fieldPlace(widthOf(window->place), state);
    spec.parentOrOwner = combo;
    spec.id = kFieldId;
    state.field = makeWindow(spec);
    showInField(combo, text);
  }
  fitHeight(combo, state);
}

LRESULT setHeight(HWND combo, ComboState& state, WPARAM which, LPARAM height) {
  const bool field = static_cast<std::ptrdiff_t>(which) == -1;
  (field ? state.fieldHeight : state.itemHeight) = static_cast<int>(height);
  if (!field) return 0;
  fitHeight(combo, state);
  fitField(combo, state);
  return 0;
}

/// Text limit and selection of the field; CB_ERR in a list without one.
LRESULT fieldMessage(const ComboState& state, UINT message, WPARAM wParam, LPARAM lParam) {
  if (state.field == nullptr) return message == CB_LIMITTEXT ? TRUE : CB_ERR;
  switch (message) {
    case CB_LIMITTEXT:
      SendMessageW(state.field, EM_LIMITTEXT, wParam, 0);
      return TRUE;
    case CB_GETEDITSEL:
      return SendMessageW(state.field, EM_GETSEL, wParam, lParam);
    default: {  // CB_SETEDITSEL: both ends in one parameter, -1 as the end of the text
      const auto from = static_cast<SHORT>(LOWORD(lParam));
      const auto to = static_cast<SHORT>(HIWORD(lParam));
      SendMessageW(state.field, EM_SETSEL, static_cast<WPARAM>(static_cast<LONG_PTR>(from)), to);
      return TRUE;
    }
  }
}

void enableField(const ComboState& state, bool enabled) {
  if (state.field != nullptr) EnableWindow(state.field, enabled ? TRUE : FALSE);
}

LRESULT listMessage(HWND combo, ComboState& state, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case CB_ADDSTRING:
    case CB_INSERTSTRING:
    case CB_DELETESTRING:
    case CB_RESETCONTENT:
    case CB_GETCOUNT:
    case CB_GETLBTEXT:
    case CB_GETLBTEXTLEN:
    case CB_GETITEMDATA:
    case CB_SETITEMDATA:
      return itemMessage(combo, state, message, wParam, lParam);
    case CB_GETCURSEL:
    case CB_SETCURSEL:
    case CB_FINDSTRING:
    case CB_FINDSTRINGEXACT:
    case CB_SELECTSTRING:
      return selectionMessage(combo, state, message, wParam, lParam);
    case CB_LIMITTEXT:
    case CB_GETEDITSEL:
    case CB_SETEDITSEL:
      return fieldMessage(state, message, wParam, lParam);
    case CB_SHOWDROPDOWN:
      state.dropped = wParam != 0;
      return TRUE;
    case CB_GETDROPPEDSTATE:
      return state.dropped;
    case CB_SETITEMHEIGHT:
      return setHeight(combo, state, wParam, lParam);
    case CB_GETITEMHEIGHT:
      return static_cast<std::ptrdiff_t>(wParam) == -1 ? state.fieldHeight : state.itemHeight;
    default:
      return DefWindowProcW(combo, message, wParam, lParam);
  }
}

LRESULT comboProcedure(HWND combo, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* state = stateOf<ComboState>(combo);
  if (state == nullptr) return DefWindowProcW(combo, message, wParam, lParam);
  switch (message) {
    case WM_CREATE:
      create(combo, *state);
      return 0;
    case WM_SETTEXT:
    case WM_GETTEXT:
    case WM_GETTEXTLENGTH:
      return textMessage(combo, *state, message, wParam, lParam);
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS | DLGC_WANTCHARS;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      focusMoved(combo, *state, message == WM_SETFOCUS);
      return 0;
    case WM_SIZE:
      fitField(combo, *state);
      return 0;
    case WM_ENABLE:
      enableField(*state, wParam != 0);
      return 0;
    case WM_LBUTTONDOWN:
      SetFocus(combo);
      return 0;
    case WM_KEYDOWN:
      keyDown(combo, *state, wParam);
      return 0;
    case WM_CHAR:
      typeCharacter(combo, *state, static_cast<wchar_t>(wParam));
      return 0;
    case WM_COMMAND:
      if (reinterpret_cast<HWND>(lParam) == state->field) {
        fieldNotified(combo, *state, HIWORD(wParam));
      }
      return 0;
    default:
      return listMessage(combo, *state, message, wParam, lParam);
  }
}

std::unique_ptr<WindowState> makeComboState() {
  return std::make_unique<ComboState>();
}

}  // namespace

void pickComboItem(HWND combo, int index) {
  auto* state = stateOf<ComboState>(combo);
  if (state == nullptr) return;
  state->selected = index;
  state->dropped = false;
  tellObservers(combo, Change::content);
  notifyParent(combo, CBN_SELENDOK);
  if (IsWindow(combo)) notifyParent(combo, CBN_SELCHANGE);
  state = stateOf<ComboState>(combo);
  if (state != nullptr && state->selected >= 0) showSelected(combo, *state);
}

std::vector<std::wstring> ComboState::itemTexts() const {
  std::vector<std::wstring> texts;
  for (const Item& item : items) texts.push_back(item.text);
  return texts;
}

bool ComboState::pickItem(HWND combo, int index) {
  pickComboItem(combo, index);
  return true;
}

const OwnWindowClass kComboClass({L"COMBOBOX", comboProcedure, makeComboState});

}  // namespace kovra::win
