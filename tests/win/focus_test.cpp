#include "platform/win/dialogs/message_box.h"
#include "tests/win/test_dialog.h"

namespace kovra::win {
namespace {

class Focus : public DialogTest {
 protected:
  void SetUp() override {
    DialogTest::SetUp();
    show({{10, L"EDIT", kTab}, {11, L"EDIT", kTab}, {1, L"BUTTON", kTab}});
    SetFocus(control(11));
    told();
  }
};

TEST_F(Focus, ATypedLineOrAClickMovesItToTheDrawingFirst) {
  focusDrawing();
  EXPECT_EQ(GetFocus(), drawingWindow());
  EXPECT_EQ(GetActiveWindow(), frameWindow());
  EXPECT_EQ(told(), Told{"11 EN_KILLFOCUS"});
  SetActiveWindow(dialog);  // comes back to the control that had it
  EXPECT_EQ(GetFocus(), control(11));
  EXPECT_EQ(told(), Told{"11 EN_SETFOCUS"});
  SetActiveWindow(frameWindow());
  EXPECT_EQ(GetFocus(), drawingWindow());
}

TEST_F(Focus, ACursorMoveAsksTheDialog) {
  answers[kKeepFocusMessage] = 1;
  offerFocusToDrawing();
  EXPECT_EQ(GetFocus(), control(11));
  answers[kKeepFocusMessage] = 0;
  offerFocusToDrawing();
  EXPECT_EQ(GetFocus(), drawingWindow());
}

TEST_F(Focus, AMessageBoxBorrowsIt) {
  MessageBoxW(dialog, L"text", L"caption", MB_OK);
  EXPECT_EQ(told(), (Told{"11 EN_KILLFOCUS", "11 EN_SETFOCUS"}));
  when("11 EN_KILLFOCUS", [&] { EnableWindow(control(11), FALSE); });
  MessageBoxW(dialog, L"text", L"caption", MB_OK);
  EXPECT_EQ(GetFocus(), nullptr);
}

TEST_F(Focus, AClickInAnInactiveDialogTellsOnlyTheClickedControl) {
  focusDrawing();
  told();
  EXPECT_EQ(clickControl(control(10)).error, "");
  EXPECT_EQ(GetActiveWindow(), dialog);
  EXPECT_EQ(told(), Told{"10 EN_SETFOCUS"});
}

TEST_F(Focus, AHandlerMayMoveItElsewhere) {
  when("11 EN_KILLFOCUS", [&] { SetFocus(control(1)); });
  SetFocus(control(10));
  EXPECT_EQ(GetFocus(), control(1));
  EXPECT_EQ(told(), Told{"11 EN_KILLFOCUS"});  // 10 never had it
}

TEST_F(Focus, ADialogThatGoesAwayGivesItBackToItsOwner) {
  ShowWindow(dialog, SW_HIDE);
  EXPECT_EQ(GetFocus(), drawingWindow());
  ShowWindow(dialog, SW_SHOWNA);
  EXPECT_EQ(GetFocus(), drawingWindow());
  ShowWindow(dialog, SW_SHOW);
  EXPECT_EQ(GetFocus(), control(11));
  DestroyWindow(dialog);
  EXPECT_EQ(GetFocus(), drawingWindow());
  EXPECT_EQ(told(), (Told{"hide", "11 EN_KILLFOCUS", "show", "11 EN_SETFOCUS", "11 EN_KILLFOCUS"}));
}

TEST_F(Focus, DisabledWindowsDontGetIt) {
  EnableWindow(control(10), FALSE);
  EXPECT_EQ(SetFocus(control(10)), nullptr);
  EXPECT_EQ(GetFocus(), control(11));
  EnableWindow(frameWindow(), FALSE);
  focusDrawing();
  EXPECT_EQ(GetFocus(), control(11));
  EXPECT_TRUE(drawingBlocked());
}

TEST_F(Focus, PostedMessagesWaitForThePumpAndEndWithTheirWindow) {
  PostMessageW(dialog, WM_USER + 101, 0, 0);
  PostMessageW(control(10), WM_CHAR, 'x', 0);
  EXPECT_EQ(told(), Told{});
  Pump::instance().settle();
  EXPECT_EQ(told(), (Told{"message 101", "10 EN_UPDATE", "10 EN_CHANGE"}));
  PostMessageW(dialog, WM_USER + 102, 0, 0);
  DestroyWindow(dialog);
  Pump::instance().settle();
  EXPECT_EQ(told(), Told{"11 EN_KILLFOCUS"});
}

TEST_F(Focus, AFailingHandlerEndsTheInputAndIsReported) {
  when("1 BN_CLICKED", [] { throw std::runtime_error("broken"); });
  clickControl(control(1));
  EXPECT_NE(interaction().takeFailure().value_or("").find("broken"), std::string::npos);
  EXPECT_EQ(clickControl(control(1)).error, "");
}

}  // namespace
}  // namespace kovra::win
