#include "platform/win/controls/edit_control.h"

#include <algorithm>
#include <string>

#include "platform/win/base/interaction.h"
#include "platform/win/base/wide_text.h"
#include "platform/win/controls/edit_menu.h"
#include "platform/win/windows/window_api.h"

namespace kovra::win {
namespace {

bool isMultiLine(HWND field) {
  return hasStyle(field, ES_MULTILINE);
}

void followText(HWND field, const EditState& state) {
  findWindow(field)->text = state.edit.text();
  tellObservers(field, Change::text);
}

/// Tells the parent of a new text.
void notifyChange(HWND field) {
  notifyParent(field, EN_UPDATE);
  if (IsWindow(field)) notifyParent(field, EN_CHANGE);
}

void changedByUser(HWND field, EditState& state) {
  state.modified = true;
  followText(field, state);
  notifyChange(field);
}

/// A change by the program: a field of several lines says nothing about it.
void changedByProgram(HWND field, EditState& state) {
  followText(field, state);
  if (!isMultiLine(field)) notifyChange(field);
}

/// What of the text the field takes: no line breaks in a single line, digits only, the field's
/// case.
std::wstring acceptable(HWND field, std::wstring_view text) {
  std::wstring taken(text);
  if (!isMultiLine(field)) taken.resize(std::min(taken.find_first_of(L"\r\n"), taken.size()));
  if (hasStyle(field, ES_NUMBER)) {
    std::erase_if(taken, [](wchar_t c) { return c < L'0' || c > L'9'; });
  }
  if (hasStyle(field, ES_UPPERCASE)) taken = upperCase(taken);
  if (hasStyle(field, ES_LOWERCASE)) taken = lowerCase(taken);
  return taken;
}

/// Puts what the user typed or pasted in the place of the selection, as far as there is room.
void insertByUser(HWND field, EditState& state, std::wstring_view text) {
  if (hasStyle(field, ES_READONLY)) return;
  std::wstring taken = acceptable(field, text);
  if (taken.empty() && !text.empty()) return;
  if (state.allows && !state.allows(state.edit.textWith(taken))) return;
  const std::size_t kept = state.edit.text().size() - state.edit.selected().size();
  const std::size_t room = state.limit > kept ? state.limit - kept : 0;
  const bool cut = taken.size() > room;
  taken.resize(std::min(taken.size(), room));
  if (cut) notifyParent(field, EN_MAXTEXT);
  auto* now = stateOf<EditState>(field);
  if (now == nullptr || (cut && taken.empty())) return;
  now->edit.replaceSelection(taken);
  changedByUser(field, *now);
}

void copySelection(const EditState& state) {
  if (!state.edit.selected().empty()) {
    interaction().setClipboard(std::wstring(state.edit.selected()));
  }
}

void clearSelection(HWND field, EditState& state) {
  if (hasStyle(field, ES_READONLY) || state.edit.selected().empty()) return;
  state.edit.replaceSelection({});
  changedByUser(field, state);
}

void undo(HWND field, EditState& state) {
  if (!state.edit.canUndo() || hasStyle(field, ES_READONLY)) return;
  state.edit.undo();
  changedByUser(field, state);
}

void deleteKey(HWND field, EditState& state, bool behind) {
  if (hasStyle(field, ES_READONLY)) return;
  if (behind ? state.edit.deleteBehind() : state.edit.deleteBefore()) {
    changedByUser(field, state);
  }
}

void typeCharacter(HWND field, EditState& state, wchar_t character) {
  constexpr wchar_t kSelectAll = 1, kCopy = 3, kPaste = 22, kCut = 24, kUndo = 26;
  switch (character) {
    case L'\b':
      return deleteKey(field, state, false);
    case kSelectAll:
      return state.edit.select(0, state.edit.text().size());
    case kCopy:
    case kPaste:
    case kCut:
    case kUndo:
      SendMessageW(field,
                   character == kCopy    ? WM_COPY
                   : character == kPaste ? WM_PASTE
                   : character == kCut   ? WM_CUT
                                         : WM_UNDO,
                   0, 0);
      return;
    case L'\r':
    case L'\n':
      if (isMultiLine(field)) insertByUser(field, state, L"\r\n");
      return;
    default:
      if (character >= L' ' || (character == L'\t' && isMultiLine(field))) {
        insertByUser(field, state, std::wstring_view(&character, 1));
      }
  }
}

bool isDown(int key) {
  return GetKeyState(key) < 0;
}

/// Up and Down belong to the combo box that the field is part of.
bool passToCombo(HWND field, WPARAM key) {
  const HWND parent = GetParent(field);
  if ((key != VK_UP && key != VK_DOWN) || classNameOf(parent) != L"COMBOBOX") return false;
  SendMessageW(parent, WM_KEYDOWN, key, 0);
  return true;
}

/// Shift and Ctrl with Insert and Delete, the older keys of the clipboard.
bool clipboardKey(HWND field, WPARAM key) {
  UINT message = 0;
  if (key == VK_INSERT && isDown(VK_SHIFT)) message = WM_PASTE;
  if (key == VK_INSERT && isDown(VK_CONTROL)) message = WM_COPY;
  if (key == VK_DELETE && isDown(VK_SHIFT)) message = WM_CUT;
  if (message != 0) SendMessageW(field, message, 0, 0);
  return message != 0;
}

void moveCaret(EditText& edit, WPARAM key, bool extend, bool control) {
  switch (key) {
    case VK_LEFT:
      return control ? edit.moveWordLeft(extend) : edit.moveLeft(extend);
    case VK_RIGHT:
      return control ? edit.moveWordRight(extend) : edit.moveRight(extend);
    case VK_HOME:
      return control ? edit.moveToStart(extend) : edit.moveToLineStart(extend);
    case VK_END:
      return control ? edit.moveToEnd(extend) : edit.moveToLineEnd(extend);
    case VK_UP:
      return edit.moveUp(extend);
    case VK_DOWN:
      return edit.moveDown(extend);
    default:
      return;
  }
}

void keyDown(HWND field, EditState& state, WPARAM key) {
  if (passToCombo(field, key) || clipboardKey(field, key)) return;
  if (key == VK_DELETE) return deleteKey(field, state, true);
  moveCaret(state.edit, key, isDown(VK_SHIFT), isDown(VK_CONTROL));
  tellObservers(field, Change::content);
}

void setSelection(HWND field, EditState& state, WPARAM from, LPARAM to) {
  const auto start = static_cast<std::ptrdiff_t>(from);
  if (start < 0) {
    state.edit.select(state.edit.caret(), state.edit.caret());
  } else {
    const auto end = to < 0 ? state.edit.text().size() : static_cast<std::size_t>(to);
    state.edit.select(static_cast<std::size_t>(start), end);
  }
  tellObservers(field, Change::content);
}

LRESULT getSelection(const EditState& state, WPARAM from, LPARAM to) {
  const auto start = static_cast<DWORD>(state.edit.from());
  const auto end = static_cast<DWORD>(state.edit.to());
  if (from != 0) *reinterpret_cast<DWORD*>(from) = start;
  if (to != 0) *reinterpret_cast<DWORD*>(to) = end;
  return start > 0xFFFF || end > 0xFFFF ? -1 : static_cast<LRESULT>(MAKELONG(start, end));
}

LRESULT setFieldText(HWND field, EditState& state, LPARAM source) {
  const auto* text = reinterpret_cast<const wchar_t*>(source);
  state.edit.setText(text != nullptr ? text : L"");
  state.modified = false;
  changedByProgram(field, state);
  return TRUE;
}

LRESULT replaceByProgram(HWND field, EditState& state, WPARAM keepUndo, LPARAM source) {
  const auto* text = reinterpret_cast<const wchar_t*>(source);
  state.edit.replaceSelection(text != nullptr ? text : L"");
  if (keepUndo == 0) state.edit.forgetFormer();
  changedByProgram(field, state);
  return 0;
}

/// A line's text into a buffer whose first word says how many characters it takes; no null is
/// added.
LRESULT copyLine(const EditState& state, WPARAM line, LPARAM target) {
  auto* buffer = reinterpret_cast<wchar_t*>(target);
  const std::wstring_view text = state.edit.line(line);
  const std::size_t capacity = *reinterpret_cast<const WORD*>(buffer);
  const std::size_t length = std::min(text.size(), capacity);
  std::copy_n(text.data(), length, buffer);
  return static_cast<LRESULT>(length);
}

LRESULT lineMessage(const EditState& state, UINT message, WPARAM wParam) {
  const bool current = static_cast<std::ptrdiff_t>(wParam) < 0;
  const EditText& edit = state.edit;
  switch (message) {
    case EM_GETLINECOUNT:
      return static_cast<LRESULT>(edit.lineCount());
    case EM_LINEINDEX: {
      const std::size_t line = current ? edit.lineOf(edit.caret()) : wParam;
      return line < edit.lineCount() ? static_cast<LRESULT>(edit.lineStart(line)) : -1;
    }
    case EM_LINELENGTH:
      return static_cast<LRESULT>(edit.line(edit.lineOf(current ? edit.caret() : wParam)).size());
    default:
      return static_cast<LRESULT>(edit.lineOf(current ? edit.from() : wParam));
  }
}

/// The keys that a field wants of its dialog; `message` is the one in question, or null.
LRESULT dialogCode(HWND field, const MSG* message) {
  const LRESULT code = DLGC_WANTCHARS | DLGC_HASSETSEL | DLGC_WANTARROWS;
  if (!isMultiLine(field) || message == nullptr || message->message != WM_KEYDOWN) return code;
  const bool breaksLine =
      message->wParam == VK_RETURN && (hasStyle(field, ES_WANTRETURN) || isDown(VK_CONTROL));
  return breaksLine ? code | DLGC_WANTALLKEYS : code;
}

void setReadOnly(HWND field, bool readOnly) {
  Window* window = findWindow(field);
  window->style = readOnly ? window->style | ES_READONLY : window->style & ~ES_READONLY;
  tellObservers(field, Change::style);
}

void clipboardMessage(HWND field, EditState& state, UINT message) {
  switch (message) {
    case WM_COPY:
      return copySelection(state);
    case WM_CUT:
      copySelection(state);
      return clearSelection(field, state);
    case WM_PASTE:
      if (interaction().clipboard()) insertByUser(field, state, *interaction().clipboard());
      return;
    case WM_CLEAR:
      return clearSelection(field, state);
    default:
      return undo(field, state);
  }
}

LRESULT settingMessage(HWND field, EditState& state, UINT message, WPARAM wParam) {
  switch (message) {
    case EM_LIMITTEXT:
      state.limit = wParam == 0 ? EditState::kNoLimit : wParam;
      return 0;
    case EM_GETLIMITTEXT:
      return static_cast<LRESULT>(state.limit);
    case EM_SETREADONLY:
      setReadOnly(field, wParam != 0);
      return TRUE;
    case EM_GETMODIFY:
      return state.modified;
    case EM_SETMODIFY:
      state.modified = wParam != 0;
      return 0;
    case EM_CANUNDO:
      return state.edit.canUndo();
    default:
      state.edit.forgetFormer();
      return 0;
  }
}

LRESULT editProcedure(HWND field, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* state = stateOf<EditState>(field);
  if (state == nullptr) return DefWindowProcW(field, message, wParam, lParam);
  switch (message) {
    case WM_CREATE:
      state->edit.setText(findWindow(field)->text);
      return 0;
    case WM_SETTEXT:
      return setFieldText(field, *state, lParam);
    case WM_GETDLGCODE:
      return dialogCode(field, reinterpret_cast<const MSG*>(lParam));
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      notifyParent(field, message == WM_SETFOCUS ? EN_SETFOCUS : EN_KILLFOCUS);
      return 0;
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
      SetFocus(field);
      return 0;
    case WM_CONTEXTMENU:
      showEditMenu(field, *state, lParam);
      return 0;
    case WM_CHAR:
      typeCharacter(field, *state, static_cast<wchar_t>(wParam));
      return 0;
    case WM_KEYDOWN:
      keyDown(field, *state, wParam);
      return 0;
    case WM_CUT:
    case WM_COPY:
    case WM_PASTE:
    case WM_CLEAR:
    case WM_UNDO:
    case EM_UNDO:
      clipboardMessage(field, *state, message);
      return TRUE;
    case EM_SETSEL:
      setSelection(field, *state, wParam, lParam);
      return 0;
    case EM_GETSEL:
      return getSelection(*state, wParam, lParam);
    case EM_REPLACESEL:
      return replaceByProgram(field, *state, wParam, lParam);
    case EM_GETLINE:
      return copyLine(*state, wParam, lParam);
    case EM_GETLINECOUNT:
    case EM_LINEINDEX:
    case EM_LINELENGTH:
    case EM_LINEFROMCHAR:
      return lineMessage(*state, message, wParam);
    case EM_LIMITTEXT:
    case EM_GETLIMITTEXT:
    case EM_SETREADONLY:
    case EM_GETMODIFY:
    case EM_SETMODIFY:
    case EM_CANUNDO:
    case EM_EMPTYUNDOBUFFER:
      return settingMessage(field, *state, message, wParam);
    default:
      return DefWindowProcW(field, message, wParam, lParam);
  }
}

std::unique_ptr<WindowState> makeEditState() {
  return std::make_unique<EditState>();
}

}  // namespace

const OwnWindowClass kEditClass({L"EDIT", editProcedure, makeEditState});

}  // namespace kovra::win
