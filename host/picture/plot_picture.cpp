#include "host/picture/picture_draw.h"
#include "host/picture/pictures.h"
#include "platform/arx/database/database.h"
#include "platform/arx/drawing/drawing_walk.h"
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
  const AcDbExtents extents = arx::drawnExtents(database, space, arx::Showing::kPaper);
  if (!extents.isValid()) return pageFor({}, kEmptyCorner, size, 0);
  return pageFor(extents.minPoint(), extents.maxPoint(), size, kMargin);
}

}  // namespace

Result<PictureGaps> plotPicture(const std::filesystem::path& drawing, const PictureOptions& options,
                                const std::filesystem::path& picture, PictureForm form) {
  AcDbDatabase database(false);
  if (const Result<void> opened = database.open(drawing.string()); !opened) return opened.error();
  const dxf::BlockNumber space = spaceToPlot(database.structure());
  const Page page = options.window
                        ? pageFor(options.window->low, options.window->high, options.size, 0)
                        : wholePage(database, space, options.size);
  const auto canvas = makeCanvas(form, page.width, page.height, groundColor(options.ground));
  Glyphs glyphs;
  PictureDraw draw(*canvas, glyphs, page, options.ground);
  PictureGaps gaps;
  gaps.plot = arx::plotSpace(database, space, draw);
  gaps.empty = !draw.hasInk();
  if (const Result<void> written = writePicture(picture, *canvas); !written) return written.error();
  return gaps;
}

}  // namespace kovra::host
