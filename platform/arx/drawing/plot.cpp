#include "platform/arx/drawing/plot.h"

#include "platform/arx/database/database.h"
#include "platform/arx/database/record_edit.h"
#include "platform/arx/drawing/drawing_walk.h"
#include "platform/arx/drawing/record_draw.h"
#include "platform/arx/geometry/gi.h"

namespace kovra::arx {
namespace {

/// Where dimensions keep the points that they measure; never on paper.
constexpr std::string_view kUnplottedLayer = "Defpoints";

}  // namespace

KindCounts plotSpace(const AcDbDatabase& database, dxf::BlockNumber space, AcGiWorldDraw& context) {
  KindCounts missing;
  AcGiGeometry& geometry = context.geometry();
  DrawingWalk walk(database);
  const DrawingWalk::Visitor draw = [&](const DrawnLeaf& leaf) {
    if (readBytes(leaf.draft, {kEntityPart, 8}) == kUnplottedLayer) return true;
    context.subEntityTraits().setTrueColor(leaf.color);
    geometry.pushModelTransform(leaf.toWorld);
    const bool drawn = drawRecord(database, leaf.record, leaf.draft, geometry);
    geometry.popModelTransform();
    if (!drawn) ++missing[std::string(leaf.draft.typeName())];
    return true;
  };
  const dxf::Structure& structure = database.structure();
  for (dxf::RecordIndex record = structure.firstEntity(space); record != dxf::kNoRecord;
       record = structure.nextEntity(space, record))
    walk.entity(record, draw);
  return missing;
}

}  // namespace kovra::arx
