#include "host/subcommands/plot_command.h"

#include <iostream>

#include "host/libraries/picture_library.h"
#include "host/program/program_errors.h"
#include "host/program/program_files.h"

namespace kovra::host {
namespace {

void reportMissing(const arx::KindCounts& missing) {
  const char* separator = "not drawn: ";
  for (const auto& [kind, count] : missing) {
    std::cout << separator << count << ' ' << kind;
    separator = ", ";
  }
  if (!missing.empty()) std::cout << '\n';
}

Result<void> plot(const PlotOptions& options, PictureForm form) {
  const Result<PictureLibrary> library = loadPictureLibrary();
  if (!library) return library.error();
  const Result<arx::KindCounts> missing = library.value().plot(options, form);
  if (!missing) return missing.error();
  reportMissing(missing.value());
  return {};
}

}  // namespace

int plotDrawing(const PlotOptions& options) {
  ProgramErrors errors;
  const Result<PictureForm> form = pictureForm(options.output);
  if (!form) {
    errors.report(kExitUsage, {}, form.error().message);
  } else if (isSameFile(options.output, options.drawing)) {
    errors.report(kExitUsage, options.output.string(), "the output is the drawing");
  } else if (const Result<void> done = plot(options, form.value()); !done) {
    errors.report(kExitFile, {}, done.error().message);
  }
  return errors.status();
}

}  // namespace kovra::host
