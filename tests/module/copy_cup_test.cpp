// The count-up dialog from the inside: what OK refuses, and what its buttons paint.
#include <gtest/gtest.h>

#include <functional>

#include "platform/win/base/pump.h"
#include "platform/win/controls/painting.h"
#include "platform/win/desktop/user_input.h"
#include "platform/win/windows/window_api.h"
#include "tests/module/module_run.h"
#include "tests/module/sheet.h"

namespace kovra::test {
namespace {

/// Works on the open dialog when it waits for the user, once.
class DialogWork : public win::PumpSource {
 public:
  explicit DialogWork(std::function<void(HWND)> work) : work_(std::move(work)) {
    win::Pump::instance().addSource(win::kOutsideInput, this);
  }
  ~DialogWork() override { win::Pump::instance().removeSource(this); }
  DialogWork(const DialogWork&) = delete;
  DialogWork& operator=(const DialogWork&) = delete;

  bool dispatchOne() override {
    if (done || win::topDialog() == nullptr) return false;
    done = true;
    work_(win::topDialog());
    return true;
  }

  bool done = false;

 private:
  std::function<void(HWND)> work_;
};

class CopyCup : public ::testing::Test {
 protected:
  ~CopyCup() override { win::setThemed(true); }

  /// Opens the dialog, works on it and cancels it.
  void inDialog(const std::function<void(HWND)>& work) {
    run.project("10.0");
    run.open(sheet(text("X001", 0, 0)));
    DialogWork input(work);
    run.type("KOVRA_TEXT_COUNTUP\nall\n");
    EXPECT_TRUE(input.done);
  }

  static void click(HWND dialog, int id) {
    EXPECT_EQ(win::clickControl(win::controlWithId(dialog, id)).error, "") << id;
  }
  static void type(HWND dialog, int id, const wchar_t* text) {
    EXPECT_EQ(win::typeOver(win::controlWithId(dialog, id), text).error, "") << id;
  }

  /// Moves the cursor over a control; the one that it leaves is told.
  static void pointAt(HWND dialog, int id) {
    EXPECT_EQ(win::moveOver(win::controlWithId(dialog, id)).error, "") << id;
    win::Pump::instance().settle();
  }

  ModuleRun run;
};

TEST_F(CopyCup, WhatOkRefusesIsSaidAndGetsTheFocus) {
  const struct {
    std::vector<int> clicks;
    std::vector<std::pair<int, const wchar_t*>> entries;
    const char* message;
    int focus;
  } cases[] = {
      {{1975, 1953}, {{1932, L"0"}}, "The number of rows must be 1 or more.", 1932},
      {{1975, 1953}, {{1932, L"2"}, {1933, L"0"}}, "Enter the distance between rows.", 1933},
      {{1975, 1954}, {{1934, L"0"}}, "The number of columns must be 1 or more.", 1934},
      {{1975, 1954}, {{1934, L"2"}, {1935, L"0"}}, "Enter the distance between columns.", 1935},
      {{1975, 1956},
       {{1932, L"3"}, {1933, L"1"}, {1934, L"0"}},
       "The numbers of rows and columns must be 1 or more.",
       1933},
      {{1974}, {{1931, L"0"}}, "The step must not be 0.", 1931},
  };
  for (const auto& each : cases) {
    inDialog([&](HWND dialog) {
      for (const int id : each.clicks) click(dialog, id);
      for (const auto& [id, entry] : each.entries) type(dialog, id, entry);
      SetFocus(win::controlWithId(dialog, 2));
      run.takeTranscript();
      // Not by a click: the button is disabled for some of these entries already.
      SendMessageW(dialog, WM_COMMAND, IDOK, 0);
      EXPECT_NE(run.takeTranscript().find(each.message), std::string::npos) << each.message;
      EXPECT_EQ(GetDlgCtrlID(win::focusedControl()), each.focus) << each.message;
    });
  }
}

/// What a control paints: kinds in order, and the state of its background.
std::string painted(HWND dialog, int id) {
  using Kind = win::PaintStep::Kind;
  std::string steps;
  for (const win::PaintStep& step : win::paintWindow(win::controlWithId(dialog, id))) {
    if (step.kind == Kind::frame) steps += "frame " + std::to_string(step.state);
    if (step.kind == Kind::themePart) steps += "theme " + std::to_string(step.state);
    if (step.kind == Kind::icon) steps += step.icon != nullptr ? " icon" : " nothing";
    if (step.kind == Kind::text) steps += " caption";
    if (step.kind == Kind::focus) steps += " focus";
  }
  return steps;
}

std::string themed(int state, const std::string& rest) {
  return "theme " + std::to_string(state) + rest;
}
std::string classic(UINT state, const std::string& rest) {
  return "frame " + std::to_string(DFCS_BUTTONPUSH | state) + rest;
}

TEST_F(CopyCup, ButtonsPaintTheirStateWithVisualStyles) {
  inDialog([](HWND dialog) {
    EXPECT_EQ(painted(dialog, 1953), themed(PBS_DISABLED, " icon caption"));
    EXPECT_EQ(painted(dialog, 1957), themed(PBS_DISABLED, " icon")) << "its caption is its tip";
    click(dialog, 1975);
    EXPECT_EQ(painted(dialog, 1953), themed(PBS_DEFAULTED, " icon caption")) << "the chosen one";
    EXPECT_EQ(painted(dialog, 1954), themed(PBS_NORMAL, " icon caption"));
    click(dialog, 1954);
    EXPECT_EQ(painted(dialog, 1953), themed(PBS_NORMAL, " icon caption"));
    EXPECT_EQ(painted(dialog, 1954), themed(PBS_HOT, " icon caption focus"));
    pointAt(dialog, 1955);
    EXPECT_EQ(painted(dialog, 1954), themed(PBS_DEFAULTED, " icon caption focus"));
    EXPECT_EQ(painted(dialog, 1955), themed(PBS_HOT, " icon caption"));
    pointAt(dialog, 1956);
    EXPECT_EQ(painted(dialog, 1955), themed(PBS_NORMAL, " icon caption"));
    SendMessageW(win::controlWithId(dialog, 1955), BM_SETSTATE, TRUE, 0);
    EXPECT_EQ(painted(dialog, 1955), themed(PBS_PRESSED, " icon caption"));
  });
}

TEST_F(CopyCup, ButtonsPaintClassicFramesWithoutVisualStyles) {
  win::setThemed(false);
  RECT classicPlace{};
  inDialog([&](HWND dialog) {
    GetWindowRect(win::controlWithId(dialog, 1953), &classicPlace);
    EXPECT_EQ(painted(dialog, 1953), classic(DFCS_PUSHED | DFCS_INACTIVE, " icon caption"));
    EXPECT_EQ(painted(dialog, 1954), classic(DFCS_INACTIVE, " icon caption"));
    click(dialog, 1975);
    EXPECT_EQ(painted(dialog, 1953), classic(DFCS_PUSHED, " icon caption"));
    EXPECT_EQ(painted(dialog, 1954), classic(0, " icon caption"));
  });
  // Styles leave a margin. Whether they are on is asked once, so the library is loaded anew.
  win::setThemed(true);
  EXPECT_EQ(run.unload(), "");
  run.load();
  inDialog([&](HWND dialog) {
    RECT place{};
    GetWindowRect(win::controlWithId(dialog, 1953), &place);
    EXPECT_EQ(place.right - place.left, classicPlace.right - classicPlace.left + 2);
    EXPECT_EQ(place.bottom - place.top, classicPlace.bottom - classicPlace.top + 6);
  });
}

}  // namespace
}  // namespace kovra::test
