// Random mouse and keys on all that the program shows, not by script lines: whatever they do, the
// program neither crashes nor hangs, each widget shows its window, and memory doesn't grow.
//   desktop_random [--seed N] [--minutes M] [--steps N] [--state FILE] [--project DIR] DRAWING...
// Copies of the drawings serve best: it may save. Prints the seed. Exit status 1 when a widget
// differs from its window or memory at rest grows.
#include <QApplication>
#include <QCommandLineParser>
#include <cstdio>
#include <filesystem>

#include "desktop/frame/main_window.h"
#include "launch/program_files.h"
#include "launch/text_module.h"
#include "platform/arx/editor/host_api.h"
#include "platform/win/base/run_settings.h"
#include "tests/desktop/random/random_run.h"

namespace {

using namespace kovra;

test::RandomOptions optionsOf(const QApplication& application) {
  QCommandLineParser parser;
  parser.addOptions({{"seed", "", "number", "1"},
                     {"minutes", "", "number", "0"},
                     {"steps", "", "number", "2000"},
                     {"state", "", "file", "random.state"},
                     {"project", "", "folder"}});
  parser.addPositionalArgument("drawings", "");
  parser.process(application);
  test::RandomOptions options;
  options.seed = parser.value("seed").toUInt();
  options.minutes = parser.value("minutes").toDouble();
  options.steps = parser.value("steps").toLong();
  win::runSettings().stateStore = parser.value("state").toStdString();
  if (parser.isSet("project"))
    win::setCurrentProject(std::filesystem::absolute(parser.value("project").toStdString()));
  for (const QString& drawing : parser.positionalArguments())
    options.drawings.emplace_back(drawing.toStdString());
  return options;
}

}  // namespace

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  const auto file = launch::findProgramFile("kovra_text.so");
  if (!file) return std::fprintf(stderr, "%s\n", file.error().message.c_str()), 3;
  win::runSettings().resourceFolder = file.value().parent_path();
  const test::RandomOptions options = optionsOf(application);
  std::printf("seed %u\n", options.seed);
  launch::TextModule module(file.value());
  if (!module.load()) return 3;
  bool passed = false;
  {
    desktop::MainWindow window;
    window.resize(1280, 800);
    window.show();
    passed = test::runRandomUser(options, window);
  }
  const auto unloaded = module.unload();
  if (!unloaded) std::fprintf(stderr, "%s\n", unloaded.error().message.c_str());
  return passed && unloaded ? 0 : 1;
}
