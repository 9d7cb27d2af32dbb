#include "platform/arx/drawing/text_outline.h"

#include "platform/arx/database/database.h"
#include "platform/arx/drawing/text_draw.h"
#include "platform/arx/entities/mtext_lines.h"
#include "platform/arx/entities/text_groups.h"
#include "platform/arx/geometry/ocs.h"
#include "platform/dxf/record_store.h"

namespace kovra::arx {

std::vector<AcGePoint3d> textOutline(const AcDbDatabase& database, const dxf::RecordDraft& draft) {
  std::wstring text;
  const TextShape shape = readTextShape(database, draft, text);
  const AcGeVector3d normal = textNormal(draft);
  std::vector<AcGePoint3d> points;
  for (const AcGePoint3d& corner : textCorners(shape, placeText(shape)))
    points.push_back(ocsToWcs(corner, normal));
  points.push_back(points.front());
  return points;
}

std::vector<AcGePoint3d> mtextOutline(const AcDbDatabase& database, const dxf::RecordDraft& draft) {
  const MTextLayout place = layOutMText(draft, database.store().codec());
  const auto corner = [&](double along, double up) {
    return place.location + place.along * along + place.up * up;
  };
  const double right = place.left + place.width;
  const double bottom = place.top - place.height;
  const AcGePoint3d first = corner(place.left, bottom);
  return {first, corner(right, bottom), corner(right, place.top), corner(place.left, place.top),
          first};
}

}  // namespace kovra::arx
