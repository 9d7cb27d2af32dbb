#include "desktop/frame/run_window.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QTranslator>
#include <clocale>

#include "desktop/frame/main_window.h"
#include "launch/program_files.h"
#include "launch/text_module.h"
#include "platform/arx/editor/host_api.h"
#include "platform/win/base/run_settings.h"

namespace kovra::desktop {
namespace {

/// Texts of Qt's own dialogs in the language of this run.
void translate(QTranslator& translator) {
  const bool japanese = win::runSettings().language == win::Language::japanese;
  QLocale::setDefault(QLocale(japanese ? QLocale::Japanese : QLocale::English));
  if (japanese && translator.load(QStringLiteral("qtbase_ja"),
                                  QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(&translator);
}

void showUntilQuit(const launch::ProgramOptions& options,
                   const std::function<void(MainWindow&)>& shown) {
  MainWindow window;
  window.show();
  window.begin(options.drawings);
  if (shown) shown(window);
  arx::host::setEnterRepeats(true);
  arx::host::runIdle();
  // The user was asked about unsaved changes.
  for (const auto& drawing : arx::host::drawings())
    static_cast<void>(arx::host::closeDrawing(drawing.id));
}

}  // namespace

Result<void> runWindow(const launch::ProgramOptions& options,
                       const std::function<void(MainWindow&)>& shown) {
  // Drawings are written with the same numbers everywhere; Qt has set the user's own by now.
  std::setlocale(LC_NUMERIC, "C");
  const auto file = launch::findProgramFile("kovra_text.so");
  if (!file) return file.error();
  launch::applySettings(options, file.value().parent_path());
  QTranslator translator;
  translate(translator);
  launch::TextModule module(file.value());
  if (const auto loaded = module.load(); !loaded) return loaded;
  showUntilQuit(options, shown);
  return module.unload();
}

}  // namespace kovra::desktop
