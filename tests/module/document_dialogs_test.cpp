// What modeless dialogs have to do with documents: work sent to them, and their coming and going.
#include <gtest/gtest.h>

#include "module/frame/send_to_document.h"
#include "module/textcmd/txt_dlg_doc_reactor.h"
#include "platform/arx/editor/host_api.h"
#include "tests/module/module_run.h"
#include "tests/module/sheet.h"
#include "tests/win/test_dialog.h"

namespace kovra::test {
namespace {

std::vector<std::string> told;

INT_PTR notes(HWND /*dialog*/, UINT message, WPARAM wParam, LPARAM /*lParam*/) {
  if (message == kDocumentActivatedMessage) told.push_back(wParam != 0 ? "enable" : "disable");
  if (message == WM_COMMAND && LOWORD(wParam) == IDCANCEL) told.push_back("cancel");
  return FALSE;
}

class DocumentDialogs : public ::testing::Test {
 protected:
  DocumentDialogs() {
    told.clear();
    run.open(sheet(""));
    first = arx::host::currentDrawing();
  }

  ModuleRun run;
  arx::host::DrawingId first = 0;
};

/// A dialog of the drawing in front, and another drawing.
class TiedDialog : public DocumentDialogs {
 protected:
  TiedDialog() : reactor(acDocManagerPtr()->curDocument(), &dialog) {
    dialog.Attach(win::makeDialog(nullptr, win::makeTemplate({}), win::frameWindow(), notes, 0));
    dialog.ShowWindow(SW_SHOW);
    second = arx::host::newDrawing().value();
    activate(first);
    acDocManagerPtr()->addReactor(&reactor);
  }
  ~TiedDialog() override {
    acDocManagerPtr()->removeReactor(&reactor);
    dialog.DestroyWindow();
    if (second != 0) close(second);
  }

  static void activate(arx::host::DrawingId drawing) {
    EXPECT_TRUE(arx::host::activateDrawing(drawing));
  }
  static void close(arx::host::DrawingId drawing) { EXPECT_TRUE(arx::host::closeDrawing(drawing)); }

  /// What the dialog is told at once, then what was posted to it.
  static std::vector<std::string> noted(const std::string& between = "later:") {
    told.push_back(between);
    win::Pump::instance().settle();
    return std::exchange(told, {});
  }

  CWnd dialog;
  TxtDlgDocReactor reactor;
  arx::host::DrawingId second = 0;
};

using Told = std::vector<std::string>;

TEST_F(TiedDialog, AnotherDrawingCancelsItInSight) {
  activate(second);
  EXPECT_EQ(noted(), (Told{"later:", "cancel"}));
  activate(first);
  EXPECT_EQ(noted(), (Told{"enable", "later:"}));
}

TEST_F(TiedDialog, AnotherDrawingDisablesItWhileHidden) {
  dialog.ShowWindow(SW_HIDE);
  activate(second);
  EXPECT_EQ(noted(), (Told{"disable", "later:"}));
  activate(first);
  EXPECT_EQ(noted(), (Told{"enable", "later:"}));
}

TEST_F(TiedDialog, EveryClosedDrawingCancelsIt) {
  close(std::exchange(second, 0));
  EXPECT_EQ(noted(), (Told{"later:", "cancel"}));
}

TEST_F(TiedDialog, WithoutItsOwnDrawingItIsCancelledHiddenToo) {
  const arx::host::DrawingId third = arx::host::newDrawing().value();
  TxtDlgDocReactor orphan(acDocManagerPtr()->curDocument(), &dialog);
  activate(first);
  close(third);
  acDocManagerPtr()->removeReactor(&reactor);
  acDocManagerPtr()->addReactor(&orphan);
  dialog.ShowWindow(SW_HIDE);
  noted();
  activate(second);
  EXPECT_EQ(noted(), (Told{"later:", "cancel"}));
  acDocManagerPtr()->removeReactor(&orphan);
}

TEST_F(DocumentDialogs, WorkTakesThePlaceOfTheRunningCommand) {
  int runs = 0;
  int status = RTNORM;
  arx::host::bindCommand(L"WORK", [&] { ++runs; });
  arx::host::bindCommand(L"ASK", [&] {
    StartInDocument(L"WORK");
    ads_point point = {};
    status = acedGetPoint(nullptr, L"Point: ", point);
    EXPECT_EQ(runs, 0);
  });
  run.type("ASK");
  EXPECT_EQ(status, RTCAN);
  EXPECT_EQ(runs, 1);
  run.takeTranscript();
  StartInDocument(L"WORK");
  arx::host::runIdle();
  EXPECT_EQ(runs, 2);
  EXPECT_EQ(run.takeTranscript().find("WORK"), std::string::npos) << "it isn't the user's input";
  for (const wchar_t* name : {L"WORK", L"ASK"}) arx::host::unbindCommand(name);
}

TEST_F(TiedDialog, SendingGivesTheFocusToTheMainWindow) {
  dialog.SetFocus();
  ASSERT_EQ(CWnd::GetFocus(), &dialog);
  SendToDocument(kCancelCommand);
  const HWND frame = *acedGetAcadFrame();
  EXPECT_TRUE(GetFocus() == frame || IsChild(frame, GetFocus()));
  arx::host::runIdle();
}

TEST(DocumentDialogsAlone, WithoutADrawingNothingIsSent) {
  const ModuleRun run;
  ASSERT_EQ(acDocManagerPtr()->curDocument(), nullptr);
  StartInDocument(L"WORK");
  arx::host::runIdle();
}

}  // namespace
}  // namespace kovra::test
