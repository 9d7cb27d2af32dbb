#include "platform/win/desktop/dialog_listing.h"
#include "platform/win/windows/system_metrics.h"
#include "tests/win/test_dialog.h"

namespace kovra::win {
namespace {

class Place : public DialogTest {
 protected:
  RECT placeOf(HWND window) const {
    RECT rect{};
    GetWindowRect(window, &rect);
    return rect;
  }
};

TEST_F(Place, DialogUnitsFollowTheFont) {
  DialogTemplate dialogTemplate = makeTemplate({{10, L"EDIT", kTab}});
  for (const auto& [points, width, height] : {std::tuple{8, 300, 52}, std::tuple{9, 350, 60}}) {
    dialogTemplate.pointSize = points;
    dialog = makeDialog(nullptr, dialogTemplate, frameWindow(), nullptr, 0);
    RECT client{};
    GetClientRect(dialog, &client);
    EXPECT_EQ(client.right, width);
    EXPECT_EQ(client.bottom, height);
    RECT units{0, 0, 4, 8};
    MapDialogRect(dialog, &units);
    EXPECT_EQ(units.right, width / 50);
  }
}

TEST_F(Place, MovingAndSizingAreTold) {
  show({{10, L"EDIT", kTab}});
  told();
  const RECT before = placeOf(control(10));
  SetWindowPos(dialog, nullptr, 300, 200, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  EXPECT_EQ(placeOf(dialog).left, 300);
  EXPECT_NE(placeOf(control(10)).left, before.left);  // controls go along
  EXPECT_EQ(told(), Told{});
  SetWindowPos(dialog, nullptr, 0, 0, 500, 400, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  EXPECT_EQ(told(), Told{"size"});
  POINT point{0, 0};
  ClientToScreen(control(10), &point);
  ScreenToClient(control(10), &point);
  EXPECT_EQ(point.x, 0);
}

TEST_F(Place, ShowingTellsOnAChangeAndWithShowNaAlways) {
  show({{10, L"EDIT", kTab}});
  told();
  const std::pair<int, Told> cases[] = {
      {SW_SHOW, {}}, {SW_SHOWNA, {"show"}}, {SW_HIDE, {"hide"}},
      {SW_HIDE, {}}, {SW_SHOWNA, {"show"}}, {SW_SHOWNOACTIVATE, {}},
  };
  for (const auto& [command, expected] : cases) {
    SCOPED_TRACE(command);
    ShowWindow(dialog, command);
    Told all = told();
    std::erase_if(all, [](const std::string& line) { return line.find("EN_") != line.npos; });
    EXPECT_EQ(all, expected);
  }
}

TEST_F(Place, AUserSizesWithinTheDialogsLimits) {
  show({{10, L"EDIT", kTab}});
  EXPECT_NE(sizeDialog(dialog, 400, 300).error.find("can't be sized"), std::string::npos);
  answers[WM_NCHITTEST] = HTBOTTOMRIGHT;  // a grip of its own
  EXPECT_EQ(sizeDialog(dialog, 10, 300).error, "");
  EXPECT_EQ(placeOf(dialog).right - placeOf(dialog).left, GetSystemMetrics(SM_CXMINTRACK));
  EXPECT_EQ(moveDialog(dialog, -50, 20).error, "");
  EXPECT_EQ(placeOf(dialog).left, -50);
  EXPECT_FALSE(minimizeDialog(dialog));
  SetWindowLongPtrW(dialog, GWL_STYLE, GetWindowLongPtrW(dialog, GWL_STYLE) | WS_MINIMIZEBOX);
  EXPECT_EQ(minimizeDialog(dialog).error, "");
  EXPECT_TRUE(IsIconic(dialog));
  EXPECT_LT(placeOf(dialog).left, -10000);
  EXPECT_FALSE(clickControl(control(10)));
  EXPECT_EQ(restoreDialog(dialog).error, "");
  EXPECT_EQ(placeOf(dialog).left, -50);
}

TEST_F(Place, MonitorsAndMetrics) {
  const RECT on{100, 100, 200, 200};
  const RECT off{5000, 0, 5100, 100};
  EXPECT_NE(MonitorFromRect(&on, MONITOR_DEFAULTTONULL), nullptr);
  EXPECT_EQ(MonitorFromRect(&off, MONITOR_DEFAULTTONULL), nullptr);
  MONITORINFO info{sizeof(MONITORINFO), {}, {}, 0};
  ASSERT_TRUE(GetMonitorInfoW(MonitorFromRect(&off, MONITOR_DEFAULTTONEAREST), &info));
  EXPECT_EQ(info.rcMonitor.right, GetSystemMetrics(SM_CXSCREEN));
  EXPECT_LT(info.rcWork.bottom, info.rcMonitor.bottom);
}

TEST_F(Place, TheListingShowsWhatAUserSees) {
  show({{20, L"BUTTON", kTab | BS_AUTOCHECKBOX, L"&Count"},
        {41, L"COMBOBOX", WS_TABSTOP | WS_DISABLED | CBS_DROPDOWNLIST}});
  SendDlgItemMessageW(dialog, 41, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"a"));
  SendDlgItemMessageW(dialog, 41, CB_SETCURSEL, 0, 0);
  CheckDlgButton(dialog, 20, 1);
  SetFocus(control(20));
  const DialogListing listing = listDialog(dialog);
  EXPECT_EQ(listing.templateId, 100U);
  EXPECT_EQ(listing.focusId, 20);
  ASSERT_EQ(listing.controls.size(), 2U);
  EXPECT_EQ(listing.controls[0].kind, "check");
  EXPECT_EQ(listing.controls[0].check, 1);
  EXPECT_EQ(listing.controls[1].kind, "combo");
  EXPECT_FALSE(listing.controls[1].visible || listing.controls[1].enabled);
  EXPECT_EQ(listing.controls[1].items, std::vector<std::wstring>{L"a"});
  EXPECT_EQ(listing.controls[1].selected, 0);
}

TEST_F(Place, ObserversAreToldOfEveryChange) {
  struct Counter : WindowObserver {
    void windowChanged(HWND, Change change) override { ++seen[change]; }
    std::map<Change, int> seen;
  } counter;
  addObserver(&counter);
  show({{10, L"EDIT", kTab}, {20, L"BUTTON", kTab | BS_AUTOCHECKBOX}});
  typeOver(control(10), L"a");
  clickControl(control(20));
  EnableWindow(control(10), FALSE);
  moveDialog(dialog, 1, 1);
  DestroyWindow(dialog);
  removeObserver(&counter);
  for (const Change change : {Change::created, Change::destroyed, Change::text, Change::enabled,
                              Change::visible, Change::place, Change::content, Change::focus}) {
    EXPECT_GT(counter.seen[change], 0) << static_cast<int>(change);
  }
  EXPECT_EQ(counter.seen[Change::destroyed], 3);
}

TEST_F(Place, RefusalsSayWhy) {
  show({{10, L"EDIT", WS_TABSTOP},
        {11, L"EDIT", kTab | WS_DISABLED},
        {12, L"EDIT", kTab | ES_READONLY},
        {13, L"STATIC", kShown},
        {41, L"COMBOBOX", kTab | CBS_DROPDOWNLIST}});
  const std::pair<InputResult, const char*> cases[] = {
      {clickControl(control(10)), "control 10 is hidden"},
      {typeOver(control(11), L"x"), "control 11 is disabled"},
      {typeOver(control(12), L"x"), "control 12 is read-only"},
      {typeOver(control(41), L"x"), "control 41 has no field"},
      {clickControl(control(13)), "control 13 can't be clicked"},
      {chooseItem(control(41), L"none"), "control 41 has no item \"none\""},
      {chooseIndex(control(12), 0), "control 12 has no list"},
      {clickControl(control(99)), "there is no such window"},
      {placeCaret(control(12), 0, 1), "control 12 has 0 characters"},
  };
  for (const auto& [result, expected] : cases) {
    EXPECT_NE(result.error.find(expected), std::string::npos) << result.error;
  }
  EnableWindow(dialog, FALSE);
  EXPECT_NE(clickControl(control(12)).error.find("the dialog \"Test\" is disabled"),
            std::string::npos);
  EXPECT_EQ(topDialog(), nullptr);
}

}  // namespace
}  // namespace kovra::win
