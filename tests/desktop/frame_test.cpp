// The main window under real clicks and keys. Each run is a process of its own, as users have it.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QSettings>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <csignal>
#include <fstream>
#include <iostream>
#include <set>
#include <variant>

#include "desktop/frame/captions.h"
#include "desktop/frame/commands.h"
#include "desktop/frame/main_window.h"
#include "desktop/frame/run_window.h"
#include "desktop/loop/input_queue.h"
#include "desktop/loop/texts.h"
#include "desktop/view/drawing_view.h"
#include "platform/arx/editor/host_api.h"
#include "platform/win/base/run_settings.h"
#include "platform/win/desktop/user_input.h"
#include "tests/host/drawings.h"

namespace kovra::test {
namespace {

using desktop::Caption;
using desktop::MainWindow;
using desktop::say;
namespace editor = arx::host;
namespace fs = std::filesystem;

using Step = std::function<void(MainWindow&)>;

/// How often a step that waits for something is tried before it counts as failed.
constexpr int kTries = 200;

/// A step that is done once the condition holds.
struct Until {
  std::function<bool(MainWindow&)> holds;
};
using Played = std::variant<Step, Until>;

/// Runs the program with steps of a user, each when it waits; 0 when it ended as it should.
int play(const launch::ProgramOptions& options, const std::vector<Played>& steps) {
  std::size_t next = 0;
  int tries = 0;
  QTimer timer;
  const auto take = [&](MainWindow& window) {
    if (QApplication::activeModalWidget() == nullptr && desktop::inputQueue().pending() != 0)
      return;
    if (next == steps.size()) return desktop::inputQueue().end();
    if (const auto* until = std::get_if<Until>(&steps[next])) {
      if (until->holds(window)) return static_cast<void>(++next);
      if (++tries < kTries) return;
      std::cerr << "step " << next << " waits in vain\n";
      std::_Exit(9);
    }
    tries = 0;
    std::get<Step>(steps[next++])(window);
  };
  const auto run = desktop::runWindow(options, [&](MainWindow& window) {
    QObject::connect(&timer, &QTimer::timeout, &timer, [&take, &window] { take(window); });
    timer.start(10);
  });
  if (!run) std::cerr << run.error().message << '\n';
  return run && next == steps.size() && !::testing::Test::HasFailure() ? 0 : 1;
}

Step type(const char* line) {
  return [line](MainWindow& window) {
    QTest::keyClicks(&window.view(), QLatin1String(line));
    QTest::keyClick(&window.view(), Qt::Key_Return);
  };
}

Played press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  return Until{[key, modifiers](MainWindow& window) {
    // Without a screen nobody gives the window back its turn after a message box.
    window.activateWindow();
    if (!window.isActiveWindow() || QApplication::activeModalWidget() != nullptr) return false;
    QTest::keyClick(&window.view(), key, modifiers);
    return true;
  }};
}

QAction* actionOf(MainWindow& window, const char* name) {
  return window.findChild<QAction*>(QLatin1String(name));
}

/// Clicks the action's button in the toolbar.
Step clickTool(const char* name) {
  return [name](MainWindow& window) {
    const auto* bar = window.findChild<QToolBar*>(QStringLiteral("toolbar"));
    QTest::mouseClick(bar->widgetForAction(actionOf(window, name)), Qt::LeftButton);
  };
}

/// Clicks the button of the message box that is open.
Played answer(Caption caption) {
  return Until{[caption](MainWindow&) {
    const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) return false;
    for (QAbstractButton* button : box->buttons()) {
      if (button->text() == say(caption)) return QTest::mouseClick(button, Qt::LeftButton), true;
    }
    return false;
  }};
}

/// Closes the message box that only tells something.
Played acknowledge() {
  return Until{[](MainWindow&) {
    const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr || box->buttons().size() != 1) return false;
    return QTest::mouseClick(box->buttons().front(), Qt::LeftButton), true;
  }};
}

Played waitFor(std::function<bool()> holds) {
  return Until{[holds](MainWindow&) { return holds(); }};
}

std::wstring layer() {
  const auto value = editor::variable(L"CLAYER");
  return value ? value.value() : std::wstring();
}

class FrameTest : public ::testing::Test {
 protected:
  FrameTest() {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    char name[] = "/tmp/kovra-frame-XXXXXX";
    // The process of a run finds the folder of the process that judges it.
    const char* given = std::getenv("KOVRA_FRAME_FOLDER");
    folder_ = given != nullptr ? given : ::mkdtemp(name);
    owner_ = given == nullptr;
    ::setenv("KOVRA_FRAME_FOLDER", folder_.c_str(), 1);
    if (!owner_) return;
    write("project.ini", "[Project]\nDataVersion=12.0\n");
    write("a.dxf", textDrawing());
    write("b.dxf", motorDrawing());
  }
  ~FrameTest() override {
    if (!owner_) return;
    ::unsetenv("KOVRA_FRAME_FOLDER");
    fs::remove_all(folder_);
  }
  fs::path path(const std::string& name) const { return folder_ / name; }
  void write(const std::string& name, const std::string& bytes) const {
    std::ofstream(path(name), std::ios::binary) << bytes;
  }
  std::string read(const std::string& name) const {
    std::ifstream file(path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  launch::ProgramOptions options(const std::vector<std::string>& drawings) const {
    launch::ProgramOptions options;
    for (const std::string& name : drawings) options.drawings.push_back(path(name));
    options.project = folder_;
    options.stateStore = path("state.db");
    options.language = "en";
    return options;
  }
  int copies() const {
    int count = 0;
    std::error_code none;
    for (const auto& entry : fs::directory_iterator(path("state.db.autosave"), none))
      count += entry.path().extension() == ".json" ? 1 : 0;
    return count;
  }

  fs::path folder_;
  bool owner_ = false;
};

#define EXPECT_RUN(options, ...)                                          \
  EXPECT_EXIT(std::exit(play(options, std::vector<Played>{__VA_ARGS__})), \
              ::testing::ExitedWithCode(0), "")

TEST_F(FrameTest, CommandsFromToolsAndKeysWithTheNamesOfTheirSteps) {
  EXPECT_RUN(options({"a.dxf"}), clickTool("KOVRA_TEXT_COUNTUP"),
             waitFor([] { return editor::topWait().kind == editor::WaitKind::kSelection; }),
             // Another command from a tool ends the first.
             clickTool("KOVRA_TEXT_ALIGN"),
             waitFor([] { return editor::topWait().command == L"KOVRA_TEXT_ALIGN"; }),
             press(Qt::Key_Escape),
             waitFor([] { return editor::topWait().kind == editor::WaitKind::kIdle; }),
             Step([](MainWindow& w) { EXPECT_FALSE(actionOf(w, "undo")->isEnabled()); }),
             type("clayer"), Step([](MainWindow& w) {
               EXPECT_TRUE(w.findChild<QLabel*>(QStringLiteral("prompt"))
                               ->text()
                               .contains(QLatin1String("CLAYER")));
             }),
             type("WIRENO"), waitFor([] { return layer() == L"WIRENO"; }), Step([](MainWindow& w) {
               EXPECT_EQ(actionOf(w, "undo")->text(), QLatin1String("&Undo Current layer"));
               EXPECT_TRUE(w.isWindowModified());
             }),
             press(Qt::Key_Z, Qt::ControlModifier), waitFor([] { return layer() == L"0"; }),
             Step([](MainWindow& w) {
               EXPECT_FALSE(actionOf(w, "undo")->isEnabled());
               EXPECT_EQ(actionOf(w, "redo")->text(), QLatin1String("&Redo Current layer"));
             }),
             clickTool("redo"), waitFor([] { return layer() == L"WIRENO"; }));
}

TEST_F(FrameTest, TabsSwitchAndCloseWithAQuestion) {
  const auto clickTab = [](int tab, Qt::MouseButton button) {
    return Step([tab, button](MainWindow& window) {
      auto* tabs = window.findChild<QTabBar*>(QStringLiteral("drawings"));
      QTest::mouseClick(tabs, button, {}, tabs->tabRect(tab).center());
    });
  };
  const auto open = [](std::size_t count) {
    return waitFor([count] { return editor::drawings().size() == count; });
  };
  EXPECT_RUN(options({"a.dxf", "b.dxf"}), open(2), clickTab(0, Qt::LeftButton),
             waitFor([] { return editor::currentDrawing() == editor::drawings()[0].id; }),
             type("clayer"), type("WIRENO"), waitFor([] { return layer() == L"WIRENO"; }),
             clickTab(0, Qt::MiddleButton), answer(Caption::kCancel), open(2),
             clickTab(0, Qt::MiddleButton), answer(Caption::kSaveAllButton), open(1),
             waitFor([] { return editor::currentDrawing() != 0; }));
  EXPECT_NE(read("a.dxf"), textDrawing());
  EXPECT_EQ(read("a.dxf.bak"), textDrawing());
  EXPECT_EQ(read("b.dxf"), motorDrawing());
}

TEST_F(FrameTest, AFileThatChangedOnDiskIsSaid) {
  const auto scaled = [](const char* scale) {
    DrawingForm form;
    form.dimensionScale = scale;
    return motorDrawing(form);
  };
  const auto scale = [](const wchar_t* wanted) {
    return waitFor([wanted] {
      const auto value = editor::variable(L"DIMSCALE");
      return value && value.value() == wanted;
    });
  };
  EXPECT_RUN(
      options({"b.dxf"}), scale(L"1"), Step([&](MainWindow&) { write("b.dxf", scaled("22.0")); }),
      answer(Caption::kReload), scale(L"22"), type("clayer"), type("WIRENO"),
      waitFor([] { return layer() == L"WIRENO"; }),
      // What can't be read takes nothing away.
      Step([&](MainWindow&) { write("b.dxf", "half of a drawing"); }), answer(Caption::kReload),
      acknowledge(), scale(L"22"), waitFor([] { return layer() == L"WIRENO"; }),
      Step([&](MainWindow&) { write("b.dxf", scaled("333.0")); }), answer(Caption::kKeep),
      // Not written over.
      scale(L"22"), press(Qt::Key_S, Qt::ControlModifier), acknowledge());
  EXPECT_EQ(read("b.dxf"), scaled("333.0"));
}

TEST_F(FrameTest, AKilledRunLosesNothingThatWasCopied) {
  if (owner_)
    QSettings(QString::fromStdString(path("state.db.desktop.ini").string()), QSettings::IniFormat)
        .setValue(QStringLiteral("autosave/minutes"), 0.001);
  EXPECT_EXIT(play(options({"a.dxf"}),
                   {type("clayer"), type("WIRENO"), waitFor([this] { return copies() == 1; }),
                    Step([](MainWindow&) { std::raise(SIGKILL); })}),
              ::testing::KilledBySignal(SIGKILL), "");
  EXPECT_EQ(read("a.dxf"), textDrawing());
  EXPECT_RUN(options({"a.dxf"}), answer(Caption::kRecover),
             waitFor([] { return layer() == L"WIRENO"; }), Step([this](MainWindow&) {
               ASSERT_EQ(editor::drawings().size(), 1u);
               EXPECT_EQ(editor::drawings()[0].file, path("a.dxf"));
               EXPECT_TRUE(editor::drawings()[0].modified);
             }),
             press(Qt::Key_S, Qt::ControlModifier), waitFor([this] { return copies() == 0; }),
             Step([](MainWindow&) { EXPECT_FALSE(editor::drawings()[0].modified); }));
  EXPECT_NE(read("a.dxf"), textDrawing());
  EXPECT_EQ(read("a.dxf.bak"), textDrawing());
}

TEST_F(FrameTest, ARecoveredDrawingIsNotSavedOverAFileThatChangedMeanwhile) {
  if (owner_)
    QSettings(QString::fromStdString(path("state.db.desktop.ini").string()), QSettings::IniFormat)
        .setValue(QStringLiteral("autosave/minutes"), 0.001);
  EXPECT_EXIT(play(options({"a.dxf"}),
                   {type("clayer"), type("WIRENO"), waitFor([this] { return copies() == 1; }),
                    Step([](MainWindow&) { std::raise(SIGKILL); })}),
              ::testing::KilledBySignal(SIGKILL), "");
  if (owner_) write("a.dxf", motorDrawing());
  EXPECT_RUN(options({"a.dxf"}), answer(Caption::kRecover),
             waitFor([] { return layer() == L"WIRENO"; }), press(Qt::Key_S, Qt::ControlModifier),
             Until{[](MainWindow&) {
               QWidget* box = QApplication::activeModalWidget();
               if (box != nullptr) QTest::keyClick(box, Qt::Key_Return);
               return box != nullptr;
             }},
             Step([this](MainWindow&) {
               EXPECT_TRUE(editor::drawings()[0].modified);
               const fs::path other = path("c.dxf");
               EXPECT_TRUE(editor::saveDrawing(editor::currentDrawing(), &other,
                                               {.backup = true, .copy = false, .rename = true}));
             }));
  EXPECT_EQ(read("a.dxf"), motorDrawing());
  EXPECT_NE(read("c.dxf"), textDrawing());
}

TEST_F(FrameTest, ACommandOfTheMenuTakesWhatIsSelected) {
  EXPECT_RUN(options({"a.dxf"}), press(Qt::Key_A, Qt::ControlModifier),
             clickTool("KOVRA_TEXT_COUNTUP"), waitFor([] { return editor::topWait().modalOnTop; }),
             Step([](MainWindow& window) { window.close(); }));
}

TEST_F(FrameTest, TabCompletesWhatIsTyped) {
  const auto line = [](MainWindow& window) {
    return window.findChild<QLineEdit*>(QStringLiteral("commandInput"));
  };
  const auto holds = [line](const char* text) {
    return Until{[line, text](MainWindow& w) { return line(w)->text() == QLatin1String(text); }};
  };
  const auto keys = [line](const char* text, Qt::Key key) {
    return Step([line, text, key](MainWindow& w) {
      QTest::keyClicks(line(w), QLatin1String(text));
      QTest::keyClick(line(w), key);
    });
  };
  EXPECT_RUN(options({"a.dxf"}), keys("clay", Qt::Key_Tab), holds("CLAYER"),
             keys("", Qt::Key_Return),
             waitFor([] { return editor::topWait().kind == editor::WaitKind::kString; }),
             keys("wi", Qt::Key_Tab), holds("WIRENO"), keys("", Qt::Key_Return),
             waitFor([] { return layer() == L"WIRENO"; }), keys("kovra_text_", Qt::Key_Tab),
             Until{[](MainWindow&) { return QApplication::activePopupWidget() != nullptr; }},
             Step([](MainWindow&) {
               QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Down);
               QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
             }),
             holds("KOVRA_TEXT_ALIGN"));
}

TEST_F(FrameTest, QuittingUnwindsADialogFirst) {
  const auto close = Step([](MainWindow& window) { window.close(); });
  EXPECT_RUN(options({"a.dxf"}), type("clayer"), type("WIRENO"),
             waitFor([] { return layer() == L"WIRENO"; }), clickTool("KOVRA_TEXT_COUNTUP"),
             waitFor([] { return editor::topWait().kind == editor::WaitKind::kSelection; }),
             press(Qt::Key_A, Qt::ControlModifier), type(""),
             waitFor([] { return editor::topWait().modalOnTop; }), close, answer(Caption::kCancel),
             waitFor([] { return editor::topWait().kind == editor::WaitKind::kIdle; }), close,
             answer(Caption::kDiscard));
  EXPECT_EQ(read("a.dxf"), textDrawing());
}

TEST_F(FrameTest, EveryTextHasBothLanguagesAndItsOwnAccessKey) {
  std::vector<desktop::Worded> all;
  for (int i = 0; i < static_cast<int>(Caption::kCount); ++i) {
    const desktop::CaptionRow& row = desktop::captionRow(static_cast<Caption>(i));
    EXPECT_EQ(static_cast<int>(row.caption), i);
    all.push_back(row.words);
  }
  for (const auto commands : {desktop::textCommands(), desktop::editorCommands()})
    for (const desktop::Command& command : commands) all.push_back(command.title);
  for (const desktop::Worded& words : all) {
    const QString english = QString::fromUtf8(words.english);
    const QString japanese = QString::fromUtf8(words.japanese);
    EXPECT_FALSE(english.isEmpty() || japanese.isEmpty()) << words.english;
    EXPECT_EQ(english.count(QLatin1Char('&')), japanese.count(QLatin1String("(&")))
        << words.english;
    EXPECT_EQ(english.count(QLatin1String("%1")), japanese.count(QLatin1String("%1")))
        << words.english;
  }
  const auto keysDiffer = [](MainWindow& window) {
    for (const QMenu* menu : window.menuBar()->findChildren<QMenu*>()) {
      std::set<QString> keys;
      for (const QAction* action : menu->actions()) {
        const QString key = QKeySequence::mnemonic(action->text()).toString();
        EXPECT_TRUE(key.isEmpty() || keys.insert(key).second) << action->text().toStdString();
      }
    }
  };
  for (const char* language : {"en", "ja"}) {
    launch::ProgramOptions given = options({"a.dxf"});
    given.language = language;
    EXPECT_RUN(given, Step(keysDiffer));
  }
}

}  // namespace
}  // namespace kovra::test
