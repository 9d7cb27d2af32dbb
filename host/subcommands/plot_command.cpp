#include "host/subcommands/plot_command.h"

#include <iostream>

#include "host/libraries/picture_library.h"
#include "host/program/program_errors.h"
#include "host/program/program_files.h"

namespace kovra::host {
namespace {

void report(const PictureGaps& gaps) {
  const char* separator = "not drawn: ";
  for (const auto& [kind, count] : gaps.plot.missing) {
    std::cout << separator << count << ' ' << kind;
    separator = ", ";
  }
  if (!gaps.plot.missing.empty()) std::cout << '\n';
  if (!gaps.plot.inPart.empty()) std::cout << "drawn in part: " << gaps.plot.inPart << '\n';
  if (gaps.empty) std::cout << "the picture is empty: nothing that shows lies on it\n";
}

Result<void> plot(const PlotOptions& options, PictureForm form) {
  const Result<PictureLibrary> library = loadPictureLibrary();
  if (!library) return library.error();
  const Result<PictureGaps> gaps = library.value().plot(options, form);
  if (!gaps) return gaps.error();
  report(gaps.value());
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
