#include "desktop/view/snaps.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>
#include <string>

#include "desktop/view/crossings.h"
#include "platform/arx/database/database.h"
#include "platform/arx/database/record_edit.h"
#include "platform/arx/drawing/text_draw.h"
#include "platform/arx/entities/record_geometry.h"
#include "platform/arx/geometry/ocs.h"
#include "platform/dxf/structure.h"
#include "platform/win/base/run_settings.h"

namespace kovra::desktop {
namespace {

using dxf::RecordKind;

/// Where so much meets, one thing is as good as another.
constexpr std::size_t kMostEntities = 200;
constexpr std::size_t kMostPieces = 60;

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

ArcPiece arcOf(const Spot* points) {
  return {points[0], points[1], points[2], points[3].x};
}

/// `smooth`: the points of a chain aren't corners, only its ends are ends.
void offerEnds(const Shapes& shapes, const Curve& curve, bool smooth, Search& search) {
  const Spot* points = &shapes.points[curve.firstPoint];
  if (curve.kind != CurveKind::kArc) {
    const std::uint32_t step = smooth ? std::max(1U, curve.points - 1) : 1;
    for (std::uint32_t i = 0; i < curve.points; i += step) search.offer(SnapKind::kEnd, points[i]);
    return;
  }
  constexpr double kWhole = 2 * std::numbers::pi - 1e-9;
  const ArcPiece arc = arcOf(points);
  if (std::fabs(arc.sweep) >= kWhole) return;
  search.offer(SnapKind::kEnd, arc.at(0));
  search.offer(SnapKind::kEnd, arc.at(arc.sweep));
}

/// The lines and arcs of some entities near a place.
class Pieces {
 public:
  explicit Pieces(const Box& near) : near_(near) {}

  void add(const Shapes& shapes, const Curve& curve) {
    const Spot* points = &shapes.points[curve.firstPoint];
    if (curve.kind == CurveKind::kArc) {
      if (arcs_.size() < kMostPieces) arcs_.push_back(arcOf(points));
      return;
    }
    for (std::uint32_t p = 1; p < curve.points && lines_.size() < kMostPieces; ++p) {
      Box box;
      box.add(points[p - 1]);
      box.add(points[p]);
      if (box.touches(near_)) lines_.push_back({points[p - 1], points[p]});
    }
  }
  std::vector<Spot> crossings() const {
    std::vector<Spot> places;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
      for (std::size_t j = 0; j < i; ++j) appendCrossings(lines_[i], lines_[j], places);
      for (const ArcPiece& arc : arcs_) appendCrossings(lines_[i], arc, places);
    }
    for (std::size_t i = 0; i < arcs_.size(); ++i)
      for (std::size_t j = 0; j < i; ++j) appendCrossings(arcs_[i], arcs_[j], places);
    return places;
  }

 private:
  Box near_;
  std::vector<LinePiece> lines_;
  std::vector<ArcPiece> arcs_;
};

}  // namespace

std::wstring_view nameOf(SnapKind kind) {
  const bool japanese = win::runSettings().language == win::Language::japanese;
  switch (kind) {
    case SnapKind::kEnd:
      return japanese ? L"端点" : L"Endpoint";
    case SnapKind::kInsertion:
      return japanese ? L"挿入基点" : L"Insertion";
    case SnapKind::kIntersection:
      return japanese ? L"交点" : L"Intersection";
  }
  return {};
}

std::optional<Snap> snapAt(const DisplayList& list, const AcDbDatabase& database, Spot place,
                           double aperture) {
  const Box near = Box{place.x, place.y, place.x, place.y}.grownBy(aperture);
  Search search(place, aperture);
  Pieces pieces(near);
  std::size_t entities = 0;
  list.visit(near, [&](const Chunk& chunk, const Shown& shown) {
    if (++entities > kMostEntities) return;
    offerInsertions(database, shown.record, search);
    const bool smooth = database.store().kind(shown.record) == RecordKind::kSpline;
    const Curve* curves = chunk.shapes.curves.data() + shown.range.firstCurve;
    for (const Curve& curve : std::span(curves, shown.range.curves)) {
      offerEnds(chunk.shapes, curve, smooth, search);
      pieces.add(chunk.shapes, curve);
    }
  });
  for (const Spot crossing : pieces.crossings()) search.offer(SnapKind::kIntersection, crossing);
  return search.snap();
}

}  // namespace kovra::desktop
