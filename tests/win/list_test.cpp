/// List views: what rows with check boxes tell their dialog, by mouse, keyboard and program.
#include <algorithm>

#include "platform/win/controls/list_control.h"
#include "platform/win/desktop/dialog_listing.h"
#include "tests/win/test_dialog.h"

namespace kovra::win {
namespace {

constexpr int kList = 50;

class Lists : public DialogTest {
 protected:
  void SetUp() override {
    DialogTest::SetUp();
    show({{10, L"EDIT", kTab}, {kList, L"SysListView32", kTab | LVS_REPORT}});
    SetWindowPos(list(), nullptr, 0, 0, 200, 24 + 3 * 17, SWP_NOMOVE | SWP_NOZORDER);
    send(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_CHECKBOXES);
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.pszText = const_cast<LPWSTR>(L"Tag");
    column.cx = 128;
    send(LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
    for (const wchar_t* text : {L"a", L"b", L"c", L"d", L"e"}) insert(99, text);
    SetFocus(control(10));
    told();
  }

  HWND list() const { return control(kList); }
  LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    return SendMessageW(list(), message, wParam, lParam);
  }
  LRESULT insert(int row, const wchar_t* text) {
    LVITEMW item{};
    item.mask = LVIF_TEXT;
    item.iItem = row;
    item.pszText = const_cast<LPWSTR>(text);
    return send(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
  }
  LRESULT setState(int row, UINT state, UINT mask) {
    LVITEMW item{};
    item.state = state;
    item.stateMask = mask;
    return send(LVM_SETITEMSTATE, static_cast<WPARAM>(static_cast<LONG_PTR>(row)),
                reinterpret_cast<LPARAM>(&item));
  }
  LRESULT setCheck(int row, bool on) {
    return setState(row, INDEXTOSTATEIMAGEMASK(on ? 2 : 1), LVIS_STATEIMAGEMASK);
  }
  /// The marks of the rows: "x--".
  std::string checks() const {
    std::string marks;
    for (const int check : listControl(list()).checks) marks += check == 1 ? 'x' : '-';
    return marks;
  }
  int row(UINT flags) { return static_cast<int>(send(LVM_GETNEXTITEM, WPARAM(-1), flags)); }
  static void ok(const InputResult& result) { EXPECT_EQ(result.error, ""); }
  /// What was told of changes of rows, of check boxes alone if wanted.
  Told changes() {
    Told all = told();
    std::erase_if(
        all, [](const std::string& one) { return one.find(" changed ") == std::string::npos; });
    return all;
  }
};

TEST_F(Lists, EachChangeOfARowIsToldByWhomever) {
  ok(clickItemCheck(list(), 1));
  EXPECT_EQ(told(), (Told{"10 EN_KILLFOCUS", "50 focus", "50 changing 0 1000>1001",
                          "50 changed 0 1000>1001", "50 click 1", "50 changing 1 1000>2000",
                          "50 changed 1 1000>2000"}));
  EXPECT_EQ(checks(), "-x---");
  EXPECT_EQ(row(LVNI_SELECTED), -1) << "a click on the box selects nothing";

  EXPECT_TRUE(setCheck(1, false));
  EXPECT_TRUE(setCheck(1, false)) << "an equal state is no change";
  EXPECT_FALSE(setCheck(5, true));
  EXPECT_EQ(changes(), (Told{"50 changed 1 2000>1000"}));

  EXPECT_EQ(insert(1, L"new"), 1);
  EXPECT_EQ(told(), (Told{"50 insert 1", "50 changing 1 0>1000", "50 changed 1 0>1000"}));
  EXPECT_EQ(send(LVM_DELETEITEM, 1), TRUE);
  EXPECT_EQ(send(LVM_DELETEITEM, 5), FALSE);
  EXPECT_EQ(send(LVM_GETITEMCOUNT), 5);

  // The dialog may keep a row as it is, and change others while it is told.
  answers[WM_NOTIFY] = TRUE;
  setCheck(2, true);
  EXPECT_EQ(checks(), "-----");
  answers.clear();
  told();
  when("50 changed 2 1000>2000", [&] { setCheck(0, true); });
  when("50 changed 0 1001>2001", [&] { setCheck(2, false); });
  setCheck(2, true);
  EXPECT_EQ(checks(), "x----");
  EXPECT_EQ(setState(-1, INDEXTOSTATEIMAGEMASK(2), LVIS_STATEIMAGEMASK), TRUE);
  EXPECT_EQ(checks(), "xxxxx") << "-1 means all rows";
}

TEST_F(Lists, KeysMoveAndToggle) {
  struct Case {
    const char* key;
    int row;
    const char* marks;
  };
  const Case cases[] = {{"Space", 0, "x----"},    {"Down", 1, "x----"}, {"Space", 1, "xx---"},
                        {"End", 4, "xx---"},      {"Down", 4, "xx---"}, {"PageUp", 2, "xx---"},
                        {"Space", 2, "xxx--"},    {"Up", 1, "xxx--"},   {"Space", 1, "x-x--"},
                        {"PageDown", 3, "x-x--"}, {"Home", 0, "x-x--"}};
  for (const Case& each : cases) {
    ok(pressKey(list(), *keyNamed(each.key)));
    EXPECT_EQ(row(LVNI_FOCUSED), each.row) << each.key;
    EXPECT_EQ(checks(), each.marks) << each.key;
  }
  EXPECT_EQ(row(LVNI_SELECTED), 0);
  EXPECT_EQ(send(LVM_GETSELECTEDCOUNT), 1) << "the selection goes with the keys";
}

TEST_F(Lists, AClickMeansWhatLiesThere) {
  ok(chooseItem(list(), L"D"));
  EXPECT_EQ(row(LVNI_SELECTED), 3);
  EXPECT_EQ(listControl(list()).selected, 3);
  EXPECT_EQ(send(LVM_GETTOPINDEX), 1) << "scrolled into sight";
  struct Case {
    POINT place;
    int row;
    UINT flags;
  };
  const Case cases[] = {{{10, 10}, -1, LVHT_NOWHERE},          // the heading
                        {{10, 26}, 1, LVHT_ONITEMSTATEICON},   // the first row in sight
                        {{60, 24 + 17}, 2, LVHT_ONITEMLABEL},  //
                        {{150, 30}, -1, LVHT_NOWHERE}};        // beside the column
  for (const Case& each : cases) {
    LVHITTESTINFO hit{each.place, 0, 0, 0};
    EXPECT_EQ(send(LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)), each.row) << each.place.x;
    EXPECT_EQ(hit.flags, each.flags) << each.place.x;
  }
  ok(clickItemCheck(list(), 0));
  EXPECT_EQ(send(LVM_GETTOPINDEX), 0);
  EXPECT_EQ(checks(), "x----");
  EXPECT_NE(clickItemCheck(list(), 5).error, "");
  EXPECT_NE(clickItemCheck(control(10), 0).error, "");
  EnableWindow(list(), FALSE);
  EXPECT_NE(clickItemCheck(list(), 0).error.find("disabled"), std::string::npos);
  EnableWindow(list(), TRUE);
  // A handler that does away with the dialog in the middle of a click.
  when("50 changed 1 1000>2000", [&] { DestroyWindow(dialog); });
  ok(clickItemCheck(list(), 1));
  EXPECT_FALSE(IsWindow(dialog));
}

}  // namespace
}  // namespace kovra::win
