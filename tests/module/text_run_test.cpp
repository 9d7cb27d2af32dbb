// The Text command below data version 7.00 from inside: its preview, the store that it finds, and
// what it does with the messages of other windows.
#include <gtest/gtest.h>

#include "module/frame/companions/dialog_state_lib.h"
#include "platform/arx/editor/picks/jig.h"
#include "platform/arx/entities/text.h"
#include "platform/win/base/run_settings.h"
#include "platform/win/base/wide_text.h"
#include "platform/win/desktop/desktop.h"
#include "platform/win/desktop/user_input.h"
#include "platform/win/windows/input_method.h"
#include "platform/win/windows/message_queue.h"
#include "platform/win/windows/window.h"
#include "platform/win/windows/window_api.h"
#include "tests/arx/editor_user.h"
#include "tests/module/module_run.h"

namespace kovra::test {
namespace {

using arx::test::EditorUser;
using arx::test::escape;
using arx::test::moveTo;
using arx::test::Step;

HWND control(int id) {
  return win::controlWithId(win::topDialog(), id);
}

std::string text(int id) {
  wchar_t buffer[300] = {};
  GetWindowTextW(control(id), buffer, 300);
  return win::toUtf8(buffer);
}

Step choose(int id, int index) {
  return Step([=] { EXPECT_EQ(win::chooseIndex(control(id), index).error, ""); });
}
Step typeOver(int id, const wchar_t* typed) {
  return Step([=] { EXPECT_EQ(win::typeOver(control(id), typed).error, ""); });
}
Step clickControl(int id) {
  return Step([=] { EXPECT_EQ(win::clickControl(control(id)).error, ""); });
}

class TextRunTest : public ::testing::Test {
 protected:
  TextRunTest() { run.project("6.0"); }

  /// Runs the command until it is cancelled.
  std::string command(std::vector<Step> steps) {
    steps.insert(steps.begin(), "KOVRA_TEXT");
    steps.insert(steps.end(), {escape(), escape(), escape()});
    return user.run(std::move(steps));
  }

  ModuleRun run;
  EditorUser user;
};

/// The text that is dragged, when the step is done.
Step notePreview(std::string& note) {
  return Step([&note] {
    const AcEdJig* jig = arx::activeJig();
    ASSERT_NE(jig, nullptr);
    const AcDbText* preview = AcDbText::cast(jig->entity());
    ASSERT_NE(preview, nullptr);
    char line[200];
    std::snprintf(line, sizeof line, "%s %s %g %g %.4f %d,%d at %g,%g%s",
                  win::toUtf8(preview->textStringConst()).c_str(),
                  win::toUtf8(preview->layerName()).c_str(), preview->height(),
                  preview->widthFactor(), preview->rotation(), preview->horizontalMode(),
                  preview->verticalMode(), preview->alignmentPoint().x, preview->alignmentPoint().y,
                  preview->visibility() == AcDb::kInvisible ? " hidden" : "");
    note = line;
  });
}

TEST_F(TextRunTest, TheDialogChangesThePreviewAtOnce) {
  std::string first;
  std::string changed;
  std::string picking;
  std::string back;
  command({"K1", moveTo(3, 4), notePreview(first), typeOver(1996, L"100"), typeOver(1987, L"2.5"),
           typeOver(1989, L"0.5"), typeOver(1991, L"-90"), choose(1993, 11), choose(1998, 0),
           notePreview(changed), clickControl(1988), notePreview(picking), escape(), moveTo(5, 6),
           notePreview(back)});
  EXPECT_EQ(first, "K1 0 3 1 0.0000 0,0 at 3,4") << "layer CMNT isn't in the drawing";
  EXPECT_EQ(changed, "K1 0 250 0.5 4.7124 1,1 at 3,4");
  EXPECT_EQ(picking, changed + " hidden");
  EXPECT_EQ(back, "K1 0 250 0.5 4.7124 1,1 at 5,6");
}

TEST_F(TextRunTest, TheLayerOfThePreviewIsOneOfTheDrawing) {
  std::string current;
  std::string missing;
  command({"K1", moveTo(3, 4), choose(1998, 7), notePreview(current), choose(1998, 2),
           notePreview(missing)});
  EXPECT_EQ(current.substr(0, 5), "K1 0 ");
  user.run({"-LAYER M ECMNT ", "KOVRA_TEXT", "K1", moveTo(3, 4), notePreview(current),
            choose(1998, 7), notePreview(missing), escape(), escape()});
  EXPECT_EQ(current.substr(0, 9), "K1 ECMNT ") << "as the last run left it";
  EXPECT_EQ(missing.substr(0, 9), "K1 ECMNT ") << "the current one";
}

/// What a text field of the dialog is typed in.
HWND field(int id) {
  return GetWindow(control(id), GW_CHILD);
}
bool inputMethodIsOpen(int id) {
  return ImmGetOpenStatus(ImmGetContext(field(id))) != FALSE;
}

TEST_F(TextRunTest, NumbersAreTypedWithoutTheInputMethod) {
  const auto expect = [](int id, bool open) {
    return Step([=] { EXPECT_EQ(inputMethodIsOpen(id), open) << id; });
  };
  for (const int id : {1987, 1989, 1991, 1996}) {
    command({Step([=] { ImmSetOpenStatus(ImmGetContext(field(id)), TRUE); }), typeOver(id, L"2"),
             expect(id, false), clickControl(1), expect(id, true), typeOver(id, L"x"),
             clickControl(2), expect(id, false)});
  }
}

std::vector<UINT> reached;

LRESULT toolbarProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message >= WM_MOUSEMOVE && message <= WM_LBUTTONDBLCLK) reached.push_back(message);
  return DefWindowProcW(window, message, wParam, lParam);
}

TEST_F(TextRunTest, ToolBarsCannotBeClickedWhileTheValueIsAsked) {
  win::registerWindowClass({L"ToolbarWindow32", toolbarProcedure, nullptr});
  win::WindowSpec spec;
  spec.className = L"ToolbarWindow32";
  spec.style = WS_CHILD | WS_VISIBLE;
  spec.parentOrOwner = win::frameWindow();
  const HWND toolbar = win::makeWindow(spec);
  const Step pressButtons([=] {
    reached.clear();
    for (const UINT message : {WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK}) {
      win::deliver(toolbar, message, 0, 0);
    }
  });
  command({pressButtons});
  EXPECT_EQ(reached, (std::vector<UINT>{WM_MOUSEMOVE, WM_LBUTTONUP}));
  command({"K1", pressButtons});
  EXPECT_EQ(reached.size(), 4U);
  DestroyWindow(toolbar);
}

/// A store as a run leaves it, less one key, with others instead.
struct StoredState {
  const wchar_t* missing = L"";
  int layer = 2;
  int attachment = 5;
  const wchar_t* height = L"3";
  const wchar_t* widthFactor = L"0.5";

  void write(const std::filesystem::path& file) const {
    win::runSettings().stateStore = file;
    DialogStateStore store;
    ASSERT_TRUE(store.OpenSection(L"KOVRA_TEXT"));
    const auto isThere = [this](const wchar_t* key) { return std::wstring_view(key) != missing; };
    const std::pair<const wchar_t*, int> numbers[] = {{L"TEXT_DLG_POS_X", 10},
                                                      {L"TEXT_DLG_POS_Y", 20},
                                                      {L"TEXT_LAYER_INDEX", layer},
                                                      {L"TEXT_ATTACH_INDEX", attachment}};
    for (const auto& [key, value] : numbers) {
      EXPECT_TRUE(!isThere(key) || store.SetInt(key, value));
    }
    const std::pair<const wchar_t*, const wchar_t*> texts[] = {
        {L"TEXT_H", height}, {L"TEXT_WF", widthFactor}, {L"TEXT_ROT", L"30"}};
    for (const auto& [key, value] : texts) {
      EXPECT_TRUE(!isThere(key) || store.SetString(key, value));
    }
  }
};

TEST_F(TextRunTest, StoresThatNoRunLeft) {
  const std::string usual = "CMNT 1.5 1 0 Left";
  const struct {
    StoredState state;
    std::string shown;
  } cases[] = {
      {{}, "ECMNT 3 0.5 30 Top center"},
      {{.missing = L"TEXT_DLG_POS_X"}, usual},
      {{.missing = L"TEXT_DLG_POS_Y"}, usual},
      {{.missing = L"TEXT_LAYER_INDEX"}, usual},
      {{.missing = L"TEXT_H"}, usual},
      {{.missing = L"TEXT_WF"}, usual},
      {{.missing = L"TEXT_ROT"}, usual},
      {{.missing = L"TEXT_ATTACH_INDEX"}, usual},
      {{.layer = -1}, " 3 0.5 30 Top center"},
      {{.layer = 8}, " 3 0.5 30 Top center"},
      {{.attachment = 13}, "ECMNT 3 0.5 30 Left"},
      {{.attachment = -1}, "ECMNT 3 0.5 30 Left"},
      {{.height = L"0", .widthFactor = L""}, "ECMNT 1.5 1 30 Top center"},
  };
  const auto folder = win::runSettings().stateStore.parent_path();
  int number = 0;
  for (const auto& row : cases) {
    const std::string store = "store" + std::to_string(++number);
    row.state.write(folder / store);
    std::string shown;
    const std::string transcript = command({Step([&] {
      shown =
          text(1998) + ' ' + text(1987) + ' ' + text(1989) + ' ' + text(1991) + ' ' + text(1993);
    })});
    EXPECT_EQ(shown, row.shown) << number;
    EXPECT_EQ(transcript.find("can't be read"), std::string::npos) << transcript;
  }
}

TEST_F(TextRunTest, WithoutAStoreItSaysSoAndEnds) {
  const auto store = win::runSettings().stateStore;
  win::runSettings().stateStore = store.parent_path();
  const std::string transcript = command({Step([] { EXPECT_EQ(win::topDialog(), nullptr); })});
  EXPECT_NE(transcript.find("The saved settings of the Text command can't be read."),
            std::string::npos)
      << transcript;
  win::runSettings().stateStore = store;
  EXPECT_EQ(command({"K1"}).find("already running"), std::string::npos);
}

}  // namespace
}  // namespace kovra::test
