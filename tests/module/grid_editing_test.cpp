// Cut, copy, paste and clear in a grid of several columns, and what its parent is told.
#include <gtest/gtest.h>

#include <algorithm>

#include "module/frame/attach.h"
#include "module/frame/companions/string_res_lib.h"
#include "module/grid/kovra_spread_sheet.h"
#include "platform/win/base/interaction.h"
#include "platform/win/base/pump.h"
#include "platform/win/base/run_settings.h"
#include "platform/win/base/wide_text.h"
#include "platform/win/desktop/table_input.h"
#include "platform/win/desktop/user_input.h"

namespace kovra::test {
namespace {

class Page : public CDialog {
 public:
  int told = 0;

 protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message == kGridModifiedMessage) ++told;
    return CDialog::WindowProc(message, wParam, lParam);
  }
};

class GridEditing : public ::testing::Test {
 protected:
  static constexpr int kColumns = 4;

  void SetUp() override {
    win::runSettings().resourceFolder = KOVRA_RESOURCES;
    win::runSettings().language = win::Language::english;
    ResourceModule = GetResourceModule();
    AfxSetResourceHandle(ResourceModule);
    frame.Create(3930);
    page.Create(1529, &frame);
    ASSERT_EQ(grid.ReplaceDlgItem(&page, 1926), 1);
    SSSetMaxCols(grid.m_hWnd, kColumns);
    SSSetBool(grid.m_hWnd, SS_BOOL_EDIT_SELECTS, TRUE);
    frame.ShowWindow(SW_SHOW);
    page.ShowWindow(SW_SHOW);
    grid.SetFocus();
  }
  void TearDown() override {
    frame.DestroyWindow();
    AfxSetResourceHandle(nullptr);
    ResourceModule = nullptr;
  }

  /// "a,b|c" of the first rows, without the empty ends.
  std::string cells(int first = 1) {
    std::string all;
    for (int row = first; row < first + 5; ++row) {
      if (row > first) all += '|';
      for (int col = 1; col <= kColumns; ++col) {
        grid.SetRow(row);
        grid.SetCol(col);
        if (col > 1) all += ',';
        all += win::toUtf8(grid.GetCellText().GetString());
      }
      all.erase(all.find_last_not_of(',') + 1);
    }
    all.erase(all.find_last_not_of('|') + 1);
    return all;
  }
  void fill(const char* rows) {
    const std::wstring text = win::fromUtf8(rows);
    std::size_t at = 0;
    for (int row = 1; row <= 5; ++row) {
      const std::size_t end = std::min(text.find(L'|', at), text.size());
      std::wstring fields = text.substr(at, end - at);
      std::replace(fields.begin(), fields.end(), L',', L'\n');
      grid.SetRowText(row, fields.c_str(), 0);
      at = std::min(end + 1, text.size());
    }
  }
  void select(SS_CELL first, SS_CELL last) {
    SSSetActiveCell(grid.m_hWnd, std::max<LONG>(1, first.col), std::max<LONG>(1, first.row));
    if (first.col != last.col || first.row != last.row || first.col < 0 || first.row < 0)
      SSSetSelectBlock(grid.m_hWnd, &first, &last);
  }
  static void press(const char* keys) {
    EXPECT_TRUE(win::pressKey(GetFocus(), *win::keyNamed(keys)).ok()) << keys;
  }
  static void copied(const wchar_t* text) { win::interaction().setClipboard(text); }
  static std::string clip() { return win::toUtf8(win::interaction().clipboard().value_or(L"-")); }
  int takeTold() {
    win::Pump::instance().runUntil([] { return false; }, {});
    return std::exchange(page.told, 0);
  }

  CDialog frame;
  Page page;
  KovraSpreadSheet grid;
};

TEST_F(GridEditing, PasteFillsTheSelection) {
  const struct {
    const wchar_t* clip;
    SS_CELL first, last;  ///< column, row
    const char* after;
    LONG lockedRow = 0;  ///< of the second column
  } cases[] = {
      {L"a\tb\n", {1, 1}, {2, 3}, "a,b|a,b|a,b"},  // as wide: into every row
      {L"a\nb\n", {2, 1}, {3, 2}, ",a,a|,b,b"},    // as high: into every column
      {L"x", {1, 2}, {2, 3}, "|x,x|x,X", 3},       // one text: everywhere but where it is locked
      {L"a\tb\nc\td\n", {1, 1}, {1, 1}, "a,b|c,d"},
      {L"a\tb\nc\td\n", {1, 1}, {4, 4}, "a,b,a,b|c,d,c,d|a,b,a,b|c,X,c,d", 4},
      {L"a\tb\nc\td\n", {1, 1}, {3, 1}, "a,b,a|c,d,c"},  // one row high: its own height
      {L"a\tb\tc\td\te\n", {3, 1}, {3, 1}, ",,a,b"},     // over the edge
      {L"a\r\nb\r\n", {1, 1}, {1, 1}, "a|b"},
      {L"a\r\nb", {1, 1}, {1, 1}, "a"},                      // no row without its line feed
      {L"a\tb\tc", {1, 1}, {1, 1}, "a,b,c"},                 // but a single one
      {L"a\tb\nc\nd\te\tf\n", {1, 1}, {1, 1}, "a,b|c|d,e"},  // ragged rows stay rows
      {L"a\nb\tc\n\nd\n", {1, 1}, {1, 1}, "a|b||d"},
      {L"", {1, 1}, {1, 1}, ""},
      {L"x", {-1, 2}, {-1, 2}, "|x,x,x,x"},
      {L"\xD800\t\x3042\n", {1, 1}, {1, 1}, "\xEF\xBF\xBD,あ"},
  };
  for (const auto& each : cases) {
    fill("");
    SSSetLock(grid.m_hWnd, -1, -1, FALSE);
    grid.SetCol(2);
    grid.SetRow(each.lockedRow);
    if (each.lockedRow > 0) grid.SetCellText(L"X");
    SSSetLock(grid.m_hWnd, 2, each.lockedRow, TRUE);
    copied(each.clip);
    select(each.first, each.last);
    press("Shift+Insert");
    EXPECT_EQ(cells(), each.after) << win::toUtf8(each.clip);
  }
  copied(L"1\n2\n3\n");
  select({1, 499}, {1, 499});
  press("Ctrl+V");
  EXPECT_EQ(cells(499), "1|2");
  EXPECT_EQ(SSGetMaxRows(grid.m_hWnd), 500);
}

TEST_F(GridEditing, CopyCutAndClearTakeTheBlockOrTheActiveCell) {
  const struct {
    SS_CELL first, last;
    const char* key;
    const char* clip;
    const char* after;
  } cases[] = {
      {{2, 2}, {2, 2}, "Ctrl+C", "e\n", "a,b|d,e,f|g,h,i"},
      {{1, 1}, {2, 2}, "Ctrl+Insert", "a\tb\nd\te\n", "a,b|d,e,f|g,h,i"},
      {{-1, 2}, {-1, 2}, "Ctrl+X", "d\te\tf\t\n", "a,b||g,h,i"},
      {{2, 1}, {3, 3}, "Ctrl+X", "b\t\ne\tf\nh\ti\n", "a|d|g,h"},
      {{1, 1}, {1, 1}, "Delete", "-", ",b|d,e,f|g,h,i"},
      {{2, -1}, {2, -1}, "Delete", "-", "a|d,,f|g,h,i"},
      {{1, 1}, {2, 2}, "Shift+Delete", "-", "|,,f|g,h,i"},
  };
  SSSetLock(grid.m_hWnd, 2, 3, TRUE);
  for (const auto& each : cases) {
    fill("a,b|d,e,f|g,h,i");
    copied(L"-");
    select(each.first, each.last);
    SS_CELL first{}, last{};
    const bool block = SSGetSelectBlock(grid.m_hWnd, &first, &last) != FALSE;
    press(each.key);
    if (each.clip == std::string("-")) {
      EXPECT_EQ(clip(), "-");
    } else if (each.first.row > 0) {
      EXPECT_EQ(clip(), each.clip);
    }
    EXPECT_EQ(cells(), each.after) << each.key;
    if (!block) continue;
    SSGetSelectBlock(grid.m_hWnd, &first, &last);
    EXPECT_TRUE(first.col == each.first.col && first.row == each.first.row &&
                last.col == each.last.col && last.row == each.last.row);
  }
}

TEST_F(GridEditing, TheCellEditorHasItsOwnClipboardKeysAndTheParentIsToldOnce) {
  fill("wire");
  select({1, 1}, {1, 1});
  EXPECT_EQ(takeTold(), 0);
  press("Ctrl+C");
  EXPECT_EQ(takeTold(), 0);
  press("F2");
  EXPECT_TRUE(grid.GetEditFlag());
  grid.GridCopy();
  EXPECT_FALSE(grid.GetEditFlag());
  EXPECT_EQ(clip(), "wire");
  grid.GridClear();
  EXPECT_EQ(takeTold(), 1);
  grid.GridCut();
  press("Ctrl+V");
  press("Ctrl+V");
  copied(L"a\nb\n");
  grid.GridPaste();  // a table has no place in a cell
  press("Enter");
  EXPECT_EQ(cells(), "wirewire");
  EXPECT_FALSE(grid.GetEditFlag());
  EXPECT_EQ(takeTold(), 0);
  grid.GridModified = 0;
  select({1, 1}, {1, 1});
  press("Delete");
  press("Ctrl+V");
  EXPECT_EQ(takeTold(), 1);
  EXPECT_EQ(cells(), "a|b");
}

TEST_F(GridEditing, TheMenuIsTheGridsOrThatOfATextsEditor) {
  fill("wire");
  select({1, 1}, {1, 1});
  EXPECT_TRUE(win::chooseFromMenu(grid.m_hWnd, L"Cut").ok());
  EXPECT_TRUE(win::chooseFromMenu(grid.m_hWnd, L"Paste").ok());
  EXPECT_EQ(cells() + clip(), "wirewire\n");
  EXPECT_EQ(win::chooseFromMenu(grid.m_hWnd, L"Undo").error,
            "control 1926 has no item \"Undo\" to choose in its menu, but Cut, Copy, Paste, Clear");
  press("F2");
  EXPECT_TRUE(win::chooseFromMenu(grid.m_hWnd, L"Select all").ok());  // the field's own
  press("Esc");
  SS_CELLTYPE number{};
  SSSetTypeNumber(grid.m_hWnd, &number, 0, 0, 0, 99);
  SSSetCellType(grid.m_hWnd, -1, -1, &number);
  fill("7");
  press("F2");
  EXPECT_TRUE(win::chooseFromMenu(grid.m_hWnd, L"Cut").ok());
  EXPECT_EQ(clip(), "7");
  EXPECT_TRUE(win::chooseFromMenu(grid.m_hWnd, L"Paste").ok());
  EXPECT_TRUE(win::chooseFromMenu(grid.m_hWnd, L"Paste").ok());
  press("Enter");
  EXPECT_EQ(cells(), "77");
}

TEST_F(GridEditing, AGridTakesTheTurnOfTheControlThatItReplaces) {
  EXPECT_EQ(::GetNextDlgTabItem(page.m_hWnd, ::GetDlgItem(page.m_hWnd, 1925), FALSE), grid.m_hWnd);
  EXPECT_EQ(grid.GetStyle() & (0x1000 | WS_BORDER | WS_TABSTOP), 0x1000 | WS_BORDER | WS_TABSTOP);
  KovraSpreadSheet none;
  EXPECT_EQ(none.ReplaceDlgItem(&page, 4711), 0);
  EXPECT_FALSE(none.GetBlock(nullptr, nullptr));
  EXPECT_EQ(none.GetActiveRow(), -1);
}

}  // namespace
}  // namespace kovra::test
