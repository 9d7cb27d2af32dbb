#include "host/plot_command.h"

#include <iostream>

#include "host/picture/picture_draw.h"
#include "host/program_errors.h"
#include "host/program_files.h"
#include "platform/arx/database.h"
#include "platform/arx/plot.h"
#include "platform/dxf/structure.h"

namespace kovra::host {
namespace {

/// Round what the whole drawing shows, as a share of its longer side.
constexpr double kMargin = 0.02;
/// What an empty drawing shows.
constexpr AcGePoint3d kEmptyCorner{420, 297, 0};

/// Model space, unless only the paper has something on it.
dxf::BlockNumber spaceToPlot(const dxf::Structure& structure) {
  const dxf::BlockNumber paper = structure.paperSpace();
  const bool empty = structure.firstEntity(dxf::kModelSpace) == dxf::kNoRecord;
  return empty && structure.firstEntity(paper) != dxf::kNoRecord ? paper : dxf::kModelSpace;
}

Page wholePage(const AcDbDatabase& database, dxf::BlockNumber space, int size) {
  ExtentsDraw measure;
  arx::plotSpace(database, space, measure);
  const AcDbExtents& extents = measure.extents();
  if (!extents.isValid()) return pageFor({}, kEmptyCorner, size, 0);
  return pageFor(extents.minPoint(), extents.maxPoint(), size, kMargin);
}

void reportMissing(const arx::KindCounts& missing) {
  const char* separator = "not drawn: ";
  for (const auto& [kind, count] : missing) {
    std::cout << separator << count << ' ' << kind;
    separator = ", ";
  }
  if (!missing.empty()) std::cout << '\n';
}

Result<void> plot(const PlotOptions& options, PictureForm form) {
  AcDbDatabase database(false);
  if (const Result<void> opened = database.open(options.drawing.string()); !opened) return opened;
  const dxf::BlockNumber space = spaceToPlot(database.structure());
  const Page page = options.window
                        ? pageFor(options.window->low, options.window->high, options.size, 0)
                        : wholePage(database, space, options.size);
  const auto canvas = makeCanvas(form, page.width, page.height, groundColor(options.ground));
  Glyphs glyphs;
  PictureDraw draw(*canvas, glyphs, page, options.ground);
  const arx::KindCounts missing = arx::plotSpace(database, space, draw);
  if (const Result<void> written = writePicture(options.output, *canvas); !written) return written;
  reportMissing(missing);
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
