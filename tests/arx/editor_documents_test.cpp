// Several drawings: activation, nested idle hosts, closing, reactors, locks.
#include <gtest/gtest.h>

#include "platform/arx/editor/editor.h"
#include "platform/win/base/wide_text.h"
#include "tests/arx/editor_user.h"

namespace kovra::arx::test {
namespace {

std::vector<std::string> events;

std::string current() {
  const AcApDocument* document = acDocManagerPtr()->curDocument();
  return document != nullptr ? win::toUtf8(document->docTitle()) : "none";
}

class Recorder : public AcApDocManagerReactor {
 public:
  void documentToBeDestroyed(AcApDocument* document) override { note("destroy", document); }
  void documentDestroyed(const wchar_t* file) override {
    events.push_back("destroyed " + std::filesystem::path(win::toUtf8(file)).filename().string());
  }
  void documentToBeDeactivated(AcApDocument* document) override { note("leave", document); }
  void documentBecameCurrent(AcApDocument* document) override { note("current", document); }
  void documentActivated(AcApDocument* document) override { note("activated", document); }

 private:
  static void note(const std::string& what, AcApDocument* document) {
    events.push_back(what + " " + win::toUtf8(document->docTitle()));
  }
};

/// Removes itself, and another one, at the first notification.
class Vanishing : public AcApDocManagerReactor {
 public:
  explicit Vanishing(AcApDocManagerReactor* other = nullptr) : other_(other) {}
  void documentActivated(AcApDocument*) override {
    events.push_back("vanishing");
    acDocManagerPtr()->removeReactor(this);
    acDocManagerPtr()->removeReactor(other_);
  }

 private:
  AcApDocManagerReactor* other_;
};

class EditorDocuments : public testing::Test {
 protected:
  void SetUp() override {
    events.clear();
    host::bindCommand(L"WAIT", [] {
      const std::string asked = current();
      wchar_t text[40];
      const int status = acedGetString(1, L"Waiting: ", text);
      events.push_back(asked + (status == RTNORM ? " got " + win::toUtf8(text) : " cancelled") +
                       " in " + current());
    });
    second_ = user_.open();
    EXPECT_TRUE(host::activateDrawing(user_.first()).ok());
  }
  void TearDown() override { host::unbindCommand(L"WAIT"); }

  Step activate(host::DrawingId id) {
    return Step([=] {
      if (const auto done = host::activateDrawing(id); !done)
        events.push_back(done.error().message);
    });
  }
  Step close(host::DrawingId id) {
    return Step([=] {
      if (const auto done = host::closeDrawing(id); !done) events.push_back(done.error().message);
    });
  }

  EditorUser user_;
  host::DrawingId second_ = 0;
};

TEST_F(EditorDocuments, NestedPromptsEndInOrder) {
  user_.run({"WAIT", activate(second_), "WAIT", activate(user_.first()), "inner",
             activate(user_.first()), "outer"});
  EXPECT_EQ(events, (std::vector<std::string>{"WAIT in sheet2.dxf must end first",
                                              "sheet2.dxf got inner in sheet2.dxf",
                                              "sheet1.dxf got outer in sheet1.dxf"}));
  EXPECT_EQ(user_.failure(), "");
}

TEST_F(EditorDocuments, LeftOverInputStaysWithItsDocument) {
  user_.run(
      {"WAIT", keys(L"beg"), activate(second_), "CLAYER WIRES", activate(user_.first()), "un"});
  EXPECT_EQ(events, std::vector<std::string>{"sheet1.dxf got begun in sheet1.dxf"});
}

TEST_F(EditorDocuments, EndOfInputUnwindsEverything) {
  user_.run({"WAIT", activate(second_), "WAIT"});
  EXPECT_EQ(events, (std::vector<std::string>{"sheet2.dxf cancelled in sheet2.dxf",
                                              "sheet1.dxf cancelled in sheet1.dxf"}));
  EXPECT_EQ(host::topWait().kind, host::WaitKind::kNone);
}

TEST_F(EditorDocuments, ClosingCancelsFirstAndTellsThen) {
  Recorder recorder;
  acDocManagerPtr()->addReactor(&recorder);
  user_.run({"WAIT", close(user_.first())});
  EXPECT_EQ(events, (std::vector<std::string>{"sheet1.dxf cancelled in sheet1.dxf",
                                              "destroy sheet1.dxf", "destroyed sheet1.dxf",
                                              "current sheet2.dxf", "activated sheet2.dxf"}));
  acDocManagerPtr()->removeReactor(&recorder);
  EXPECT_EQ(host::drawings().size(), 1U);
}

TEST_F(EditorDocuments, ClosingEndsTheDialogThatAPromptRunsInside) {
  host::bindCommand(L"DIALOG", [] {
    bool open = true;
    win::Wait dialog;
    dialog.kind = win::WaitKind::modalDialog;
    dialog.cancel = [&] { open = false; };
    win::Pump::instance().runUntil([&] { return !open; }, dialog);
    events.push_back(open ? "left open" : "cancelled");
  });
  const auto pickInside = Step([] {
    wchar_t text[40];
    EXPECT_EQ(acedGetString(1, L"Inside: ", text), RTCAN);
  });
  user_.run({"DIALOG", pickInside, close(user_.first()), "CLAYER WIRES"});
  host::unbindCommand(L"DIALOG");
  EXPECT_EQ(events, std::vector<std::string>{"cancelled"});
  EXPECT_EQ(host::drawings().size(), 1U);
  EXPECT_EQ(user_.failure(), "");
}

TEST_F(EditorDocuments, ClosingBelowANestedIdleHost) {
  user_.run({"WAIT", activate(second_), close(user_.first()), "WAIT", "here"});
  EXPECT_EQ(events, (std::vector<std::string>{"sheet1.dxf cancelled in sheet1.dxf",
                                              "sheet2.dxf got here in sheet2.dxf"}));
}

TEST_F(EditorDocuments, ClosingTheNestedDocumentGoesBackToThePrompt) {
  user_.run({"WAIT", activate(second_), close(second_), "here"});
  EXPECT_EQ(events, std::vector<std::string>{"sheet1.dxf got here in sheet1.dxf"});
}

TEST_F(EditorDocuments, ActivationCanBeDisabled) {
  acDocManagerPtr()->disableDocumentActivation();
  acDocManagerPtr()->disableDocumentActivation();
  acDocManagerPtr()->enableDocumentActivation();
  EXPECT_FALSE(host::activateDrawing(second_).ok());
  EXPECT_FALSE(host::newDrawing().ok());
  EXPECT_EQ(acDocManagerPtr()->enableDocumentActivation(), Acad::eOk);
  EXPECT_EQ(acDocManagerPtr()->enableDocumentActivation(), Acad::eInvalidInput);
  EXPECT_TRUE(host::activateDrawing(second_).ok());
  EXPECT_EQ(current(), "sheet2.dxf");
}

TEST_F(EditorDocuments, ReactorsMayGoInsideNotifications) {
  Recorder recorder;
  Vanishing vanishing(&recorder);
  acDocManagerPtr()->addReactor(&vanishing);
  acDocManagerPtr()->addReactor(&recorder);
  EXPECT_TRUE(host::activateDrawing(second_).ok());
  EXPECT_TRUE(host::activateDrawing(user_.first()).ok());
  EXPECT_EQ(events,
            (std::vector<std::string>{"leave sheet1.dxf", "current sheet2.dxf", "vanishing"}));
}

TEST_F(EditorDocuments, LocksNestAndAreGivenBack) {
  AcApDocument* document = acDocManagerPtr()->curDocument();
  {
    const AcAxDocLock outer(document->database());
    const AcAxDocLock inner;
    EXPECT_EQ(document->lockMode(), AcAp::kWrite);
  }
  EXPECT_EQ(document->lockMode(), AcAp::kNotLocked);
  AcDbDatabase alone(true, true);
  EXPECT_EQ(AcAxDocLock(&alone).lockStatus(), Acad::eOk);
}

TEST_F(EditorDocuments, OpeningTheSameFileActivatesIt) {
  const auto files = host::drawings();
  const auto again = host::openDrawing(files[1].file);
  ASSERT_TRUE(again.ok());
  EXPECT_EQ(again.value(), second_);
  EXPECT_EQ(host::drawings().size(), 2U);
  const auto missing = host::openDrawing(files[1].file.parent_path() / "none.dxf");
  ASSERT_FALSE(missing.ok());
  EXPECT_EQ(missing.error().kind, ErrorKind::kNotFound);
  EXPECT_EQ(host::drawings().size(), 2U);
}

TEST_F(EditorDocuments, SavedElsewhereKeepsItsName) {
  user_.run({"CLAYER WIRES"});
  const std::filesystem::path copy = host::drawings()[0].file.parent_path() / "copy.dxf";
  ASSERT_TRUE(host::saveDrawing(user_.first(), &copy).ok());
  EXPECT_EQ(current(), "sheet1.dxf");
  EXPECT_TRUE(host::drawings()[0].modified);
  ASSERT_TRUE(host::saveDrawing(user_.first()).ok());
  EXPECT_FALSE(host::drawings()[0].modified);
}

}  // namespace
}  // namespace kovra::arx::test
