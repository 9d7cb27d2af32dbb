#include "platform/arx/drawing/polyline_draw.h"

#include <cmath>
#include <numbers>

#include "platform/arx/geometry/gi.h"

namespace kovra::arx {
namespace {

struct Segment {
  PolylineCorner from;
  AcGePoint3d to;
  std::optional<BulgeArc> arc;
  AcGeVector3d startNormal;  ///< to the left of the way, length 1
  AcGeVector3d endNormal;

  bool isWide() const { return from.startWidth > 0 || from.endWidth > 0; }
};

AcGeVector3d unitAt(double angle) {
  return {std::cos(angle), std::sin(angle), 0};
}

Segment segmentBetween(const PolylineCorner& from, const AcGePoint3d& to) {
  Segment segment{from, to, bulgeArc(from.point, to, from.bulge), {}, {}};
  if (const auto& arc = segment.arc) {
    // The left side of an arc that turns counter-clockwise is its inner one.
    const double inward = arc->sweep > 0 ? -1 : 1;
    segment.startNormal = unitAt(arc->start) * inward;
    segment.endNormal = unitAt(arc->start + arc->sweep) * inward;
  } else {
    const AcGeVector3d along = (to - from.point).normal();
    segment.startNormal = segment.endNormal = {-along.y, along.x, 0};
  }
  return segment;
}

/// Where the sides of a segment end, for a width of 2: where those of its neighbour begin, so that
/// both meet at the corner. Sharp corners, and those at arcs or between different widths, are cut
/// off.
AcGeVector3d sideAt(const Segment& segment, bool atStart, const Segment* neighbour) {
  constexpr double kSharpest = -0.8;
  const AcGeVector3d own = atStart ? segment.startNormal : segment.endNormal;
  if (neighbour == nullptr || segment.arc || neighbour->arc) return own;
  const double width = atStart ? segment.from.startWidth : segment.from.endWidth;
  const double other = atStart ? neighbour->from.endWidth : neighbour->from.startWidth;
  const AcGeVector3d next = atStart ? neighbour->endNormal : neighbour->startNormal;
  const double turn = own.dotProduct(next);
  return width == other && turn > kSharpest ? (own + next) / (1 + turn) : own;
}

void drawWide(AcGiGeometry& geometry, const Segment& segment, const AcGeVector3d& start,
              const AcGeVector3d& end) {
  constexpr double kPieceAngle = std::numbers::pi / 32;
  std::vector<AcGePoint3d> left = {segment.from.point + start * (segment.from.startWidth / 2)};
  std::vector<AcGePoint3d> right = {segment.from.point - start * (segment.from.startWidth / 2)};
  if (const auto& arc = segment.arc) {
    const int pieces = static_cast<int>(std::ceil(std::fabs(arc->sweep) / kPieceAngle));
    for (int i = 1; i < pieces; ++i) {
      const double share = static_cast<double>(i) / pieces;
      const AcGeVector3d outward = unitAt(arc->start + arc->sweep * share);
      const AcGePoint3d middle = arc->center + outward * arc->radius;
      const double half =
          (segment.from.startWidth * (1 - share) + segment.from.endWidth * share) / 2;
      const double inward = arc->sweep > 0 ? -half : half;
      left.push_back(middle + outward * inward);
      right.push_back(middle - outward * inward);
    }
  }
  left.push_back(segment.to + end * (segment.from.endWidth / 2));
  right.push_back(segment.to - end * (segment.from.endWidth / 2));
  left.insert(left.end(), right.rbegin(), right.rend());
  geometry.polygon(static_cast<Adesk::UInt32>(left.size()), left.data());
}

void drawChain(AcGiGeometry& geometry, const std::vector<AcGePoint3d>& points) {
  if (points.size() > 1)
    geometry.polyline(static_cast<Adesk::UInt32>(points.size()), points.data());
}

}  // namespace

void drawArc(AcGiGeometry& geometry, const AcGePoint3d& center, double radius, double start,
             double sweep) {
  geometry.circularArc(center, radius, AcGeVector3d::kZAxis, unitAt(start), sweep);
}

void drawPolyline(AcGiGeometry& geometry, std::vector<PolylineCorner> corners, bool closed) {
  if (corners.size() == 1) geometry.polyline(1, &corners.front().point);
  if (corners.size() < 2) return;
  if (closed) corners.push_back(corners.front());
  std::vector<Segment> segments;
  for (std::size_t i = 1; i < corners.size(); ++i)
    segments.push_back(segmentBetween(corners[i - 1], corners[i].point));
  std::vector<AcGePoint3d> straight = {corners.front().point};
  for (std::size_t i = 0; i < segments.size(); ++i) {
    const Segment& segment = segments[i];
    if (!segment.isWide() && !segment.arc) {
      straight.push_back(segment.to);
      continue;
    }
    drawChain(geometry, straight);
    straight = {segment.to};
    if (!segment.isWide()) {
      drawArc(geometry, segment.arc->center, segment.arc->radius, segment.arc->start,
              segment.arc->sweep);
      continue;
    }
    const Segment* before = i > 0 ? &segments[i - 1] : closed ? &segments.back() : nullptr;
    const bool last = i + 1 == segments.size();
    const Segment* behind = !last ? &segments[i + 1] : closed ? &segments.front() : nullptr;
    drawWide(geometry, segment, sideAt(segment, true, before), sideAt(segment, false, behind));
  }
  drawChain(geometry, straight);
}

std::optional<BulgeArc> bulgeArc(const AcGePoint3d& from, const AcGePoint3d& to, double bulge) {
  const double chord = std::hypot(to.x - from.x, to.y - from.y);
  if (bulge == 0 || chord == 0) return std::nullopt;
  BulgeArc arc;
  arc.sweep = 4 * std::atan(bulge);
  const double radius = chord / (2 * std::sin(arc.sweep / 2));
  const double toCenter = radius * std::cos(arc.sweep / 2);
  arc.center = {(from.x + to.x) / 2 - toCenter * (to.y - from.y) / chord,
                (from.y + to.y) / 2 + toCenter * (to.x - from.x) / chord, from.z};
  arc.radius = std::fabs(radius);
  arc.start = std::atan2(from.y - arc.center.y, from.x - arc.center.x);
  return arc;
}

}  // namespace kovra::arx
