#include "desktop/view/crossings.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>
#include <utility>

namespace kovra::desktop {
namespace {

constexpr double kTurn = 2 * std::numbers::pi;
/// What rounding may do to an angle, or to a share of a line.
constexpr double kRounding = 1e-12;

Spot operator+(Spot a, Spot b) {
  return {a.x + b.x, a.y + b.y};
}
Spot operator-(Spot a, Spot b) {
  return {a.x - b.x, a.y - b.y};
}
Spot operator*(Spot a, double factor) {
  return {a.x * factor, a.y * factor};
}
double dot(Spot a, Spot b) {
  return a.x * b.x + a.y * b.y;
}
double cross(Spot a, Spot b) {
  return a.x * b.y - a.y * b.x;
}

bool inPiece(double share) {
  return share >= -kRounding && share <= 1 + kRounding;
}

/// The coordinates in which an arc has the radius 1 about the origin.
class UnitCircle {
 public:
  explicit UnitCircle(const ArcPiece& arc) : arc_(arc), turn_(cross(arc.start, arc.quarter)) {}
  bool flat() const { return turn_ == 0; }
  Spot vector(Spot v) const {
    return {cross(v, arc_.quarter) / turn_, cross(arc_.start, v) / turn_};
  }
  Spot place(Spot p) const { return vector(p - arc_.center); }
  double angleOf(Spot p) const {
    const Spot at = place(p);
    return std::atan2(at.y, at.x);
  }

 private:
  const ArcPiece& arc_;
  double turn_;
};

/// The radius of an arc of a circle.
std::optional<double> radiusOf(const ArcPiece& arc) {
  const double first = std::hypot(arc.start.x, arc.start.y);
  const double second = std::hypot(arc.quarter.x, arc.quarter.y);
  constexpr double kShare = 1e-9;
  const bool round = std::fabs(first - second) <= kShare * first &&
                     std::fabs(dot(arc.start, arc.quarter)) <= kShare * first * first;
  return round ? std::optional(first) : std::nullopt;
}

void appendCircles(const ArcPiece& a, double radiusA, const ArcPiece& b, double radiusB,
                   std::vector<Spot>& places) {
  const Spot way = b.center - a.center;
  const double distance = std::hypot(way.x, way.y);
  if (distance == 0) return;
  const double along = (distance * distance + radiusA * radiusA - radiusB * radiusB) / distance / 2;
  const double square = radiusA * radiusA - along * along;
  // Circles that touch do so up to rounding.
  if (square < -kRounding * radiusA * radiusA) return;
  const double aside = std::sqrt(std::max(0.0, square));
  const Spot unit = way * (1 / distance);
  const Spot middle = a.center + unit * along;
  const Spot across = Spot{-unit.y, unit.x} * aside;
  const auto offer = [&](Spot place) {
    if (a.has(UnitCircle(a).angleOf(place)) && b.has(UnitCircle(b).angleOf(place)))
      places.push_back(place);
  };
  offer(middle + across);
  if (aside > 0) offer(middle - across);
}

/// Follows one arc and looks where it goes into or out of the other's circle.
void appendFollowed(const ArcPiece& a, const ArcPiece& b, std::vector<Spot>& places) {
  constexpr int kSteps = 128;
  constexpr int kHalvings = 60;
  const UnitCircle circle(b);
  const auto height = [&](double angle) {
    const Spot at = circle.place(a.at(angle));
    return dot(at, at) - 1;
  };
  double from = 0;
  double heightFrom = height(from);
  for (int i = 1; i <= kSteps; ++i) {
    double low = from;
    double high = from = a.sweep * i / kSteps;
    const double heightTo = height(from);
    const double heightLow = std::exchange(heightFrom, heightTo);
    if ((heightLow > 0) == (heightTo > 0)) continue;
    for (int n = 0; n < kHalvings; ++n) {
      const double middle = (low + high) / 2;
      ((height(middle) > 0) == (heightLow > 0) ? low : high) = middle;
    }
    const Spot place = a.at((low + high) / 2);
    if (b.has(circle.angleOf(place))) places.push_back(place);
  }
}

}  // namespace

Spot ArcPiece::at(double angle) const {
  return center + start * std::cos(angle) + quarter * std::sin(angle);
}

bool ArcPiece::has(double angle) const {
  double way = std::fmod(sweep < 0 ? -angle : angle, kTurn);
  if (way < 0) way += kTurn;
  const double most = std::fabs(sweep) + kRounding;
  return way <= most || way - kTurn >= -kRounding;
}

void appendCrossings(const LinePiece& a, const LinePiece& b, std::vector<Spot>& places) {
  const Spot p = a.to - a.from;
  const Spot q = b.to - b.from;
  const double turn = cross(p, q);
  if (turn == 0) return;
  const Spot way = b.from - a.from;
  const double onA = cross(way, q) / turn;
  const double onB = cross(way, p) / turn;
  if (inPiece(onA) && inPiece(onB)) places.push_back(a.from + p * onA);
}

void appendCrossings(const LinePiece& line, const ArcPiece& arc, std::vector<Spot>& places) {
  const UnitCircle circle(arc);
  if (circle.flat()) return;
  const Spot a = circle.place(line.from);
  const Spot b = circle.vector(line.to - line.from);
  const double length = dot(b, b);
  if (length == 0) return;
  // The foot of the perpendicular from the center, and how far the circle reaches beside it.
  const double foot = -dot(a, b) / length;
  const double square = 1 - dot(a + b * foot, a + b * foot);
  if (square < -kRounding) return;
  const double aside = std::sqrt(std::max(0.0, square) / length);
  const auto offer = [&](double share) {
    const Spot at = a + b * share;
    if (inPiece(share) && arc.has(std::atan2(at.y, at.x)))
      places.push_back(line.from + (line.to - line.from) * share);
  };
  offer(foot - aside);
  if (aside > 0) offer(foot + aside);
}

void appendCrossings(const ArcPiece& a, const ArcPiece& b, std::vector<Spot>& places) {
  if (UnitCircle(a).flat() || UnitCircle(b).flat()) return;
  const std::optional<double> radiusA = radiusOf(a);
  const std::optional<double> radiusB = radiusOf(b);
  if (radiusA && radiusB) return appendCircles(a, *radiusA, b, *radiusB, places);
  appendFollowed(a, b, places);
}

}  // namespace kovra::desktop
