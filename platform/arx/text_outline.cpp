#include "platform/arx/text_outline.h"

#include <cmath>

#include "platform/arx/database.h"
#include "platform/arx/mtext_lines.h"
#include "platform/arx/ocs.h"
#include "platform/arx/text_draw.h"
#include "platform/arx/text_groups.h"
#include "platform/dxf/record_store.h"

namespace kovra::arx {
namespace {

/// A box along two directions, from its corner at the lower left.
std::vector<AcGePoint3d> box(const AcGePoint3d& origin, const AcGeVector3d& along,
                             const AcGeVector3d& up, double left, double right, double bottom,
                             double top) {
  const AcGePoint3d first = origin + along * left + up * bottom;
  return {first, origin + along * right + up * bottom, origin + along * right + up * top,
          origin + along * left + up * top, first};
}

}  // namespace

std::vector<AcGePoint3d> textOutline(const AcDbDatabase& database, const dxf::RecordDraft& draft) {
  std::wstring text;
  const TextShape shape = readTextShape(database, draft, text);
  const TextPlacement place = placeText(shape);
  AcGeVector3d along(std::cos(place.rotation), std::sin(place.rotation), 0);
  AcGeVector3d up(-along.y, along.x, 0);
  if (shape.mirroredInX && !isBetweenPoints(shape)) along.negate();
  if (shape.mirroredInY) up.negate();
  std::vector<AcGePoint3d> points =
      box(place.position, along, up, 0, place.width, place.bottom, place.top);
  const AcGeVector3d normal = textNormal(draft);
  for (AcGePoint3d& point : points) point = ocsToWcs(point, normal);
  return points;
}

std::vector<AcGePoint3d> mtextOutline(const AcDbDatabase& database, const dxf::RecordDraft& draft) {
  const MTextLayout place = layOutMText(draft, database.store().codec());
  return box(place.location, place.along, place.up, place.left, place.left + place.width,
             place.top - place.height, place.top);
}

}  // namespace kovra::arx
