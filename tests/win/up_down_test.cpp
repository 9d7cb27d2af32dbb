/// The up-down control: what a press tells and does, by mouse, keys and wheel.
#include "tests/win/test_dialog.h"

namespace kovra::win {
namespace {

constexpr int kField = 10;
constexpr int kArrows = 30;
constexpr DWORD kUsual = UDS_SETBUDDYINT | UDS_AUTOBUDDY | UDS_ARROWKEYS;

class UpDown : public DialogTest {
 protected:
  void open(DWORD style, int lower, int upper, const wchar_t* text) {
    show({{kField, L"EDIT", kTab, text}, {kArrows, UPDOWN_CLASSW, kShown | style}});
    send(UDM_SETRANGE32, static_cast<WPARAM>(lower), upper);
    told();
  }
  LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    return SendDlgItemMessageW(dialog, kArrows, message, wParam, lParam);
  }
  void press(bool up) { EXPECT_EQ(pressArrow(control(kArrows), up).error, ""); }
  void key(int key) { EXPECT_EQ(pressKey(control(kField), {key}).error, ""); }
  void wheel(int turn) {
    SendMessageW(control(kField), WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<UINT>(turn)), 0);
  }
  Told steps() {
    Told all = told();
    std::erase_if(all, [](const std::string& line) { return !line.starts_with("30 "); });
    return all;
  }
};

TEST_F(UpDown, StepsByMouseKeysAndWheel) {
  const struct {
    const char* name;
    DWORD style;
    int lower;
    int upper;
    const wchar_t* text;
    std::function<void()> act;
    std::string shown;
    Told told;
  } cases[] = {
      {"up", kUsual, 0, 9, L"5", [&] { press(true); }, "6", {"30 at 5 by 1"}},
      {"down", kUsual, 0, 9, L"5", [&] { press(false); }, "4", {"30 at 5 by -1"}},
      {"at the end it still tells",
       kUsual,
       0,
       9,
       L"9",
       [&] { press(true); },
       "9",
       {"30 at 9 by 1"}},
      {"around", kUsual | UDS_WRAP, 0, 9, L"0", [&] { press(false); }, "9", {"30 at 0 by -1"}},
      {"a range that runs downward",
       kUsual,
       9,
       0,
       L"5",
       [&] { press(true); },
       "4",
       {"30 at 5 by -1"}},
      {"thousands",
       kUsual,
       -5000,
       5000,
       L"-1,000",
       [&] { press(false); },
       "-1,001",
       {"30 at -1000 by -1"}},
      {"no commas",
       kUsual | UDS_NOTHOUSANDS,
       0,
       9999,
       L"999",
       [&] { press(true); },
       "1000",
       {"30 at 999 by 1"}},
      {"a text that is no number", kUsual, 0, 9, L"x", [&] { press(true); }, "1", {"30 at 0 by 1"}},
      {"side by side", kUsual | UDS_HORZ, 0, 9, L"5", [&] { press(true); }, "6", {"30 at 5 by 1"}},
      {"without the buddy's text",
       UDS_AUTOBUDDY,
       0,
       9,
       L"5",
       [&] { press(true); },
       "5",
       {"30 at 0 by 1"}},
      {"keys",
       kUsual,
       0,
       9,
       L"5",
       [&] {
         key(VK_UP);
         key(VK_UP);
         key(VK_DOWN);
         key(VK_LEFT);
       },
       "6",
       {"30 at 5 by 1", "30 at 6 by 1", "30 at 7 by -1"}},
      {"keys that stay the field's",
       UDS_SETBUDDYINT | UDS_AUTOBUDDY,
       0,
       9,
       L"5",
       [&] { key(VK_UP); },
       "5",
       {}},
      {"half a turn and another",
       kUsual,
       0,
       9,
       L"5",
       [&] {
         wheel(60);
         wheel(60);
         wheel(-240);
       },
       "4",
       {"30 at 5 by 1", "30 at 6 by -2"}},
      {"refused",
       kUsual,
       0,
       9,
       L"5",
       [&] {
         answers[WM_NOTIFY] = 1;
         press(true);
       },
       "5",
       {"30 at 5 by 1"}},
      {"its dialog ends meanwhile",
       kUsual,
       0,
       9,
       L"5",
       [&] {
         when("30 at 5 by 1", [&] { DestroyWindow(dialog); });
         press(true);
       },
       "",
       {"30 at 5 by 1"}},
  };
  for (const auto& row : cases) {
    SetUp();
    handlers.clear();
    answers.clear();
    open(row.style, row.lower, row.upper, row.text);
    row.act();
    EXPECT_EQ(text(kField), row.shown) << row.name;
    EXPECT_EQ(steps(), row.told) << row.name;
  }
}

TEST_F(UpDown, AUserCantPressWhatHeCantReach) {
  open(kUsual, 0, 9, L"5");
  EXPECT_EQ(clickControl(control(kArrows)).error, "control 30 can't be clicked");
  EXPECT_EQ(pressArrow(control(kField), true).error, "control 10 has no arrows to press");
  EnableWindow(control(kArrows), FALSE);
  EXPECT_EQ(pressArrow(control(kArrows), true).error, "control 30 is disabled");
  key(VK_UP);
  EXPECT_EQ(text(kField), "5");
  EXPECT_EQ(steps(), Told());
}

TEST_F(UpDown, PositionsAndShortRanges) {
  open(kUsual, 0, 9, L"5");
  send(UDM_SETRANGE, 0, MAKELPARAM(static_cast<UINT>(100), static_cast<UINT>(-100)));
  int lower = 0;
  int upper = 0;
  send(UDM_GETRANGE32, reinterpret_cast<WPARAM>(&lower), reinterpret_cast<LPARAM>(&upper));
  EXPECT_EQ(lower, -100);
  EXPECT_EQ(upper, 100);
  EXPECT_EQ(send(UDM_SETPOS32, 0, -500), 0);
  EXPECT_EQ(text(kField), "-100");
  EXPECT_EQ(send(UDM_SETPOS, 0, 7), -100);
  BOOL failed = TRUE;
  EXPECT_EQ(send(UDM_GETPOS32, 0, reinterpret_cast<LPARAM>(&failed)), 7);
  EXPECT_EQ(failed, FALSE);
  SetWindowTextW(control(kField), L"101");
  EXPECT_EQ(HIWORD(static_cast<DWORD>(send(UDM_GETPOS))), 1);
}

TEST_F(UpDown, TakesItsRoomFromItsBuddyAndGivesItBack) {
  show({{kField, L"EDIT", kTab},
        {11, L"EDIT", kTab},
        {kArrows, UPDOWN_CLASSW, kShown | UDS_ALIGNRIGHT | UDS_ARROWKEYS}});
  SetWindowPos(control(kArrows), nullptr, 0, 0, 17, 5, SWP_NOMOVE | SWP_NOZORDER);
  const RECT whole = screenPlace(control(kField));
  const HWND none = nullptr;
  EXPECT_EQ(send(UDM_SETBUDDY, reinterpret_cast<WPARAM>(control(kField))),
            reinterpret_cast<LRESULT>(none));
  const RECT arrows = screenPlace(control(kArrows));
  EXPECT_EQ(screenPlace(control(kField)).right, whole.right - 17);
  EXPECT_EQ(arrows.left, whole.right - 17);
  EXPECT_EQ(arrows.top, whole.top);
  EXPECT_EQ(arrows.bottom, whole.bottom);
  send(UDM_SETBUDDY, reinterpret_cast<WPARAM>(control(11)));
  EXPECT_EQ(screenPlace(control(kField)).right, whole.right);
  key(VK_UP);
  EXPECT_EQ(steps(), Told()) << "the keys of a former buddy are its own again";
}

}  // namespace
}  // namespace kovra::win
