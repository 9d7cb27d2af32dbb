#include "platform/arx/geometry/gi.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace {

/// For a context whose pictures have no colors.
class NoTraits : public AcGiSubEntityTraits {
 public:
  void setColor(Adesk::UInt16) override {}
  void setTrueColor(const AcCmEntityColor&) override {}
};

}  // namespace

Adesk::Boolean AcGiGeometry::polygon(Adesk::UInt32 count, const AcGePoint3d* points) const {
  if (count == 0) return true;
  std::vector<AcGePoint3d> closed(points, points + count);
  closed.push_back(points[0]);
  return polyline(count + 1, closed.data());
}

// In chords, for contexts that have no curves.
Adesk::Boolean AcGiGeometry::circularArc(const AcGePoint3d& center, double radius,
                                         const AcGeVector3d& normal,
                                         const AcGeVector3d& startVector, double sweepAngle,
                                         AcGiArcType) const {
  constexpr double kTurn = 2 * std::numbers::pi;
  constexpr int kChordsPerTurn = 64;
  const AcGeVector3d u = startVector.normal() * radius;
  const AcGeVector3d v = normal.normal().crossProduct(u);
  const double turns = std::min(std::fabs(sweepAngle) / kTurn, 1.0);
  const int chords = std::max(2, static_cast<int>(std::ceil(turns * kChordsPerTurn)));
  std::vector<AcGePoint3d> points;
  for (int i = 0; i <= chords; ++i) {
    const double angle = sweepAngle * i / chords;
    points.push_back(center + u * std::cos(angle) + v * std::sin(angle));
  }
  return polyline(static_cast<Adesk::UInt32>(points.size()), points.data());
}

Adesk::Boolean AcGiGeometry::circle(const AcGePoint3d& center, double radius,
                                    const AcGeVector3d& normal) const {
  return circularArc(center, radius, normal, normal.perpVector(), 2 * std::numbers::pi);
}

AcGiSubEntityTraits& AcGiWorldDraw::subEntityTraits() const {
  static NoTraits none;
  return none;
}

namespace kovra::arx {

Adesk::Boolean TransformedGeometry::pushModelTransform(const AcGeMatrix3d& matrix) {
  outer_.push_back(toWorld_);
  toWorld_ = toWorld_ * matrix;
  return true;
}

Adesk::Boolean TransformedGeometry::popModelTransform() {
  if (outer_.empty()) return false;
  toWorld_ = outer_.back();
  outer_.pop_back();
  return true;
}

}  // namespace kovra::arx
