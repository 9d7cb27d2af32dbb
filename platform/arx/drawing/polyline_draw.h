// Chains of straight and bent segments, thin or wide.
#pragma once
#include <optional>
#include <vector>

#include "platform/arx/geometry/geometry.h"

class AcGiGeometry;

namespace kovra::arx {

/// A corner of a polyline and the segment that begins at it.
struct PolylineCorner {
  AcGePoint3d point;
  double bulge = 0;  ///< tangent of a quarter of the arc's angle, positive counter-clockwise
  double startWidth = 0;
  double endWidth = 0;
};

/// Draws the segments in the coordinates of the polyline's plane; those with a width as faces that
/// meet at the corners.
void drawPolyline(AcGiGeometry& geometry, std::vector<PolylineCorner> corners, bool closed);

/// The arc of a polyline's segment, in the plane of its ends.
struct BulgeArc {
  AcGePoint3d center;
  double radius = 0;
  double start = 0;  ///< radians
  double sweep = 0;  ///< radians, negative clockwise
};

/// Nothing for a straight segment or one without length.
std::optional<BulgeArc> bulgeArc(const AcGePoint3d& from, const AcGePoint3d& to, double bulge);

/// An open arc in the plane of the present coordinates; angles in radians.
void drawArc(AcGiGeometry& geometry, const AcGePoint3d& center, double radius, double start,
             double sweep);

}  // namespace kovra::arx
