#include "platform/arx/geometry/spline_points.h"

#include <algorithm>
#include <cmath>

namespace kovra::arx {
namespace {

constexpr int kHighestDegree = 25;
constexpr int kPointsPerPiece = 8;

/// A control point times its weight, and the weight.
struct Weighted {
  AcGeVector3d sum;
  double weight = 1;
};

bool fits(const Spline& s) {
  const std::size_t count = s.controls.size();
  return s.degree >= 1 && s.degree <= kHighestDegree &&
         count > static_cast<std::size_t>(s.degree) &&
         s.knots.size() == count + static_cast<std::size_t>(s.degree) + 1 &&
         (s.weights.empty() || s.weights.size() == count) &&
         std::is_sorted(s.knots.begin(), s.knots.end());
}

/// De Boor's algorithm: the curve at `t`, which lies in the piece that begins at `knot`.
AcGePoint3d pointOf(const Spline& s, std::size_t knot, double t) {
  const auto degree = static_cast<std::size_t>(s.degree);
  std::vector<Weighted> d(degree + 1);
  for (std::size_t i = 0; i <= degree; ++i) {
    const std::size_t control = knot - degree + i;
    d[i].weight = s.weights.empty() ? 1 : s.weights[control];
    d[i].sum = s.controls[control].asVector() * d[i].weight;
  }
  for (std::size_t level = 1; level <= degree; ++level)
    for (std::size_t i = degree; i >= level; --i) {
      const double from = s.knots[knot - degree + i];
      const double to = s.knots[knot + 1 + i - level];
      const double share = to > from ? (t - from) / (to - from) : 0;
      d[i].sum = d[i - 1].sum * (1 - share) + d[i].sum * share;
      d[i].weight = d[i - 1].weight * (1 - share) + d[i].weight * share;
    }
  const Weighted& end = d[degree];
  return end.weight != 0 ? (end.sum / end.weight).asPoint() : end.sum.asPoint();
}

}  // namespace

std::vector<AcGePoint3d> splinePoints(const Spline& spline) {
  std::vector<AcGePoint3d> points;
  if (!fits(spline)) return points;
  const auto degree = static_cast<std::size_t>(spline.degree);
  for (std::size_t knot = degree; knot < spline.controls.size(); ++knot) {
    const double from = spline.knots[knot];
    const double to = spline.knots[knot + 1];
    if (to <= from) continue;
    for (int i = points.empty() ? 0 : 1; i <= kPointsPerPiece; ++i)
      points.push_back(pointOf(spline, knot, from + (to - from) * i / kPointsPerPiece));
  }
  return points;
}

}  // namespace kovra::arx
