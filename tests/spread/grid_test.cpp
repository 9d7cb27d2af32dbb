// The grid as a user and a program meet it.
#include "platform/spread/spread.h"
#include "platform/win/controls/tab_messages.h"
#include "platform/win/desktop/dialog_listing.h"
#include "platform/win/desktop/table_input.h"
#include "platform/win/windows/clipboard.h"
#include "tests/win/test_dialog.h"

namespace kovra::win {
namespace {

constexpr const wchar_t* kGrid = L"fpUSpread80";

class GridTest : public DialogTest {
 protected:
  void SetUp() override {
    DialogTest::SetUp();
    notes().clear();
    show({{1, kGrid, kTab | WS_BORDER}, {2, L"EDIT", kTab}, {3, L"BUTTON", kTab}});
    grid = control(1);
    MoveWindow(grid, 4, 4, 300, 200, TRUE);
    formerProcedure() = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(grid, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&listen)));
    SSSetBool(grid, SS_BOOL_GROWS, TRUE);
    SSSetBool(grid, SS_BOOL_EDIT_SELECTS, TRUE);
    SSSetBool(grid, SS_BOOL_TAB_LEAVES, TRUE);
    SSSetEditEnterAction(grid, SS_ENTER_NEXT);
    SSSetMaxCols(grid, 2);
  }

  void numbers() {
    SS_CELLTYPE type{};
    SSSetTypeNumber(grid, &type, SS_NUMBER_LEADING_ZERO, 2, 0, 99);
    SSSetCellType(grid, -1, -1, &type);
  }

  std::string cell(LONG row, LONG col = 1) const {
    std::wstring text(static_cast<std::size_t>(SSGetDataLen(grid, col, row)) + 1, L'\0');
    SSGetData(grid, col, row, text.data());
    return narrow(text.c_str());
  }
  std::string active() const {
    LONG col = 0, row = 0;
    SSGetActiveCell(grid, &col, &row);
    return std::to_string(row) + " " + std::to_string(col);
  }
  std::string block() const {
    SS_CELL first{}, last{};
    if (!SSGetSelectBlock(grid, &first, &last)) return "none";
    const LONG numbers[] = {first.row, first.col, last.row, last.col};
    std::string text;
    for (const LONG number : numbers) text += (text.empty() ? "" : " ") + std::to_string(number);
    return text;
  }
  /// Keys separated by blanks; what stands in quotes is typed.
  void press(const std::string& keys) {
    std::size_t at = 0;
    while (at < keys.size()) {
      const std::size_t end = std::min(keys.find(' ', at), keys.size());
      const std::string one = keys.substr(at, end - at);
      at = end + 1;
      if (one.front() == '\'') {
        EXPECT_TRUE(typeCharacters(std::wstring(one.begin() + 1, one.end())).ok()) << one;
      } else {
        EXPECT_TRUE(pressKey(grid, *keyNamed(one)).ok()) << one;
      }
    }
  }
  std::string clip() const { return narrow(interaction().clipboard().value_or(L"-")); }
  static std::string takeNotes() { return std::exchange(notes(), {}); }

  HWND grid = nullptr;

 private:
  static std::string& notes() {
    static std::string all;
    return all;
  }
  static WNDPROC& formerProcedure() {
    static WNDPROC procedure = nullptr;
    return procedure;
  }
  static LRESULT listen(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const char* name = message == SSN_EDIT_OPENED    ? "open "
                       : message == SSN_EDIT_CLOSED  ? "close "
                       : message == SSN_DATA_CHANGED ? "data "
                       : message == SSN_CONTEXT_MENU ? "menu "
                                                     : "";
    notes() += name;
    if (message == SSN_KEY && (lParam & ~0xFFFF) != 0)
      notes() += "key" + std::to_string(LOWORD(lParam)) + "/" + std::to_string(lParam >> 16) + " ";
    return CallWindowProcW(formerProcedure(), window, message, wParam, lParam);
  }
};

TEST_F(GridTest, KeysEditAndMove) {
  struct Case {
    const char* keys;
    const char* first;  ///< texts of the cells 1 1 and 2 1 afterwards
    const char* second;
    const char* active;
    const char* told;
    bool editing = false;
  };
  const Case cases[] = {
      {"'ab", "one", "two", "1 1", "open data data ", true},
      {"'ab Enter", "ab", "two", "1 2", "open data data data close "},
      {"'ab Esc", "one", "two", "1 1", "open data data close "},
      {"F2 Enter", "one", "two", "1 2", "open close "},
      {"F2 End 'x F2", "onex", "two", "1 1", "open data data close "},
      {"F2 Home Delete Down", "ne", "two", "2 1", "open data data close "},
      {"Backspace 'x Down", "x", "two", "2 1", "open data data data close "},
      {"Down Delete 'y Up", "one", "y", "1 1", "open data data close "},
      {"Enter Enter Shift+Enter", "one", "two", "1 2", "key13/1 "},
      {"Ctrl+C", "one", "two", "1 1", "key67/2 "},
  };
  for (const Case& one : cases) {
    SSSetEditMode(grid, FALSE);
    SSSetData(grid, 1, 1, L"one");
    SSSetData(grid, 1, 2, L"two");
    SSSetActiveCell(grid, 1, 1);
    takeNotes();
    press(one.keys);
    EXPECT_EQ(cell(1) + "|" + cell(2) + "|" + active() + "|" + takeNotes(),
              std::string(one.first) + "|" + one.second + "|" + one.active + "|" + one.told)
        << one.keys;
    EXPECT_EQ(SSGetEditMode(grid), one.editing ? TRUE : FALSE) << one.keys;
  }
}

TEST_F(GridTest, FocusElsewhereTakesTheText) {
  press("'ab Tab");
  EXPECT_EQ(GetFocus(), control(2));
  EXPECT_EQ(cell(1), "ab");
  press("Up 'cd");
  clickControl(control(3));
  EXPECT_EQ(cell(1), "cd");
  press("Up 'ef");
  EXPECT_EQ(GetDlgCtrlID(focusedControl()), 1);
  ShowWindow(grid, SW_HIDE);
  EXPECT_EQ(cell(1), "ef");
  EXPECT_FALSE(SSGetEditMode(grid));
}

TEST_F(GridTest, NumbersAreRewrittenOnlyWhenEdited) {
  numbers();
  SSSetData(grid, 1, 1, L"2.5");
  const TableState::FilledCell seen = listControl(grid).table->cells.front();
  EXPECT_EQ(narrow(seen.text + L" " + seen.shown), "2.5 2.50");
  press("F2 Enter Up");
  EXPECT_EQ(cell(1), "2.5");
  EXPECT_TRUE(editCell(grid, {1, 1}, L"3.125").ok());
  EXPECT_EQ(cell(1) + " at " + active(), "3.13 at 1 1");
  EXPECT_EQ(editCell(grid, {1, 1}, L"100").error,
            "control 1 doesn't take \"100\" in row 1 column 1");
  press("'x");
  EXPECT_FALSE(SSGetEditMode(grid));
  EXPECT_EQ(cell(1), "3.13");
  press("F2 Backspace '. Enter");
  EXPECT_EQ(cell(1), "3.13");
}

TEST_F(GridTest, BlocksByMouseAndKeys) {
  struct Case {
    TableState::Cell first, last;  ///< column, row
    const char* keys;
    const char* block;
    const char* active;
  };
  const Case cases[] = {
      {{1, 2}, {1, 2}, "", "none", "2 1"},
      {{1, 2}, {2, 4}, "", "2 1 4 2", "2 1"},
      {{2, 4}, {1, 2}, "", "2 1 4 2", "4 2"},
      {{1, 300}, {1, 3}, "", "3 1 300 1", "300 1"},
      {{-1, 2}, {-1, 4}, "", "2 -1 4 -1", "2 1"},
      {{2, -1}, {2, -1}, "", "-1 2 -1 2", "1 2"},
      {{-1, -1}, {-1, -1}, "", "-1 -1 -1 -1", "1 1"},
      {{0, 3}, {0, 3}, "", "3 -1 3 -1", "3 1"},
      {{0, 3}, {0, 5}, "", "3 -1 5 -1", "3 1"},
      {{2, 0}, {2, 0}, "", "-1 2 -1 2", "1 2"},
      {{1, 2}, {1, 2}, "Shift+Down Shift+Down Shift+Right", "2 1 4 2", "2 1"},
      {{1, 2}, {2, 4}, "Down", "none", "3 1"},
      {{1, 2}, {1, 2}, "Ctrl+A", "-1 -1 -1 -1", "2 1"},
  };
  for (const Case& one : cases) {
    SSSetActiveCell(grid, 1, 1);
    EXPECT_EQ(selectCells(grid, one.first, one.last).error, "");
    press(one.keys);
    EXPECT_EQ(block() + " at " + active(), std::string(one.block) + " at " + one.active)
        << one.first.row << one.keys;
  }
  EXPECT_FALSE(selectCells(grid, {3, 1}, {3, 1}).ok());
  EXPECT_FALSE(selectCells(grid, {1, -1}, {1, 4}).ok());
  SSSetBool(grid, SS_BOOL_COLUMN_HEADERS, FALSE);
  EXPECT_FALSE(selectCells(grid, {1, 0}, {1, 0}).ok());
}

TEST_F(GridTest, CopyAndCutRespectLocksAndShape) {
  const wchar_t* texts[] = {L"a", L"b", L"c"};
  for (LONG row = 1; row <= 3; ++row) SSSetData(grid, 1, row, texts[row - 1]);
  SSSetData(grid, 2, 2, L"B");
  SSSetLock(grid, 1, 2, TRUE);
  EXPECT_TRUE(SSClipboardCopy(grid));
  EXPECT_EQ(clip(), "a\n");
  const SS_CELL first{-1, 2}, last{-1, 3};
  SSSetSelectBlock(grid, &first, &last);
  EXPECT_TRUE(SSClipboardCut(grid));
  EXPECT_EQ(clip(), "b\tB\nc\t\n");
  EXPECT_EQ(cell(1) + cell(2) + cell(3) + cell(2, 2), "ab");
  EXPECT_EQ(block(), "2 -1 3 -1");
  EXPECT_EQ(editCell(grid, {1, 2}, L"x").error, "control 1 row 2 column 1 is locked");
  SSSetActiveCell(grid, 1, 2);
  EXPECT_FALSE(SSSetEditMode(grid, TRUE));
}

TEST_F(GridTest, TheEditorHasItsSelectionItsClipboardAndItsMenu) {
  SSSetData(grid, 1, 1, L"wire");
  press("F2");
  EXPECT_TRUE(placeCaret(grid, 1, 3).ok());
  const HGLOBAL selected = SSGetSelText(grid);
  EXPECT_EQ(narrow(static_cast<const wchar_t*>(GlobalLock(selected))), "ir");
  GlobalUnlock(selected);
  GlobalFree(selected);
  EXPECT_TRUE(SSReplaceSel(grid, L"-\r\nx"));
  EXPECT_EQ(narrow(listControl(grid).table->editorText), "w-e");
  EXPECT_EQ(SSGetSelText(grid), nullptr);
  EXPECT_TRUE(chooseFromMenu(grid, L"select all").ok());
  EXPECT_TRUE(chooseFromMenu(grid, L"Copy").ok());
  EXPECT_EQ(clip(), "w-e");
  press("End Ctrl+V");
  SSSetBool(grid, SS_BOOL_EDIT_CLIPBOARD, FALSE);
  press("Ctrl+V Enter");
  EXPECT_EQ(cell(1), "w-ew-e");
  takeNotes();
  EXPECT_EQ(chooseFromMenu(grid, L"Copy").error, "control 1 has no context menu");
  EXPECT_EQ(takeNotes(), "menu ");
  numbers();
  press("F2");
  EXPECT_FALSE(SSReplaceSel(grid, L"x"));
  EXPECT_FALSE(chooseFromMenu(grid, L"Copy").ok());  // a field of numbers has no menu of its own
}

TEST_F(GridTest, RowsComeAsTheyAreFilledAndGoWhenDeleted) {
  EXPECT_EQ(SSGetMaxRows(grid), 500);
  press("Ctrl+Down Ctrl+Down 'z Enter Left");
  EXPECT_EQ(SSGetMaxRows(grid), 501);
  EXPECT_EQ(active(), "500 1");
  for (LONG row = 1; row <= SSGetMaxRows(grid) && row <= 700; ++row) SSSetData(grid, 1, row, L"");
  EXPECT_EQ(SSGetMaxRows(grid), 701);
  SSSetBool(grid, SS_BOOL_GROWS, FALSE);
  SSSetData(grid, 1, 701, L"x");
  EXPECT_EQ(SSGetMaxRows(grid), 701);
  SSSetActiveCell(grid, 1, 701);
  EXPECT_TRUE(SSDelRow(grid, 1));
  EXPECT_EQ(active() + cell(700), "700 1x");
  EXPECT_FALSE(SSDelRow(grid, 701));
}

TEST_F(GridTest, NothingHappensToWindowsThatAreNoGridsOrEndInAHandler) {
  const HWND field = control(2);
  EXPECT_FALSE(SSSetData(field, 1, 1, L"x") || SSGetActiveCell(field, nullptr, nullptr) ||
               SSSetEditMode(field, TRUE) || SSDelRow(nullptr, 1));
  EXPECT_EQ(SSGetMaxRows(field) + SSGetDataLen(field, 1, 1), 0);
  EXPECT_EQ(editCell(field, {1, 1}, L"x").error, "control 2 has no cells");
  press("'ab");
  DestroyWindow(dialog);
  EXPECT_FALSE(IsWindow(grid));
}

TEST_F(DialogTest, TabsAskAndTellTheirParent) {
  show({{1, L"SysTabControl32", kTab}});
  const HWND tabs = control(1);
  for (wchar_t text[] = L"Tab 1"; text[4] < L'4'; ++text[4]) {
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = text;
    EXPECT_EQ(SendMessageW(tabs, TCM_INSERTITEMW, 99, reinterpret_cast<LPARAM>(&item)),
              text[4] - L'1');
  }
  const auto selected = [&] { return SendMessageW(tabs, TCM_GETCURSEL, 0, 0); };
  EXPECT_EQ(selected(), 0);
  EXPECT_TRUE(chooseItem(tabs, L"Tab 3").ok());
  EXPECT_EQ(selected(), 2);
  EXPECT_EQ(narrow(listControl(tabs).text), "Tab 3");
  pressKey(tabs, {VK_RIGHT});
  pressKey(tabs, {VK_LEFT});
  EXPECT_EQ(selected(), 1);
  RECT place{};
  SendMessageW(tabs, TCM_GETITEMRECT, 2, reinterpret_cast<LPARAM>(&place));
  SendMessageW(tabs, WM_LBUTTONDOWN, 0, MAKELPARAM(place.left + 1, place.top + 1));
  EXPECT_EQ(selected(), 2);
  answers[WM_NOTIFY] = TRUE;  // the parent refuses
  EXPECT_TRUE(chooseIndex(tabs, 0).ok());
  EXPECT_EQ(selected(), 2);
  EXPECT_FALSE(chooseIndex(tabs, 3).ok());
}

TEST_F(DialogTest, TheClipboardTakesAndGivesMemory) {
  EXPECT_EQ(SetClipboardData(CF_UNICODETEXT, GlobalAlloc(GHND, 8)), nullptr);  // not open
  EXPECT_TRUE(OpenClipboard(nullptr));
  EXPECT_FALSE(OpenClipboard(nullptr));
  EmptyClipboard();
  EXPECT_EQ(GetClipboardData(CF_UNICODETEXT), nullptr);
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, 2 * sizeof(wchar_t));
  std::fill_n(static_cast<wchar_t*>(GlobalLock(memory)), 2, L'x');  // no null at its end
  GlobalUnlock(memory);
  EXPECT_EQ(SetClipboardData(CF_UNICODETEXT, memory), memory);
  EXPECT_EQ(GetClipboardData(1), nullptr);
  EXPECT_TRUE(CloseClipboard());
  EXPECT_EQ(GlobalSize(memory), 0U);  // it was the clipboard's
  EXPECT_EQ(narrow(*interaction().clipboard()), "xx");
  OpenClipboard(nullptr);
  const HANDLE given = GetClipboardData(CF_UNICODETEXT);
  EXPECT_EQ(GlobalSize(given), 3 * sizeof(wchar_t));
  CloseClipboard();
  EXPECT_EQ(GlobalLock(given), nullptr);
}

}  // namespace
}  // namespace kovra::win
