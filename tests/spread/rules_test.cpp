// What cells make of texts, where keys lead, which cells blocks and layouts hold.
#include <gtest/gtest.h>

#include "platform/spread/cell_text.h"
#include "platform/spread/grid_block.h"
#include "platform/spread/grid_cells.h"
#include "platform/spread/grid_layout.h"
#include "platform/win/base/messages.h"

namespace kovra::spread {
namespace {

constexpr double kMost = 999999999999.99;
constexpr DWORD kUsual = SS_NUMBER_LEADING_ZERO | SS_NUMBER_NEGATIVE;

SS_CELLTYPE number(SHORT digits, DWORD style = kUsual, double min = -kMost, double max = kMost) {
  return {SS_TYPE_NUMBER, digits, style, min, max};
}

TEST(CellText, NumbersAreShownWithTheirDigitsAndTakenOnlyInTheirRange) {
  struct Case {
    SS_CELLTYPE type;
    const wchar_t* text;
    const wchar_t* shown;
    const wchar_t* entered;  ///< null: not taken
  };
  const SS_CELLTYPE text{SS_TYPE_TEXT, 0, 0, 0, 0};
  const Case cases[] = {
      {text, L" 2.5x", L" 2.5x", L" 2.5x"},
      {number(2), L"2.5", L"2.50", L"2.50"},
      {number(2), L"", L"", L""},
      {number(2), L"1.005", L"1.01", L"1.01"},
      {number(2), L"9.995", L"10.00", L"10.00"},
      {number(2), L"-.004", L"0.00", L"0.00"},
      {number(0), L"-2.5", L"-3", L"-3"},
      {number(4), L" 007.", L"7.0000", L"7.0000"},
      {number(2, SS_NUMBER_NEGATIVE), L"-0.7", L"-.70", L"-.70"},
      {number(2, SS_NUMBER_LEADING_ZERO), L"-1", L"-1.00", nullptr},
      {number(2), L"\xFF12\xFF0E\xFF15", L"2.50", L"2.50"},
      {number(2), L"999999999999.99", L"999999999999.99", L"999999999999.99"},
      {number(2), L"1000000000000", L"1000000000000.00", nullptr},
      {number(1, kUsual, 0, 9.94), L"9.99", L"10.0", nullptr},
      {number(1, kUsual, 5, 9), L"4.9", L"4.9", nullptr},
      {number(2), L"-", L"-", nullptr},
      {number(2), L".", L".", nullptr},
      {number(2), L"1.2.3", L"1.2.3", nullptr},
      {number(2), L"1-2", L"1-2", nullptr},
      {number(2), L"1e3", L"1e3", nullptr},
      {number(2), L"CMNT", L"CMNT", nullptr},
      {number(2), L"\xD800", L"\xD800", nullptr},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(shownText(one.type, one.text), one.shown) << one.shown;
    const auto entered = enteredText(one.type, one.text);
    ASSERT_EQ(entered.has_value(), one.entered != nullptr) << one.shown;
    EXPECT_EQ(entered.value_or(L""), one.entered != nullptr ? one.entered : L"");
  }
  // What is no number yet may become one, unless it has left the range for good.
  for (const wchar_t* begun : {L"", L"-", L".", L"-.", L"4"})
    EXPECT_TRUE(mayBeTyped(number(2, kUsual, 5, 99), begun) || *begun == L'-');
  EXPECT_FALSE(mayBeTyped(number(2, kUsual, 5, 99), L"100"));
  EXPECT_FALSE(mayBeTyped(number(2, kUsual, 5, 99), L"-1"));
}

TEST(Cells, GrowKeepTextsAndRulesWhenRowsGo) {
  GridCells cells;
  cells.types.set(-1, -1, number(2));
  cells.locks.set(1, 3, true);
  for (const LONG row : {1, 2, 3, 600}) cells.setText(1, row, std::to_wstring(row));
  EXPECT_EQ(cells.rows(), 600);
  EXPECT_FALSE(cells.setText(-1, 1, L"x"));
  EXPECT_TRUE(cells.deleteRow(2));
  EXPECT_EQ(cells.rows(), 599);
  EXPECT_EQ(cells.text(1, 2) + cells.text(1, 599), L"3600");
  EXPECT_EQ(cells.shown(1, 2), L"3.00");
  EXPECT_TRUE(cells.locks.at(1, 2, false));
  EXPECT_FALSE(cells.deleteRow(0) || cells.deleteRow(600));
  EXPECT_TRUE(cells.deleteRow(599));
  for (int i = 0; i < 200; ++i) cells.deleteRow(1);
  EXPECT_EQ(cells.rows(), GridCells::kFirstCount);
  EXPECT_TRUE(cells.filled().empty());
  cells.setText(2, 1, L"b");
  cells.setText(1, 1, L"a");
  EXPECT_EQ(cells.filled().front().col, 1);
  cells.setColumns(1);
  cells.setColumns(2);
  EXPECT_EQ(cells.text(2, 1), L"");
}

TEST(Blocks, KeysLeadToCellsThatThereAre) {
  const Extent extent{3, 100, 40, 10};
  struct Case {
    SS_CELL from;
    int key;
    bool control;
    SS_CELL to;
  };
  const Case cases[] = {
      {{1, 1}, VK_UP, false, {1, 1}},       {{1, 1}, VK_LEFT, false, {1, 1}},
      {{2, 5}, VK_RIGHT, false, {3, 5}},    {{2, 5}, VK_RIGHT, true, {3, 5}},
      {{2, 5}, VK_NEXT, false, {2, 14}},    {{2, 5}, VK_PRIOR, false, {2, 1}},
      {{2, 5}, VK_DOWN, true, {2, 40}},     {{2, 40}, VK_DOWN, true, {2, 100}},
      {{2, 100}, VK_DOWN, false, {2, 100}}, {{2, 5}, VK_HOME, false, {1, 5}},
      {{2, 5}, VK_HOME, true, {1, 1}},      {{2, 5}, VK_END, true, {3, 40}},
  };
  for (const Case& one : cases) {
    const auto to = cellByKey(one.from, one.key, one.control, extent);
    ASSERT_TRUE(to);
    EXPECT_EQ(std::pair(to->col, to->row), std::pair(one.to.col, one.to.row)) << one.key;
  }
  EXPECT_FALSE(cellByKey({1, 1}, 'X', true, extent));
  EXPECT_EQ(nextCell({3, 5}, false, extent).row, 6);
  EXPECT_EQ(nextCell({1, 5}, true, extent).col, 3);
  EXPECT_EQ(nextCell({3, 100}, false, extent).row, 100);
  const Block rows{{-1, 4}, {-1, 120}};
  EXPECT_TRUE(holds(rows, {3, 5}));
  EXPECT_EQ(bounded(rows, extent).last.col, 3);
  EXPECT_EQ(bounded(rows, extent).last.row, 100);
}

TEST(Layout, PlacesAndCellsAnswerEachOther) {
  GridLayout layout;
  layout.client = {300, 120};
  layout.columns = 10;
  layout.rows = 50;
  layout.widths[2] = 30;
  layout.scrollTo({9, 40});
  EXPECT_EQ(layout.topRow, 36);
  for (const SS_CELL cell : {SS_CELL{9, 40}, {9, 0}, {0, 36}, {layout.leftColumn, 36}}) {
    const RECT place = layout.placeOf(cell.col, cell.row);
    ASSERT_LT(place.left, place.right);
    const auto found = layout.cellAt({place.left, place.bottom - 1});
    ASSERT_TRUE(found);
    EXPECT_EQ(std::pair(found->col, found->row), std::pair(cell.col, cell.row));
  }
  EXPECT_EQ(layout.placeOf(1, 40).right, 0);
  EXPECT_FALSE(layout.cellAt({299, 50}));  // the scroll bar
  layout.rowHeaders = layout.columnHeaders = false;
  EXPECT_EQ(layout.placeOf(0, 36).right, 0);
  EXPECT_EQ(layout.cellsArea().right, 300 - GridLayout::kScrollBar);
}

}  // namespace
}  // namespace kovra::spread
