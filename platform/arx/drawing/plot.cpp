#include "platform/arx/drawing/plot.h"

#include "platform/arx/database/database.h"
#include "platform/arx/drawing/drawing_walk.h"
#include "platform/arx/drawing/record_draw.h"
#include "platform/arx/geometry/gi.h"

namespace kovra::arx {

PlotGaps plotSpace(const AcDbDatabase& database, dxf::BlockNumber space, AcGiWorldDraw& context) {
  PlotGaps gaps;
  AcGiGeometry& geometry = context.geometry();
  DrawingWalk walk(database, space, Showing::kPaper);
  walk.all([&](const DrawnLeaf& leaf) {
    context.subEntityTraits().setTrueColor(leaf.color);
    geometry.pushModelTransform(leaf.toWorld);
    const bool drawn = drawRecord(database, leaf.record, leaf.draft, geometry);
    geometry.popModelTransform();
    if (!drawn) ++gaps.missing[std::string(leaf.draft.typeName())];
    return true;
  });
  gaps.inPart = walk.unfinished();
  return gaps;
}

}  // namespace kovra::arx
