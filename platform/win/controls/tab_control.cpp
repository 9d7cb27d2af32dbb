#include "platform/win/controls/tab_control.h"

#include <algorithm>

#include "platform/win/controls/painting.h"
#include "platform/win/controls/tab_messages.h"
#include "platform/win/windows/window_api.h"

namespace kovra::win {
namespace {

constexpr LONG kTabMargin = 2;  ///< around the row of tabs and around the page below it
constexpr LONG kTextMargin = 6;
constexpr LONG kLeastWidth = 40;

bool has(const TabState& state, int index) {
  return index >= 0 && static_cast<std::size_t>(index) < state.tabs.size();
}

/// The parent's answer.
LRESULT tell(HWND control, UINT code) {
  NMHDR header{control, static_cast<UINT_PTR>(GetDlgCtrlID(control)), code};
  return SendMessageW(GetParent(control), WM_NOTIFY, header.idFrom,
                      reinterpret_cast<LPARAM>(&header));
}

/// The user goes to a tab, unless the parent refuses; nothing is told when it is there already.
void goTo(HWND control, int index) {
  auto* state = stateOf<TabState>(control);
  if (state == nullptr || !has(*state, index) || index == state->selected) return;
  if (tell(control, TCN_SELCHANGING) != 0) return;
  state = stateOf<TabState>(control);
  if (state == nullptr || !has(*state, index)) return;
  state->selected = index;
  tellObservers(control, Change::content);
  tell(control, TCN_SELCHANGE);
}

LRESULT insert(HWND control, TabState& state, WPARAM wParam, const TCITEMW* item) {
  if (item == nullptr) return -1;
  const int count = static_cast<int>(state.tabs.size());
  const int index = std::clamp(static_cast<int>(wParam), 0, count);
  TabState::Tab tab;
  if ((item->mask & TCIF_TEXT) != 0 && item->pszText != nullptr) tab.text = item->pszText;
  if ((item->mask & TCIF_PARAM) != 0) tab.data = item->lParam;
  state.tabs.insert(state.tabs.begin() + index, std::move(tab));
  if (count == 0) {
    state.selected = 0;
  } else if (index <= state.selected) {
    ++state.selected;
  }
  tellObservers(control, Change::content);
  return index;
}

BOOL get(const TabState& state, int index, TCITEMW* item) {
  if (!has(state, index) || item == nullptr) return FALSE;
  const TabState::Tab& tab = state.tabs[static_cast<std::size_t>(index)];
  if ((item->mask & TCIF_PARAM) != 0) item->lParam = tab.data;
  if ((item->mask & TCIF_TEXT) != 0 && item->pszText != nullptr && item->cchTextMax > 0) {
    const auto length = std::min(tab.text.size(), static_cast<std::size_t>(item->cchTextMax) - 1);
    std::copy_n(tab.text.data(), length, item->pszText);
    item->pszText[length] = 0;
  }
  return TRUE;
}

BOOL set(HWND control, TabState& state, int index, const TCITEMW* item) {
  if (!has(state, index) || item == nullptr) return FALSE;
  TabState::Tab& tab = state.tabs[static_cast<std::size_t>(index)];
  if ((item->mask & TCIF_PARAM) != 0) tab.data = item->lParam;
  if ((item->mask & TCIF_TEXT) != 0) tab.text = item->pszText != nullptr ? item->pszText : L"";
  tellObservers(control, Change::content);
  return TRUE;
}

BOOL remove(HWND control, TabState& state, int index) {
  if (!has(state, index)) return FALSE;
  state.tabs.erase(state.tabs.begin() + index);
  if (index == state.selected) state.selected = -1;
  if (index < state.selected) --state.selected;
  tellObservers(control, Change::content);
  return TRUE;
}

int select(HWND control, TabState& state, int index) {
  const int before = state.selected;
  if (!has(state, index)) return -1;
  state.selected = index;
  tellObservers(control, Change::content);
  return before;
}

void adjust(RECT& rect, bool larger) {
  const LONG by = larger ? -1 : 1;
  rect.left += by * 2 * kTabMargin;
  rect.right -= by * 2 * kTabMargin;
  rect.top += by * (TabState::kTabHeight + 2 * kTabMargin);
  rect.bottom -= by * 2 * kTabMargin;
}

LRESULT tabMessage(HWND control, TabState& state, UINT message, WPARAM wParam, LPARAM lParam) {
  const int index = static_cast<int>(wParam);
  auto* item = reinterpret_cast<TCITEMW*>(lParam);
  auto* rect = reinterpret_cast<RECT*>(lParam);
  switch (message) {
    case TCM_GETITEMCOUNT:
      return static_cast<LRESULT>(state.tabs.size());
    case TCM_GETCURSEL:
      return state.selected;
    case TCM_SETCURSEL:
      return select(control, state, index);
    case TCM_INSERTITEMW:
      return insert(control, state, wParam, item);
    case TCM_GETITEMW:
      return get(state, index, item);
    case TCM_SETITEMW:
      return set(control, state, index, item);
    case TCM_DELETEITEM:
      return remove(control, state, index);
    case TCM_DELETEALLITEMS:
      state.tabs.clear();
      state.selected = -1;
      tellObservers(control, Change::content);
      return TRUE;
    case TCM_GETITEMRECT:
      if (!has(state, index) || rect == nullptr) return FALSE;
      *rect = state.placeOf(index);
      return TRUE;
    case TCM_ADJUSTRECT:
      if (rect != nullptr) adjust(*rect, wParam != 0);
      return 0;
    default:
      return DefWindowProcW(control, message, wParam, lParam);
  }
}

void keyDown(HWND control, const TabState& state, WPARAM key) {
  const int last = static_cast<int>(state.tabs.size()) - 1;
  switch (key) {
    case VK_LEFT:
    case VK_UP:
      return goTo(control, std::max(0, state.selected - 1));
    case VK_RIGHT:
    case VK_DOWN:
      return goTo(control, std::min(last, state.selected + 1));
    case VK_HOME:
      return goTo(control, 0);
    case VK_END:
      return goTo(control, last);
    default:
      return;
  }
}

/// A click on a tab goes there; the control takes the focus first.
void pressed(HWND control, POINT point) {
  SetFocus(control);
  const auto* state = stateOf<TabState>(control);
  for (int index = 0; state != nullptr && has(*state, index); ++index) {
    const RECT place = state->placeOf(index);
    if (PtInRect(&place, point)) return goTo(control, index);
  }
}

LRESULT tabProcedure(HWND control, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* state = stateOf<TabState>(control);
  if (state == nullptr) return DefWindowProcW(control, message, wParam, lParam);
  switch (message) {
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS | DLGC_WANTCHARS;
    case WM_KEYDOWN:
      keyDown(control, *state, wParam);
      return 0;
    case WM_LBUTTONDOWN:
      pressed(control, {static_cast<SHORT>(LOWORD(lParam)), static_cast<SHORT>(HIWORD(lParam))});
      return 0;
    default:
      return tabMessage(control, *state, message, wParam, lParam);
  }
}

std::unique_ptr<WindowState> makeTabState() {
  return std::make_unique<TabState>();
}

LONG widthOfText(const std::wstring& text) {
  RECT place{};
  DrawTextW(nullptr, text.c_str(), static_cast<int>(text.size()), &place, DT_CALCRECT);
  return std::max(kLeastWidth, place.right + 2 * kTextMargin);
}

}  // namespace

std::vector<std::wstring> TabState::itemTexts() const {
  std::vector<std::wstring> texts;
  for (const Tab& tab : tabs) texts.push_back(tab.text);
  return texts;
}

bool TabState::pickItem(HWND control, int index) {
  goTo(control, index);
  return true;
}

RECT TabState::placeOf(int index) const {
  LONG left = kTabMargin;
  for (int before = 0; before < index; ++before)
    left += widthOfText(tabs[static_cast<std::size_t>(before)].text);
  const LONG width = widthOfText(tabs[static_cast<std::size_t>(index)].text);
  return {left, kTabMargin, left + width, kTabMargin + kTabHeight};
}

const OwnWindowClass kTabClass({L"SysTabControl32", tabProcedure, makeTabState});

}  // namespace kovra::win
