#include "desktop/view/snaps.h"

#include <array>
#include <cmath>
#include <numbers>
#include <string>

#include "platform/arx/database/database.h"
#include "platform/arx/database/record_edit.h"
#include "platform/arx/drawing/text_draw.h"
#include "platform/arx/entities/record_geometry.h"
#include "platform/arx/geometry/ocs.h"
#include "platform/dxf/structure.h"

namespace kovra::desktop {
namespace {

using dxf::RecordKind;

/// Where so much meets, one thing is as good as another.
constexpr std::size_t kMostEntities = 200;
constexpr std::size_t kMostPieces = 60;

struct Piece {
  Spot from;
  Spot to;
};

/// The best point so far.
class Search {
 public:
  Search(Spot place, double aperture) : place_(place), best_(aperture) {}

  /// Points that were offered earlier win over later ones in the same place.
  void offer(SnapKind kind, const AcGePoint3d& point) {
    const double distance = std::hypot(point.x - place_.x, point.y - place_.y);
    if (!(distance < best_)) return;
    constexpr double kNoticeable = 1e-9;
    if (snap_ && best_ - distance < kNoticeable * (1 + std::fabs(point.x) + std::fabs(point.y)))
      return;
    best_ = distance;
    snap_ = Snap{kind, point};
  }
  void offer(SnapKind kind, Spot spot) { offer(kind, AcGePoint3d(spot.x, spot.y, 0)); }
  const std::optional<Snap>& snap() const { return snap_; }

 private:
  Spot place_;
  double best_;
  std::optional<Snap> snap_;
};

/// An insertion point as group 10 or, of an aligned text, 11 gives it.
std::optional<AcGePoint3d> insertionPoint(const AcDbDatabase& database,
                                          const dxf::RecordDraft& draft) {
  const AcGeMatrix3d plane = arx::ocsToWcs(arx::entityNormal(draft));
  switch (draft.kind()) {
    case RecordKind::kText:
    case RecordKind::kAttrib:
    case RecordKind::kAttDef: {
      std::wstring text;
      const arx::TextShape shape = arx::readTextShape(database, draft, text);
      const bool aligned = arx::usesAlignmentPoint(shape.horizontal, shape.verticalMode);
      return AcGePoint3d(aligned ? shape.alignment : shape.position).transformBy(plane);
    }
    case RecordKind::kInsert: {
      const auto at = arx::readPoint(draft, {arx::kReferencePart, 10});
      if (!at) return std::nullopt;
      return AcGePoint3d(*at).transformBy(plane);
    }
    case RecordKind::kMText:
      return arx::readPoint(draft, {"AcDbMText", 10});
    default:
      return std::nullopt;
  }
}

void offerInsertions(const AcDbDatabase& database, dxf::RecordIndex record, Search& search) {
  const dxf::Structure& structure = database.structure();
  dxf::RecordDraft draft;
  const auto offer = [&](dxf::RecordIndex one) {
    database.store().load(one, draft);
    if (const auto point = insertionPoint(database, draft))
      search.offer(SnapKind::kInsertion, *point);
  };
  offer(record);
  for (dxf::RecordIndex attribute = structure.firstAttribute(record); attribute != dxf::kNoRecord;
       attribute = structure.nextAttribute(attribute))
    offer(attribute);
}

Spot onArc(const Spot* arc, double angle) {
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  return {arc[0].x + arc[1].x * c + arc[2].x * s, arc[0].y + arc[1].y * c + arc[2].y * s};
}

void offerEnds(const Shapes& shapes, const Curve& curve, Search& search) {
  const Spot* points = &shapes.points[curve.firstPoint];
  if (curve.kind != CurveKind::kArc) {
    for (std::uint32_t i = 0; i < curve.points; ++i) search.offer(SnapKind::kEnd, points[i]);
    return;
  }
  constexpr double kWhole = 2 * std::numbers::pi - 1e-9;
  if (std::fabs(points[3].x) >= kWhole) return;
  search.offer(SnapKind::kEnd, onArc(points, 0));
  search.offer(SnapKind::kEnd, onArc(points, points[3].x));
}

void offerCrossing(const Piece& a, const Piece& b, Search& search) {
  const Spot p{a.to.x - a.from.x, a.to.y - a.from.y};
  const Spot q{b.to.x - b.from.x, b.to.y - b.from.y};
  const double turn = p.x * q.y - p.y * q.x;
  if (turn == 0) return;
  const Spot way{b.from.x - a.from.x, b.from.y - a.from.y};
  const double onA = (way.x * q.y - way.y * q.x) / turn;
  const double onB = (way.x * p.y - way.y * p.x) / turn;
  if (onA < 0 || onA > 1 || onB < 0 || onB > 1) return;
  search.offer(SnapKind::kIntersection, Spot{a.from.x + p.x * onA, a.from.y + p.y * onA});
}

/// In coordinates in which the arc has the radius 1 about the origin.
void offerCrossing(const Piece& piece, const Spot* arc, Search& search) {
  const double turn = arc[1].x * arc[2].y - arc[1].y * arc[2].x;
  if (turn == 0) return;
  const auto inArc = [&](double x, double y) {
    return Spot{(x * arc[2].y - y * arc[2].x) / turn, (y * arc[1].x - x * arc[1].y) / turn};
  };
  const Spot a = inArc(piece.from.x - arc[0].x, piece.from.y - arc[0].y);
  const Spot b = inArc(piece.to.x - piece.from.x, piece.to.y - piece.from.y);
  const double length = b.x * b.x + b.y * b.y;
  const double half = a.x * b.x + a.y * b.y;
  const double rest = half * half - length * (a.x * a.x + a.y * a.y - 1);
  if (length == 0 || rest < 0) return;
  for (const double sign : {-1.0, 1.0}) {
    const double t = (-half + sign * std::sqrt(rest)) / length;
    double angle = std::atan2(a.y + t * b.y, a.x + t * b.x);
    const double sweep = arc[3].x;
    if (sweep > 0 && angle < 0) angle += 2 * std::numbers::pi;
    if (sweep < 0 && angle > 0) angle -= 2 * std::numbers::pi;
    if (t >= 0 && t <= 1 && std::fabs(angle) <= std::fabs(sweep))
      search.offer(SnapKind::kIntersection, onArc(arc, angle));
  }
}

}  // namespace

std::optional<Snap> snapAt(const DisplayList& list, const AcDbDatabase& database, Spot place,
                           double aperture) {
  const Box near = Box{place.x, place.y, place.x, place.y}.grownBy(aperture);
  Search search(place, aperture);
  std::vector<Piece> pieces;
  std::vector<const Spot*> arcs;
  std::size_t entities = 0;
  list.visit(near, [&](const Chunk& chunk, const Shown& shown) {
    if (++entities > kMostEntities) return;
    offerInsertions(database, shown.record, search);
    for (std::uint32_t i = shown.range.firstCurve; i < shown.range.firstCurve + shown.range.curves;
         ++i) {
      const Curve& curve = chunk.shapes.curves[i];
      const Spot* points = &chunk.shapes.points[curve.firstPoint];
      offerEnds(chunk.shapes, curve, search);
      if (curve.kind == CurveKind::kArc && arcs.size() < kMostPieces) arcs.push_back(points);
      if (curve.kind == CurveKind::kArc) continue;
      for (std::uint32_t p = 1; p < curve.points && pieces.size() < kMostPieces; ++p) {
        Box box;
        box.add(points[p - 1]);
        box.add(points[p]);
        if (box.touches(near)) pieces.push_back({points[p - 1], points[p]});
      }
    }
  });
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) offerCrossing(pieces[i], pieces[j], search);
    for (const Spot* arc : arcs) offerCrossing(pieces[i], arc, search);
  }
  return search.snap();
}

}  // namespace kovra::desktop
