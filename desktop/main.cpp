#include <CLI/CLI.hpp>
#include <QApplication>
#include <cstdio>

#include "desktop/frame/run_window.h"
#include "launch/version.h"

namespace {

using namespace kovra;

constexpr int kFileStatus = 3;

int fail(const std::string& message) {
  std::fprintf(stderr, "kovra-desktop: %s\n", message.c_str());
  return kFileStatus;
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
  QApplication::setApplicationName(QStringLiteral("kovra-desktop"));
  QApplication::setDesktopFileName(QStringLiteral("kovra-desktop"));
  QApplication::setQuitOnLastWindowClosed(false);
  const auto run = desktop::runWindow(options);
  return run ? 0 : fail(run.error().message);
}
