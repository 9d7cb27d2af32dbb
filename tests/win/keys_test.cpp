#include "tests/win/test_dialog.h"

namespace kovra::win {
namespace {

class Keys : public DialogTest {
 protected:
  void press(const char* name) {
    const auto key = keyNamed(name);
    ASSERT_TRUE(key) << name;
    EXPECT_EQ(pressKeyInDialog(dialog, *key).error, "");
  }
  int focusId() const { return GetDlgCtrlID(focusedControl()); }
};

TEST_F(Keys, TabFollowsTheOrderOfTheWindows) {
  show({{1, L"BUTTON", kTab},
        {10, L"EDIT", kTab},
        {11, L"EDIT", kTab | WS_DISABLED},
        {12, L"EDIT", WS_TABSTOP},
        {13, L"STATIC", kShown},
        {14, L"EDIT", kShown},
        {40, L"COMBOBOX", kTab | CBS_DROPDOWN},
        {30, L"BUTTON", kTab | WS_GROUP | BS_AUTORADIOBUTTON},
        {31, L"BUTTON", kShown | BS_AUTORADIOBUTTON}});
  CheckRadioButton(dialog, 30, 31, 31);
  SetFocus(control(1));
  std::vector<int> visited;
  for (int i = 0; i < 4; ++i) {
    press("Tab");
    visited.push_back(focusId());
  }
  EXPECT_EQ(visited, (std::vector<int>{10, 40, 31, 1}));
  press("Shift+Tab");
  EXPECT_EQ(focusId(), 31);
  // The order is that of the windows, which a program can change.
  SetWindowPos(control(10), control(40), 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  SetFocus(control(1));
  press("Tab");
  EXPECT_EQ(focusId(), 40);
}

TEST_F(Keys, ADialogInsideAnotherSharesItsKeys) {
  show({{10, L"EDIT", kTab}, {1, L"BUTTON", kTab | BS_DEFPUSHBUTTON}, {2, L"BUTTON", kTab}});
  const DWORD childStyle = WS_CHILD | WS_VISIBLE | DS_CONTROL;
  const HWND child = makeDialog(
      nullptr, makeTemplate({{20, L"EDIT", kTab}, {21, L"EDIT", kTab}}, childStyle), dialog,
      [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; }, 0);
  SetFocus(GetDlgItem(child, 20));
  told();
  // Each dialog is asked from the inside out, as window classes do.
  const auto pressInside = [&](int key) {
    MSG message{};
    message.hwnd = GetFocus();
    message.message = WM_KEYDOWN;
    message.wParam = static_cast<WPARAM>(key);
    EXPECT_TRUE(IsDialogMessageW(child, &message) || IsDialogMessageW(dialog, &message));
  };
  for (const int next : {21, 10, 1, 2, 20}) {
    pressInside(VK_TAB);
    EXPECT_EQ(focusId(), next);
  }
  told();
  pressInside(VK_RETURN);
  pressInside(VK_ESCAPE);
  EXPECT_EQ(told(), (Told{"1 BN_CLICKED", "2 BN_CLICKED"}));
}

TEST_F(Keys, TabSelectsAFieldAsAWhole) {
  show({{1, L"BUTTON", kTab}, {10, L"EDIT", kTab, L"12345"}});
  SetFocus(control(1));
  press("Tab");
  EXPECT_EQ(typeCharacters(L"7").error, "");
  EXPECT_EQ(text(10), "7");
}

TEST_F(Keys, ArrowsWalkTheGroupAndCheckRadios) {
  show({{30, L"BUTTON", kTab | WS_GROUP | BS_AUTORADIOBUTTON},
        {31, L"BUTTON", kShown | WS_DISABLED | BS_AUTORADIOBUTTON},
        {32, L"BUTTON", kShown | BS_AUTORADIOBUTTON},
        {10, L"EDIT", kTab | WS_GROUP}});
  SetFocus(control(30));
  told();
  press("Down");
  EXPECT_EQ(focusId(), 32);
  EXPECT_EQ(IsDlgButtonChecked(dialog, 32), 1U);
  EXPECT_EQ(told(), Told{"32 BN_CLICKED"});
  press("Right");
  EXPECT_EQ(focusId(), 30);
  EXPECT_EQ(IsDlgButtonChecked(dialog, 32), 0U);
}

TEST_F(Keys, EnterAndEscPressTheButtonsTheyStandFor) {
  const std::vector<Item> items = {{1, L"BUTTON", kTab | BS_DEFPUSHBUTTON},
                                   {2, L"BUTTON", kTab},
                                   {5, L"BUTTON", kTab},
                                   {10, L"EDIT", kTab},
                                   {11, L"EDIT", kTab | ES_MULTILINE | ES_WANTRETURN},
                                   {12, L"EDIT", kTab | ES_MULTILINE},
                                   {20, L"BUTTON", kTab | BS_AUTOCHECKBOX},
                                   {40, L"COMBOBOX", kTab | CBS_DROPDOWN},
                                   {50, L"BUTTON", kTab | BS_OWNERDRAW}};
  struct Case {
    int focus;
    const char* key;
    Told told;
  };
  const Case cases[] = {
      {10, "Enter", {"1 BN_CLICKED"}},  // the field keeps the focus
      {20, "Enter", {"1 BN_CLICKED"}},  {40, "Enter", {"1 BN_CLICKED"}},
      {50, "Enter", {"1 BN_CLICKED"}},  {5, "Enter", {"5 BN_CLICKED"}},
      {2, "Enter", {"2 BN_CLICKED"}},   {11, "Enter", {"11 EN_UPDATE", "11 EN_CHANGE"}},
      {12, "Enter", {"1 BN_CLICKED"}},  {12, "Ctrl+Enter", {"12 EN_UPDATE", "12 EN_CHANGE"}},
      {10, "Esc", {"2 BN_CLICKED"}},    {11, "Esc", {"2 BN_CLICKED"}},
      {20, "Space", {"20 BN_CLICKED"}},
  };
  show(items);
  for (const Case& c : cases) {
    SCOPED_TRACE(std::to_string(c.focus) + " " + c.key);
    SetFocus(control(c.focus));
    told();
    press(c.key);
    EXPECT_EQ(told(), c.told);
  }
  EnableWindow(control(1), FALSE);
  EnableWindow(control(2), FALSE);
  SetFocus(control(10));
  told();
  press("Enter");
  press("Esc");
  EXPECT_EQ(told(), Told{});
  SendMessageW(dialog, DM_SETDEFID, 5, 0);
  press("Enter");
  EXPECT_EQ(told(), Told{"5 BN_CLICKED"});
}

TEST_F(Keys, AccessKeysPressButtonsAndReachFieldsBehindLabels) {
  show({{100, L"STATIC", kShown, L"&Height"},
        {10, L"EDIT", kTab, L"&Height"},
        {20, L"BUTTON", kTab | BS_AUTOCHECKBOX, L"&Count && go"},
        {21, L"BUTTON", kTab | WS_DISABLED, L"&Pick"},
        {5, L"BUTTON", kTab, L"A&pply"}});
  SetFocus(control(5));
  told();
  press("Alt+H");
  EXPECT_EQ(focusId(), 10);
  press("Alt+C");
  EXPECT_EQ(IsDlgButtonChecked(dialog, 20), 1U);
  press("Alt+P");
  EXPECT_EQ(focusId(), 5);
  press("c");  // a button has no use for characters, so Alt isn't needed
  EXPECT_EQ(IsDlgButtonChecked(dialog, 20), 0U);
  EXPECT_EQ(told(), (Told{"10 EN_SETFOCUS", "10 EN_KILLFOCUS", "20 BN_CLICKED", "5 BN_CLICKED",
                          "20 BN_CLICKED"}));
}

TEST_F(Keys, NamesOfKeys) {
  const auto stroke = keyNamed("Ctrl+Shift+f12");
  ASSERT_TRUE(stroke);
  EXPECT_TRUE(stroke->control && stroke->shift && !stroke->alt);
  EXPECT_EQ(stroke->key, VK_F12);
  for (const char* unknown : {"", "Ctrl+", "Hyper+C", "F13", "ab"}) EXPECT_FALSE(keyNamed(unknown));
}

TEST(ScanCodes, OfTheKeysThatAreTyped) {
  const std::pair<UINT, UINT> keys[] = {
      {'1', 0x02},       {'0', 0x0B},     {'Q', 0x10},    {'P', 0x19},       {'A', 0x1E},
      {'L', 0x26},       {'Z', 0x2C},     {'M', 0x32},    {VK_SPACE, 0x39},  {VK_END, 0x4F},
      {VK_ESCAPE, 0x01}, {VK_BACK, 0x0E}, {VK_TAB, 0x0F}, {VK_RETURN, 0x1C}, {'a', 0},
      {0xE5, 0},         {0, 0}};
  for (const auto& [key, code] : keys) EXPECT_EQ(MapVirtualKeyW(key, MAPVK_VK_TO_VSC), code) << key;
  EXPECT_EQ(MapVirtualKeyW('A', 1), 0U);
}

}  // namespace
}  // namespace kovra::win
