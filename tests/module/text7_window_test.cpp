// The window of the text dialog: its grip, what moves when it is stretched, and stores that no
// dialog wrote.
#include <gtest/gtest.h>

#include "module/frame/companions/dialog_state_lib.h"
#include "platform/win/base/pump.h"
#include "platform/win/base/wide_text.h"
#include "platform/win/controls/painting.h"
#include "platform/win/desktop/user_input.h"
#include "platform/win/windows/system_metrics.h"
#include "platform/win/windows/window_api.h"
#include "tests/module/module_run.h"
#include "tests/module/sheet.h"

namespace kovra::test {
namespace {

constexpr wchar_t kSection[] = L"ORVEKovraTextDlgV7";

constexpr int kValue = 1931;
constexpr int kLines = 1937;
constexpr int kSingle = 1974;
constexpr int kRepeated = 1975;
constexpr int kArray = 1976;

class Text7Window : public ::testing::Test {
 protected:
  HWND open(const char* version = "12.0") {
    run.project(version);
    run.open(sheet(""));
    run.type("KOVRA_TEXT");
    dialog = win::topDialog();
    EXPECT_NE(dialog, nullptr);
    return dialog;
  }
  HWND control(int id) const { return win::controlWithId(dialog, id); }
  void click(int id) const { EXPECT_EQ(win::clickControl(control(id)).error, "") << id; }
  void size(int height) const { EXPECT_EQ(win::sizeDialog(dialog, 427, height).error, ""); }

  RECT place(int id) const {
    RECT rect{};
    GetWindowRect(control(id), &rect);
    POINT corners[] = {{rect.left, rect.top}, {rect.right, rect.bottom}};
    MapWindowPoints(nullptr, dialog, corners, 2);
    return {corners[0].x, corners[0].y, corners[1].x, corners[1].y};
  }
  RECT client() const {
    RECT rect{};
    GetClientRect(dialog, &rect);
    return rect;
  }
  int height() const {
    RECT rect{};
    GetWindowRect(dialog, &rect);
    return rect.bottom - rect.top;
  }
  std::string text(int id) const {
    wchar_t buffer[300] = {};
    GetWindowTextW(control(id), buffer, 300);
    return win::toUtf8(buffer);
  }
  /// Whether the point, this far from the lower right corner, is one by which the window is sized.
  bool sizesAt(int distance) const {
    POINT point{client().right - distance, client().bottom - distance};
    MapWindowPoints(dialog, nullptr, &point, 1);
    const LPARAM where = MAKELPARAM(static_cast<UINT>(point.x), static_cast<UINT>(point.y));
    return SendMessageW(dialog, WM_NCHITTEST, 0, where) == HTBOTTOMRIGHT;
  }
  bool paintsGrip() const {
    const auto steps = win::paintWindow(dialog);
    return steps.size() == 1 && steps[0].part == DFC_SCROLL &&
           steps[0].state == DFCS_SCROLLSIZEGRIP && steps[0].place.right == client().right &&
           steps[0].place.bottom == client().bottom && steps[0].place.left == client().right - 16 &&
           steps[0].place.top == client().bottom - 16;
  }
  ModuleRun run;
  HWND dialog = nullptr;
};

TEST_F(Text7Window, StretchingGivesTheLinesMoreRoom) {
  open();
  const int compact = height();
  const std::vector<int> growing = {kLines, 2004};
  const std::vector<int> moving = {2005, 1998, 1985, 1995, IDOK, IDCANCEL};
  const std::vector<int> staying = {kSingle, kValue, 1952, 1960, 1938};
  const auto places = [this](const std::vector<int>& ids) {
    std::vector<RECT> rects;
    for (const int id : ids) rects.push_back(place(id));
    return rects;
  };
  const auto grown = places(growing);
  const auto moved = places(moving);
  const auto stayed = places(staying);
  EXPECT_TRUE(paintsGrip());
  for (const int more : {100, 37, 0, 250}) {
    size(compact + more);
    for (std::size_t i = 0; i < growing.size(); ++i) {
      EXPECT_EQ(place(growing[i]).top, grown[i].top);
      EXPECT_EQ(place(growing[i]).bottom, grown[i].bottom + more) << growing[i];
    }
    for (std::size_t i = 0; i < moving.size(); ++i) {
      EXPECT_EQ(place(moving[i]).top, moved[i].top + more) << moving[i];
      EXPECT_EQ(place(moving[i]).left, moved[i].left) << moving[i];
    }
    for (std::size_t i = 0; i < staying.size(); ++i) {
      EXPECT_EQ(place(staying[i]).top, stayed[i].top) << staying[i];
    }
    EXPECT_TRUE(paintsGrip()) << more;
    EXPECT_TRUE(sizesAt(1) && sizesAt(16) && !sizesAt(17)) << more;
  }
  // The other modes have the window and its controls as they were, and no grip.
  click(kRepeated);
  EXPECT_EQ(height(), compact);
  EXPECT_EQ(place(2005).top, moved[0].top);
  EXPECT_TRUE(win::paintWindow(dialog).empty());
  click(kArray);
  EXPECT_EQ(place(2005).top, moved[0].top);
  EXPECT_EQ(place(1952).top, stayed[2].top);
  EXPECT_GT(place(IDOK).top, place(1938).bottom);
  EXPECT_LE(place(IDOK).bottom, client().bottom);
  EXPECT_TRUE(win::paintWindow(dialog).empty());
  click(kSingle);
  EXPECT_EQ(height(), compact + 250);
  EXPECT_EQ(place(kLines).bottom, grown[0].bottom + 250);
  EXPECT_EQ(place(IDOK).top, moved[4].top + 250);
}

TEST_F(Text7Window, StoresThatNoDialogWrote) {
  for (const int odd : {-2147483647, -1, 3, 5, 99, 2147483647}) {
    {
      DialogStateStore store;
      ASSERT_TRUE(store.OpenSection(kSection));
      for (const wchar_t* key : {L"Radio", L"Radix", L"RadixMode", L"Direction", L"ChngblHeight",
                                 L"CountUpStep", L"Rows", L"Cols"}) {
        ASSERT_TRUE(store.SetInt(key, odd));
      }
      store.SetString(L"RowHeight", L"wide");
      store.SetInt(L"TextValue0", odd);
      ASSERT_TRUE(store.OpenSection(L"KOVRA_TEXT"));
      for (const wchar_t* key : {L"TEXT_DLG_POS_X", L"TEXT_DLG_POS_Y", L"TEXT_ATTACH_INDEX"})
        store.SetInt(key, odd);
    }
    open();
    EXPECT_TRUE(IsWindowVisible(dialog)) << odd;
    RECT rect{};
    RECT screen{};
    GetWindowRect(dialog, &rect);
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
    EXPECT_TRUE(rect.left >= screen.left && rect.top >= screen.top) << odd;
    EXPECT_TRUE(rect.right <= screen.right && rect.bottom <= screen.bottom) << odd;
    EXPECT_LE(place(IDOK).bottom, client().bottom) << odd;
    EXPECT_GT(place(IDOK).top, place(1995).bottom) << odd;
    EXPECT_NE(text(1978), "") << odd;
    EXPECT_EQ(text(1939), "0") << odd;
    EXPECT_EQ(text(1935), std::to_string(odd));
    EXPECT_EQ(win::pressCloseBox(dialog).error, "");
    win::Pump::instance().settle();
    EXPECT_FALSE(IsWindow(dialog));
  }
}

}  // namespace
}  // namespace kovra::test
