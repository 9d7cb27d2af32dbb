#include <QApplication>
#include <cstdio>

#include "desktop/frame/main_window.h"
#include "desktop/loop/input_queue.h"
#include "launch/program_files.h"
#include "launch/text_module.h"
#include "platform/arx/editor/host_api.h"
#include "platform/win/base/run_settings.h"

namespace {

using namespace kovra;

int fail(const std::string& message) {
  std::fprintf(stderr, "kovra-desktop: %s\n", message.c_str());
  return 3;
}

int run(int argc, char** argv) {
  const auto file = launch::findProgramFile("kovra_text.so");
  if (!file) return fail(file.error().message);
  win::runSettings().resourceFolder = file.value().parent_path();
  win::runSettings().language = win::localeLanguage();
  launch::TextModule module(file.value());
  if (const auto loaded = module.load(); !loaded) return fail(loaded.error().message);
  {
    desktop::MainWindow window;
    for (int i = 1; i < argc; ++i) {
      if (const auto opened = arx::host::openDrawing(argv[i]); !opened) {
        return fail(opened.error().message);
      }
    }
    if (argc == 1) {
      if (const auto created = arx::host::newDrawing(); !created)
        return fail(created.error().message);
    }
    window.resize(1280, 800);
    window.show();
    arx::host::setEnterRepeats(true);
    arx::host::runIdle();
  }
  if (const auto unloaded = module.unload(); !unloaded) return fail(unloaded.error().message);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  return run(argc, argv);
}
