// What a record draws, without opening its object.
#pragma once
#include <cstdint>
#include <optional>

#include "platform/arx/geometry.h"
#include "platform/dxf/record_draft.h"
#include "platform/dxf/record_kind.h"

class AcDbDatabase;
class AcGiGeometry;

namespace kovra::arx {

/// Draws the record in the coordinates of its block or space. `draft` must be the record's. False
/// for a kind that it doesn't draw; block references and dimensions are among them: what they show
/// are the entities of a block (see drawing_walk.h).
bool drawRecord(const AcDbDatabase& database, dxf::RecordIndex record,
                const dxf::RecordDraft& draft, AcGiGeometry& geometry);

/// The arc of a polyline's segment, in the plane of its ends.
struct BulgeArc {
  AcGePoint3d center;
  double radius = 0;
  double start = 0;  ///< radians
  double sweep = 0;  ///< radians, negative clockwise
};

/// `bulge` is the tangent of a quarter of the arc's angle, positive counter-clockwise. Nothing for
/// a straight segment or one without length.
std::optional<BulgeArc> bulgeArc(const AcGePoint3d& from, const AcGePoint3d& to, double bulge);

}  // namespace kovra::arx
