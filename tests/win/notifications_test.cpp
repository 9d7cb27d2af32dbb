/// What a control tells its parent, message by message: the ground that dialogs stand on.
#include "tests/win/test_dialog.h"

namespace kovra::win {
namespace {

const std::vector<Item> kControls = {
    {1, L"BUTTON", kTab | BS_DEFPUSHBUTTON, L"OK"},
    {10, L"EDIT", kTab},
    {11, L"EDIT", kTab | ES_MULTILINE | ES_WANTRETURN},
    {20, L"BUTTON", kTab | BS_AUTOCHECKBOX},
    {21, L"BUTTON", kTab | BS_CHECKBOX},
    {30, L"BUTTON", kTab | WS_GROUP | BS_AUTORADIOBUTTON},
    {31, L"BUTTON", kShown | BS_AUTORADIOBUTTON},
    {40, L"COMBOBOX", kTab | WS_GROUP | CBS_DROPDOWN},
    {41, L"COMBOBOX", kTab | CBS_DROPDOWNLIST},
};

class Notifications : public DialogTest {
 protected:
  void SetUp() override {
    DialogTest::SetUp();
    show(kControls);
    for (const int id : {40, 41}) {
      for (const wchar_t* item : {L"one", L"two", L"three"}) {
        SendDlgItemMessageW(dialog, id, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item));
      }
    }
    SetFocus(control(10));
    told();
  }
  LRESULT send(int id, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    return SendDlgItemMessageW(dialog, id, message, wParam, lParam);
  }
};

TEST_F(Notifications, InTheOrderOfTheMessages) {
  struct Case {
    const char* name;
    std::function<void()> act;
    Told told;
  };
  const auto ok = [](const InputResult& result) { EXPECT_EQ(result.error, ""); };
  const Case cases[] = {
      {"check box", [&] { ok(clickControl(control(20))); }, {"10 EN_KILLFOCUS", "20 BN_CLICKED"}},
      {"radio", [&] { ok(clickControl(control(31))); }, {"10 EN_KILLFOCUS", "31 BN_CLICKED"}},
      {"push button", [&] { ok(clickControl(control(1))); }, {"10 EN_KILLFOCUS", "1 BN_CLICKED"}},
      {"the program checks", [&] { CheckDlgButton(dialog, 20, BST_CHECKED); }, {}},
      {"the program checks a radio", [&] { CheckRadioButton(dialog, 30, 31, 30); }, {}},
      {"the program selects", [&] { send(40, CB_SETCURSEL, 1); }, {}},
      {"the program selects by text",
       [&] { send(41, CB_SELECTSTRING, WPARAM(-1), reinterpret_cast<LPARAM>(L"TH")); },
       {}},
      {"the user types",
       [&] { ok(typeOver(control(10), L"ab")); },
       {"10 EN_UPDATE", "10 EN_CHANGE", "10 EN_UPDATE", "10 EN_CHANGE"}},
      {"the program writes",
       [&] { SetDlgItemTextW(dialog, 10, L"x"); },
       {"10 EN_UPDATE", "10 EN_CHANGE"}},
      {"the program writes several lines", [&] { SetDlgItemTextW(dialog, 11, L"x\r\ny"); }, {}},
      {"the program replaces in several lines",
       [&] { send(11, EM_REPLACESEL, 0, reinterpret_cast<LPARAM>(L"z")); },
       {}},
      {"the user types several lines",
       [&] { ok(typeOver(control(11), L"\n")); },
       {"10 EN_KILLFOCUS", "11 EN_SETFOCUS", "11 EN_UPDATE", "11 EN_CHANGE"}},
      {"the user types in a combo box",
       [&] { ok(typeOver(control(40), L"q")); },
       {"10 EN_KILLFOCUS", "40 CBN_SETFOCUS", "40 CBN_EDITUPDATE", "40 CBN_EDITCHANGE"}},
      {"the program writes into a combo box", [&] { SetDlgItemTextW(dialog, 40, L"q"); }, {}},
      {"the user picks",
       [&] { ok(chooseItem(control(40), L"two")); },
       {"10 EN_KILLFOCUS", "40 CBN_SETFOCUS", "40 CBN_SELENDOK", "40 CBN_SELCHANGE"}},
      {"the user picks from a list",
       [&] { ok(chooseIndex(control(41), 2)); },
       {"10 EN_KILLFOCUS", "41 CBN_SETFOCUS", "41 CBN_SELENDOK", "41 CBN_SELCHANGE"}},
      {"the focus moves", [&] { SetFocus(control(41)); }, {"10 EN_KILLFOCUS", "41 CBN_SETFOCUS"}},
      {"the focus is disabled", [&] { EnableWindow(control(10), FALSE); }, {"10 EN_KILLFOCUS"}},
      {"the focus is hidden", [&] { ShowWindow(control(10), SW_HIDE); }, {"10 EN_KILLFOCUS"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EnableWindow(control(10), TRUE);
    ShowWindow(control(10), SW_SHOW);
    SetFocus(control(10));
    told();
    c.act();
    EXPECT_EQ(told(), c.told);
  }
}

TEST_F(Notifications, AutomaticKindsChangeBeforeTheParentIsTold) {
  int seen = -1;
  when("20 BN_CLICKED", [&] { seen = static_cast<int>(IsDlgButtonChecked(dialog, 20)); });
  clickControl(control(20));
  EXPECT_EQ(seen, 1);
  clickControl(control(20));
  EXPECT_EQ(seen, 0);
  clickControl(control(21));
  EXPECT_EQ(IsDlgButtonChecked(dialog, 21), 0U);  // this kind leaves it to the program
  when("31 BN_CLICKED", [&] {
    seen = static_cast<int>(IsDlgButtonChecked(dialog, 30) * 10 + IsDlgButtonChecked(dialog, 31));
  });
  CheckRadioButton(dialog, 30, 31, 30);
  clickControl(control(31));
  EXPECT_EQ(seen, 1);
}

TEST_F(Notifications, AButtonThatTheFocusChangeDisablesIsNotPressed) {
  when("10 EN_KILLFOCUS", [&] { EnableWindow(control(1), FALSE); });
  const auto result = clickControl(control(1));
  EXPECT_NE(result.error.find("control 1 is disabled"), std::string::npos) << result.error;
  EXPECT_EQ(told(), Told{"10 EN_KILLFOCUS"});
  EXPECT_EQ(GetFocus(), nullptr);
}

TEST_F(Notifications, AListThatTheFocusChangeFillsAnewIsPickedFromAsItIsThen) {
  when("10 EN_KILLFOCUS", [&] {
    send(40, CB_RESETCONTENT);
    send(40, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"three"));
  });
  EXPECT_EQ(chooseItem(control(40), L"three").error, "");
  EXPECT_EQ(text(40), "three");
  SetFocus(control(10));
  EXPECT_EQ(chooseIndex(control(40), 1).error, "control 40 has no item #1");
}

TEST_F(Notifications, ThePickedIndexIsNewBeforeTheTextIs) {
  SetDlgItemTextW(dialog, 40, L"old");
  std::vector<std::string> seen;
  const auto look = [&] {
    seen.push_back(std::to_string(send(40, CB_GETCURSEL)) + " " + text(40));
  };
  when("40 CBN_SELENDOK", look);
  when("40 CBN_SELCHANGE", look);
  chooseItem(control(40), L"three");
  look();
  EXPECT_EQ(seen, (Told{"2 old", "2 old", "2 three"}));
}

TEST_F(Notifications, NobodyHasTheFocusOfADisabledControl) {
  HWND during = control(1);
  when("10 EN_KILLFOCUS", [&] { during = GetFocus(); });
  EnableWindow(control(10), FALSE);
  EXPECT_EQ(during, nullptr);
  EXPECT_EQ(GetFocus(), nullptr);
  EXPECT_FALSE(typeCharacters(L"x"));
}

TEST_F(Notifications, ATextThatTheProgramWritesDeselectsTheItem) {
  send(40, CB_SETCURSEL, 1);
  SetDlgItemTextW(dialog, 40, L"two");
  EXPECT_EQ(send(40, CB_GETCURSEL), 1);
  SetDlgItemTextW(dialog, 40, L"other");
  EXPECT_EQ(send(40, CB_GETCURSEL), CB_ERR);
  send(41, CB_SETCURSEL, 1);
  EXPECT_FALSE(SetDlgItemTextW(dialog, 41, L"three"));  // no field that could show it
  EXPECT_EQ(text(41), "two");
}

TEST_F(Notifications, ADialogMayEndItselfInAnyOfThem) {
  for (const char* notification : {"10 EN_KILLFOCUS", "20 BN_CLICKED", "10 EN_UPDATE",
                                   "40 CBN_SELENDOK", "40 CBN_EDITUPDATE"}) {
    SCOPED_TRACE(notification);
    DestroyWindow(dialog);
    handlers.clear();
    show(kControls);
    SendDlgItemMessageW(dialog, 40, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"one"));
    SetFocus(control(10));
    when(notification, [&] { DestroyWindow(dialog); });
    for (const auto& act : std::vector<std::function<void()>>{
             [&] { typeOver(control(10), L"a"); }, [&] { clickControl(control(20)); },
             [&] { typeOver(control(40), L"a"); }, [&] { chooseIndex(control(40), 0); }}) {
      if (IsWindow(dialog)) act();
    }
    EXPECT_FALSE(IsWindow(dialog));
  }
}

}  // namespace
}  // namespace kovra::win
