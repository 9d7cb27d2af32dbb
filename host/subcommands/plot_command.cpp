#include "host/subcommands/plot_command.h"

#include <iostream>

#include "host/batch/drawing_list.h"
#include "host/libraries/picture_library.h"
#include "host/program/program_errors.h"
#include "host/program/program_files.h"
#include "host/subcommands/each_in_order.h"

namespace kovra::host {
namespace {

/// @param name in front of each line; empty for a single drawing
void report(const PictureGaps& gaps, const std::string& name) {
  const std::string begin = name.empty() ? name : name + ": ";
  std::string separator = begin + "not drawn: ";
  for (const auto& [kind, count] : gaps.plot.missing) {
    std::cout << separator << count << ' ' << kind;
    separator = ", ";
  }
  if (!gaps.plot.missing.empty()) std::cout << '\n';
  if (!gaps.plot.inPart.empty())
    std::cout << begin << "drawn in part: " << gaps.plot.inPart << '\n';
  if (gaps.empty) std::cout << begin << "the picture is empty: nothing that shows lies on it\n";
}

int plot(const PlotOptions& options, const BatchDrawing& drawing,
         const std::filesystem::path& picture, const std::string& name) {
  ProgramErrors errors;
  const Result<PictureForm> form = pictureForm(picture);
  const Result<PictureLibrary> library = loadPictureLibrary();
  if (!form) {
    errors.report(kExitUsage, {}, form.error().message);
  } else if (isSameFile(picture, drawing.file())) {
    errors.report(kExitUsage, picture.string(), "the output is the drawing");
  } else if (!library) {
    errors.report(kExitFile, {}, library.error().message);
  } else {
    const Result<PictureGaps> gaps =
        library.value().plot(drawing.file(), options, picture, form.value());
    if (gaps) {
      report(gaps.value(), name);
    } else {
      errors.report(kExitFile, {}, gaps.error().message);
    }
  }
  return errors.status();
}

/// Below the folder of pictures as the drawing lies below its own.
int plotIntoFolder(const PlotOptions& options, const BatchDrawing& drawing) {
  std::filesystem::path picture = options.output / drawing.relative();
  picture += options.extension;
  std::error_code failure;
  create_directories(picture.parent_path(), failure);
  return plot(options, drawing, picture, drawing.name);
}

}  // namespace

int plotDrawings(const PlotOptions& options) {
  const Result<std::vector<BatchDrawing>> found = findDrawings(options.drawings, {});
  if (!found) return fail(kExitFile, found.error());
  std::error_code failure;
  const std::vector<BatchDrawing>& drawings = found.value();
  if (drawings.size() == 1 && !is_directory(options.output, failure))
    return plot(options, drawings.front(), options.output, {});
  if (pictureForm(options.output) && !is_directory(options.output, failure))
    return fail(kExitUsage, {ErrorKind::kInvalidInput,
                             options.output.string() + ": several drawings need a folder"});
  if (const Result<void> apart = checkPlaces(drawings); !apart)
    return fail(kExitUsage, apart.error());
  return forEachInOrder(drawings, options.jobs, [&](const BatchDrawing& drawing) {
    return plotIntoFolder(options, drawing);
  });
}

}  // namespace kovra::host
