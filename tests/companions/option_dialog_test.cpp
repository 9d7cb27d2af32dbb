// The option dialog with pages of other libraries.
#include <gtest/gtest.h>

#include "companions/option_dialog.h"
#include "companions/option_pages.h"
#include "module/frame/companions/option_frame_lib.h"
#include "platform/win/base/interaction.h"
#include "platform/win/base/run_settings.h"
#include "platform/win/desktop/dialog_listing.h"
#include "platform/win/desktop/user_input.h"

namespace {

namespace win = kovra::win;

std::string told;

/// A page that writes down what it is asked.
class NotingPage : public KovraOptionPage {
 public:
  explicit NotingPage(const char* path) : KovraOptionPage(path), name_(path[0]) {}
  ~NotingPage() override { DestroyPage(); }

  bool CreatePage(CWnd* parent) override {
    tell("create");
    return canBeMade && window_.Create(L"STATIC", L"", WS_CHILD, {0, 0, 50, 50}, parent, 99);
  }
  bool IsPageCreated() override { return window_.GetSafeHwnd() != nullptr; }
  bool DestroyPage() override {
    if (IsPageCreated()) tell("destroy");
    return window_.DestroyWindow() != FALSE;
  }
  HWND PageWindow() override { return window_.GetSafeHwnd(); }
  int ShowPage(int flag) override {
    tell(flag > 0 ? "show" : "hide");
    return window_.ShowWindow(flag > 0 ? SW_SHOW : SW_HIDE);
  }
  void ApplyPage() override {
    tell("apply");
    if (!canBeStored) SetModified();
  }
  void ReloadPage() override { tell("reload"); }
  bool ValidatePage() override {
    tell("validate");
    return isValid;
  }

  bool canBeMade = true;
  bool isValid = true;
  bool canBeStored = true;

 private:
  void tell(const char* what) { told += std::string(1, name_) + '.' + what + ' '; }

  char name_;
  CWnd window_;
};

class OptionDialogTest : public ::testing::Test {
 protected:
  static constexpr int kList = 3931, kApply = 3933, kReset = 3934;

  OptionDialogTest() {
    win::runSettings().resourceFolder = KOVRA_RESOURCES;
    win::runSettings().language = win::Language::english;
    win::interaction().setTranscript([](std::string_view text) { told += text; });
  }
  ~OptionDialogTest() override { win::interaction().setTranscript({}); }

  void open() {
    told.clear();
    ASSERT_TRUE(dialog.Create(3930));
    dialog.ShowWindow(SW_SHOW);
  }
  HWND control(int id) const { return ::GetDlgItem(dialog.m_hWnd, id); }
  std::string click(int id) {
    told.clear();
    EXPECT_TRUE(win::clickControl(control(id)).ok());
    return told;
  }
  std::string choose(int row) {
    told.clear();
    EXPECT_TRUE(win::chooseIndex(control(kList), row).ok());
    return told;
  }
  int selected() const { return win::listControl(control(kList)).selected; }
  bool canApply() const { return ::IsWindowEnabled(control(kApply)) != FALSE; }

  NotingPage first{"1\\plain"};
  kovra::companions::OptionDialog dialog;
};

TEST_F(OptionDialogTest, PagesAreMadeWhenShownAndAskedBeforeTheyAreLeft) {
  NotingPage second("2\\plain");
  open();
  EXPECT_EQ(told, "1.create 1.reload 1.show ");
  first.isValid = false;
  EXPECT_EQ(choose(1), "1.validate ");
  EXPECT_EQ(selected(), 0);
  EXPECT_EQ(click(IDOK), "1.validate ");
  first.isValid = true;
  EXPECT_EQ(choose(1), "1.validate 2.create 2.reload 1.hide 2.show ");
  EXPECT_EQ(choose(0), "2.validate 2.hide 1.show ");
  EXPECT_EQ(click(kReset), "1.destroy 1.create 1.reload 1.show ");
  told.clear();
  dialog.DestroyWindow();
  EXPECT_EQ(told, "1.destroy 2.destroy ");
}

TEST_F(OptionDialogTest, WhatHasChangedIsStoredOrKeepsTheDialogOpen) {
  NotingPage second("2\\plain");
  open();
  choose(1);
  EXPECT_FALSE(canApply());
  first.SetModified();
  EXPECT_TRUE(canApply());
  EXPECT_EQ(click(kApply), "2.validate 1.apply ");
  EXPECT_FALSE(canApply());
  second.SetModified();
  second.canBeStored = false;
  EXPECT_EQ(click(IDOK), "2.validate 2.apply ");
  EXPECT_TRUE(canApply() && dialog.IsWindowVisible());
  EXPECT_EQ(click(kReset), "2.destroy 2.create 2.reload 2.show ");
  EXPECT_FALSE(canApply());
  second.SetModified();
  second.canBeStored = true;
  EXPECT_EQ(click(IDOK), "2.validate 2.apply ");
  EXPECT_FALSE(dialog.IsWindowVisible());
  dialog.DestroyWindow();
}

TEST_F(OptionDialogTest, APageThatCannotBeMadeOrGoesLeavesTheOthers) {
  {
    NotingPage second("2\\plain");
    first.canBeMade = false;
    open();
    EXPECT_EQ(told.find("1.create "), 0U);
    EXPECT_NE(told.find("This page can't be shown."), std::string::npos) << told;
    EXPECT_EQ(selected(), 1);
  }
  first.canBeMade = true;
  EXPECT_EQ(choose(0), "1.create 1.reload 1.show ");
  EXPECT_EQ(choose(1), "1.validate ");
  EXPECT_EQ(selected(), 0);
  dialog.DestroyWindow();
}

TEST_F(OptionDialogTest, PagesFollowItsSize) {
  open();
  RECT before{}, after{};
  ::GetWindowRect(first.PageWindow(), &before);
  EXPECT_TRUE(win::sizeDialog(dialog.m_hWnd, 900, 700).ok());
  ::GetWindowRect(first.PageWindow(), &after);
  EXPECT_GT(after.right - after.left, before.right - before.left);
  EXPECT_GT(after.bottom - after.top, before.bottom - before.top);
  win::sizeDialog(dialog.m_hWnd, 10, 10);
  ::GetWindowRect(first.PageWindow(), &after);
  EXPECT_EQ(after.bottom - after.top, before.bottom - before.top);
  dialog.DestroyWindow();
}

}  // namespace
