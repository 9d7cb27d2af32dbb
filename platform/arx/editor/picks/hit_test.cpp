#include "platform/arx/editor/picks/hit_test.h"

#include <algorithm>
#include <cmath>

#include "platform/arx/database/database.h"
#include "platform/arx/database/entity_order.h"
#include "platform/arx/drawing/drawing_walk.h"
#include "platform/arx/editor/documents/documents.h"
#include "platform/arx/editor/documents/sysvars.h"
#include "platform/arx/editor/documents/view.h"
#include "platform/dxf/record_store.h"

namespace kovra::arx {
namespace {

bool shapeHit(const DrawnShape& shape, const AcGePoint3d& point, double reach) {
  if (shape.points.empty()) return false;
  if (shape.filled && insidePolygon(point, shape.points)) return true;
  if (shape.points.size() == 1)
    return std::hypot(point.x - shape.points[0].x, point.y - shape.points[0].y) <= reach;
  for (size_t i = 1; i < shape.points.size(); ++i)
    if (distanceToSegment(point, shape.points[i - 1], shape.points[i]) <= reach) return true;
  return false;
}

double pickReach(AcApDocument& document) {
  const Result<VariableValue> pixels = readVariable(document, L"PICKBOX");
  return (pixels ? pixels.value().integer : 3) * currentView(document).unitsPerPixel();
}

/// A rectangle along the axes.
struct Box {
  AcGePoint3d low;
  AcGePoint3d high;

  bool holds(const AcGePoint3d& p) const {
    return p.x >= low.x && p.x <= high.x && p.y >= low.y && p.y <= high.y;
  }
};

bool segmentTouches(const Box& box, const AcGePoint3d& a, const AcGePoint3d& b) {
  // Clips the segment against one pair of sides after the other.
  double from = 0;
  double to = 1;
  for (unsigned axis = 0; axis < 2; ++axis) {
    const double start = a[axis];
    const double along = b[axis] - start;
    if (along == 0) {
      if (start < box.low[axis] || start > box.high[axis]) return false;
      continue;
    }
    const double one = (box.low[axis] - start) / along;
    const double other = (box.high[axis] - start) / along;
    from = std::max(from, std::min(one, other));
    to = std::min(to, std::max(one, other));
  }
  return from <= to;
}

bool shapeTouches(const Box& box, const DrawnShape& shape) {
  if (!shape.points.empty() && box.holds(shape.points.front())) return true;
  for (size_t i = 1; i < shape.points.size(); ++i)
    if (segmentTouches(box, shape.points[i - 1], shape.points[i])) return true;
  return shape.filled && !shape.points.empty() && insidePolygon(box.low, shape.points);
}

/// How an entity lies to a box.
struct BoxRelation {
  bool drawn = false;
  bool inside = true;
  bool touched = false;
};

BoxRelation relationTo(const Box& box, DrawingWalk& walk, dxf::RecordIndex record) {
  BoxRelation relation;
  walk.entity(record, [&](const DrawnLeaf& leaf) {
    for (const DrawnShape& shape : walk.shapes(leaf)) {
      if (shape.points.empty()) continue;
      relation.drawn = true;
      relation.touched = relation.touched || shapeTouches(box, shape);
      relation.inside = relation.inside && std::all_of(shape.points.begin(), shape.points.end(),
                                                       [&](const auto& p) { return box.holds(p); });
    }
    return relation.inside || !relation.touched;
  });
  return relation;
}

/// Points on a shape that a pick may try: its middle if filled, the middles and ends of its pieces.
void appendCandidates(const DrawnShape& shape, std::vector<AcGePoint3d>& out) {
  const std::vector<AcGePoint3d>& points = shape.points;
  if (shape.filled && points.size() >= 4) {
    for (const double share : {0.5, 0.25, 0.75, 0.05, 0.95})
      out.push_back(points[0] + (points[2] - points[0]) * share);
  }
  for (size_t i = 1; i < points.size(); ++i)
    for (const double share : {0.5, 0.0, 0.2, 0.8, 1.0})
      out.push_back(points[i - 1] + (points[i] - points[i - 1]) * share);
  if (points.size() == 1) out.push_back(points.front());
}

constexpr size_t kMostCandidates = 400;

/// Where an entity, or what it contains, is drawn.
std::vector<AcGePoint3d> candidatesOf(AcApDocument& document, dxf::RecordIndex wanted) {
  std::vector<AcGePoint3d> candidates;
  DrawingWalk walk(*document.database());
  forEachEntity(*document.database(), [&](dxf::RecordIndex record) {
    walk.entity(record, [&](const DrawnLeaf& leaf) {
      const bool within = record == wanted || leaf.record == wanted ||
                          std::find(leaf.containers.begin(), leaf.containers.end(), wanted) !=
                              leaf.containers.end();
      if (within)
        for (const DrawnShape& shape : walk.shapes(leaf)) appendCandidates(shape, candidates);
      return candidates.size() < kMostCandidates;
    });
  });
  return candidates;
}

bool gives(const PickHit& hit, AcDbObjectId id) {
  return hit.entity == id || hit.leaf == id ||
         std::find(hit.containers.begin(), hit.containers.end(), id) != hit.containers.end();
}

}  // namespace

double distanceToSegment(const AcGePoint3d& point, const AcGePoint3d& a, const AcGePoint3d& b) {
  const double dx = b.x - a.x;
  const double dy = b.y - a.y;
  const double length = dx * dx + dy * dy;
  const double along =
      length == 0 ? 0
                  : std::clamp(((point.x - a.x) * dx + (point.y - a.y) * dy) / length, 0.0, 1.0);
  return std::hypot(point.x - a.x - along * dx, point.y - a.y - along * dy);
}

bool insidePolygon(const AcGePoint3d& point, const std::vector<AcGePoint3d>& corners) {
  bool inside = false;
  for (size_t i = 0, j = corners.size() - 1; i < corners.size(); j = i++) {
    const AcGePoint3d& a = corners[i];
    const AcGePoint3d& b = corners[j];
    if ((a.y > point.y) == (b.y > point.y)) continue;
    if (point.x < (b.x - a.x) * (point.y - a.y) / (b.y - a.y) + a.x) inside = !inside;
  }
  return inside;
}

std::optional<PickHit> pickAt(AcApDocument& document, const AcGePoint3d& point) {
  const AcDbDatabase& database = *document.database();
  const double reach = pickReach(document);
  std::optional<PickHit> hit;
  DrawingWalk walk(database);
  forEachEntity(database, [&](dxf::RecordIndex record) {
    walk.entity(record, [&](const DrawnLeaf& leaf) {
      const bool here = std::ranges::any_of(walk.shapes(leaf), [&](const DrawnShape& shape) {
        return shapeHit(shape, point, reach);
      });
      if (!here) return true;
      hit = PickHit{database.idOf(record), database.idOf(leaf.record), leaf.toWorld, {}};
      for (auto at = leaf.containers.rbegin(); at != leaf.containers.rend(); ++at)
        hit->containers.push_back(database.idOf(*at));
      return true;
    });
  });
  return hit;
}

std::optional<AcGePoint3d> pickPointOf(AcApDocument& document, AcDbObjectId id) {
  for (const AcGePoint3d& candidate : candidatesOf(document, id.index()))
    if (const std::optional<PickHit> hit = pickAt(document, candidate); hit && gives(*hit, id))
      return candidate;
  return std::nullopt;
}

std::vector<AcDbObjectId> entitiesInBox(AcApDocument& document, const AcGePoint3d& first,
                                        const AcGePoint3d& second, bool crossing) {
  const AcDbDatabase& database = *document.database();
  const Box box{{std::min(first.x, second.x), std::min(first.y, second.y), 0},
                {std::max(first.x, second.x), std::max(first.y, second.y), 0}};
  std::vector<AcDbObjectId> found;
  DrawingWalk walk(database);
  forEachEntity(database, [&](dxf::RecordIndex record) {
    const BoxRelation relation = relationTo(box, walk, record);
    if (relation.drawn && (crossing ? relation.touched : relation.inside))
      found.push_back(database.idOf(record));
  });
  return found;
}

std::vector<AcDbObjectId> allEntities(AcApDocument& document) {
  const AcDbDatabase& database = *document.database();
  std::vector<AcDbObjectId> found;
  DrawingWalk walk(database);
  forEachEntity(database, [&](dxf::RecordIndex record) {
    if (!walk.isFrozen(record)) found.push_back(database.idOf(record));
  });
  return found;
}

}  // namespace kovra::arx
