#include <CLI/CLI.hpp>
#include <QApplication>
#include <QLibraryInfo>
#include <QTranslator>
#include <clocale>
#include <cstdio>

#include "desktop/frame/main_window.h"
#include "desktop/loop/input_queue.h"
#include "launch/program_files.h"
#include "launch/program_options.h"
#include "launch/text_module.h"
#include "launch/version.h"
#include "platform/arx/editor/host_api.h"
#include "platform/win/base/run_settings.h"

namespace {

using namespace kovra;

constexpr int kFileStatus = 3;

int fail(const std::string& message) {
  std::fprintf(stderr, "kovra-desktop: %s\n", message.c_str());
  return kFileStatus;
}

/// Texts of Qt's own dialogs in the language of this run.
void translate(QApplication& application, QTranslator& translator) {
  const bool japanese = win::runSettings().language == win::Language::japanese;
  QLocale::setDefault(QLocale(japanese ? QLocale::Japanese : QLocale::English));
  if (japanese && translator.load(QStringLiteral("qtbase_ja"),
                                  QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    application.installTranslator(&translator);
}

int run(QApplication& application, const launch::ProgramOptions& options) {
  const auto file = launch::findProgramFile("kovra_text.so");
  if (!file) return fail(file.error().message);
  launch::applySettings(options, file.value().parent_path());
  QTranslator translator;
  translate(application, translator);
  launch::TextModule module(file.value());
  if (const auto loaded = module.load(); !loaded) return fail(loaded.error().message);
  {
    desktop::MainWindow window;
    window.show();
    window.begin(options.drawings);
    arx::host::setEnterRepeats(true);
    arx::host::runIdle();
    // The user was asked about unsaved changes.
    for (const auto& drawing : arx::host::drawings())
      static_cast<void>(arx::host::closeDrawing(drawing.id));
  }
  if (const auto unloaded = module.unload(); !unloaded) return fail(unloaded.error().message);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  launch::ProgramOptions options;
  CLI::App usage("The text tools on drawings in a window.", "kovra-desktop");
  usage.set_version_flag("--version", std::string("kovra-desktop ") + launch::versionText());
  launch::addProgramOptions(usage, options);
  if (const auto status = launch::parseArguments(usage, argc, argv)) return *status;
  if (const auto places = launch::checkPlaces(options); !places)
    return fail(places.error().message);
  int qtArguments = 1;
  QApplication application(qtArguments, argv);
  application.setApplicationName(QStringLiteral("kovra-desktop"));
  application.setDesktopFileName(QStringLiteral("kovra-desktop"));
  application.setQuitOnLastWindowClosed(false);
  // Drawings are written with the same numbers everywhere; Qt has set the user's own by now.
  std::setlocale(LC_NUMERIC, "C");
  return run(application, options);
}
