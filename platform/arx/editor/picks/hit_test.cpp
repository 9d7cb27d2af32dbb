#include "platform/arx/editor/picks/hit_test.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <span>

#include "platform/arx/database/database.h"
#include "platform/arx/database/entity_order.h"
#include "platform/arx/drawing/drawing_walk.h"
#include "platform/arx/editor/documents/documents.h"
#include "platform/arx/editor/documents/sysvars.h"
#include "platform/arx/editor/documents/view.h"
#include "platform/arx/editor/prompts/prompt.h"
#include "platform/dxf/record_store.h"
#include "platform/win/base/wide_text.h"

namespace kovra::arx {
namespace {

EntityIndex* entityIndex = nullptr;

std::optional<std::vector<dxf::RecordIndex>> knownNear(const AcApDocument& document,
                                                       const AcDbExtents& box) {
  return entityIndex != nullptr ? entityIndex->entitiesIn(document, box) : std::nullopt;
}

/// What a search in a box has to look at.
std::vector<dxf::RecordIndex> entitiesToSearch(const AcApDocument& document,
                                               const AcDbExtents& box) {
  if (auto near = knownNear(document, box)) return std::move(*near);
  std::vector<dxf::RecordIndex> all;
  forEachEntity(*document.database(), [&](dxf::RecordIndex record) { all.push_back(record); });
  return all;
}

PickHit hitOf(const AcDbDatabase& database, const DrawnLeaf& leaf) {
  const dxf::RecordIndex entity = leaf.containers.empty() ? leaf.record : leaf.containers.front();
  PickHit hit{database.idOf(entity), database.idOf(leaf.record), leaf.toWorld, {}};
  for (auto at = leaf.containers.rbegin(); at != leaf.containers.rend(); ++at)
    hit.containers.push_back(database.idOf(*at));
  return hit;
}

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
  // Of the box of a whole block, which was rounded otherwise than its points are: neither answer
  // holds near the sides, nor for a box that isn't of numbers.
  bool surelyHolds(const AcDbExtents& other) const {
    const AcGeVector3d rounding = roundingOf(other);
    return holds(other.minPoint() - rounding) && holds(other.maxPoint() + rounding);
  }
  bool surelyMisses(const AcDbExtents& other) const {
    const AcGeVector3d rounding = roundingOf(other);
    const AcGePoint3d from = other.minPoint() - rounding;
    const AcGePoint3d to = other.maxPoint() + rounding;
    return from.x > high.x || to.x < low.x || from.y > high.y || to.y < low.y;
  }

 private:
  static AcGeVector3d roundingOf(const AcDbExtents& other) {
    constexpr double kShare = 1e-9;
    const AcGePoint3d from = other.minPoint();
    const AcGePoint3d to = other.maxPoint();
    return {kShare * std::max(std::fabs(from.x), std::fabs(to.x)),
            kShare * std::max(std::fabs(from.y), std::fabs(to.y)), 0};
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

  void add(bool isInside, bool isTouched) {
    drawn = true;
    inside = inside && isInside;
    touched = touched || isTouched;
  }
};

/// Looks no further than the answer needs that is asked for.
BoxRelation relationTo(const Box& box, DrawingWalk& walk, dxf::RecordIndex record, bool crossing) {
  BoxRelation relation;
  const auto isOpen = [&] { return crossing ? !relation.touched : relation.inside; };
  const DrawingWalk::Visitor visit = [&](const DrawnLeaf& leaf) {
    for (const DrawnShape& shape : walk.shapes(leaf))
      if (!shape.points.empty())
        relation.add(std::ranges::all_of(shape.points, [&](const auto& p) { return box.holds(p); }),
                     shapeTouches(box, shape));
    return isOpen();
  };
  const bool whole = walk.entity(record, visit, [&](const DrawnCopies& copies) {
    const bool inside = box.surelyHolds(copies.box);
    if (!inside && !box.surelyMisses(copies.box)) return Way::kInto;
    relation.add(inside, inside);
    return isOpen() ? Way::kPast : Way::kEnd;
  });
  relation.inside = relation.inside && whole;
  return relation;
}

/// The attributes of a block reference that a box takes.
void appendAttributes(const Box& box, DrawingWalk& walk, const AcDbDatabase& database,
                      dxf::RecordIndex reference, bool crossing, std::vector<AcDbObjectId>& found) {
  const dxf::RecordIndex first = database.structure().firstAttribute(reference);
  if (first == dxf::kNoRecord) return;
  std::map<dxf::RecordIndex, BoxRelation> relations;
  const DrawingWalk::Visitor visit = [&](const DrawnLeaf& leaf) {
    if (database.store().kind(leaf.record) != dxf::RecordKind::kAttrib) return true;
    for (const DrawnShape& shape : walk.shapes(leaf))
      if (!shape.points.empty())
        relations[leaf.record].add(
            std::ranges::all_of(shape.points, [&](const auto& p) { return box.holds(p); }),
            shapeTouches(box, shape));
    return true;
  };
  walk.entity(reference, visit, [](const DrawnCopies&) { return Way::kPast; });
  for (dxf::RecordIndex attribute = first; attribute != dxf::kNoRecord;
       attribute = database.structure().nextAttribute(attribute)) {
    const BoxRelation& relation = relations[attribute];
    if (relation.drawn && (crossing ? relation.touched : relation.inside))
      found.push_back(database.idOf(attribute));
  }
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
std::vector<AcGePoint3d> candidatesOf(const AcDbDatabase& database, dxf::RecordIndex wanted) {
  std::vector<AcGePoint3d> candidates;
  DrawingWalk walk(database, currentSpace(database), Showing::kScreen);
  forEachEntity(database, [&](dxf::RecordIndex record) {
    if (candidates.size() >= kMostCandidates) return;
    walk.entity(record, [&](const DrawnLeaf& leaf) {
      const bool within = record == wanted || leaf.record == wanted ||
                          std::ranges::find(leaf.containers, wanted) != leaf.containers.end();
      if (within)
        for (const DrawnShape& shape : walk.shapes(leaf)) appendCandidates(shape, candidates);
      return candidates.size() < kMostCandidates;
    });
  });
  return candidates;
}

/// What a pick at each of some points gives, and what wasn't searched for it.
struct Picks {
  std::vector<std::optional<PickHit>> hits;
  std::string unsearched;
};

Picks picksAt(AcApDocument& document, std::span<const AcGePoint3d> points) {
  const AcDbDatabase& database = *document.database();
  const double reach = pickReach(document);
  Picks picks;
  picks.hits.resize(points.size());
  const auto around = [&](const AcGePoint3d& p) {
    return Box{{p.x - reach, p.y - reach, 0}, {p.x + reach, p.y + reach, 0}};
  };
  AcDbExtents searched;
  for (const AcGePoint3d& p : points) {
    searched.addPoint(around(p).low);
    searched.addPoint(around(p).high);
  }
  const std::vector<dxf::RecordIndex> entities = entitiesToSearch(document, searched);
  DrawingWalk walk(database, entities, Showing::kScreen);
  const DrawingWalk::Visitor visit = [&](const DrawnLeaf& leaf) {
    const std::vector<DrawnShape>& shapes = walk.shapes(leaf);
    for (std::size_t i = 0; i < points.size(); ++i) {
      const auto hits = [&](const DrawnShape& s) { return shapeHit(s, points[i], reach); };
      if (std::ranges::any_of(shapes, hits)) picks.hits[i] = hitOf(database, leaf);
    }
    return true;
  };
  const DrawingWalk::Approach approach = [&](const DrawnCopies& copies) {
    const auto isNear = [&](const auto& p) { return !around(p).surelyMisses(copies.box); };
    return std::ranges::any_of(points, isNear) ? Way::kInto : Way::kPast;
  };
  for (const dxf::RecordIndex entity : entities) walk.entity(entity, visit, approach);
  picks.unsearched = walk.unfinished();
  return picks;
}

void sayUnsearched(const std::string& entities) {
  if (!entities.empty()) showMessage(L"Searched in part: " + win::fromUtf8(entities));
}

bool gives(const PickHit& hit, AcDbObjectId id) {
  return hit.entity == id || hit.leaf == id ||
         std::find(hit.containers.begin(), hit.containers.end(), id) != hit.containers.end();
}

}  // namespace

void setEntityIndex(EntityIndex* index) {
  entityIndex = index;
}

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
  Picks picks = picksAt(document, {&point, 1});
  sayUnsearched(picks.unsearched);
  return std::move(picks.hits.front());
}

std::optional<PickHit> hoveredAt(AcApDocument& document, const AcGePoint3d& point) {
  AcDbExtents place;
  place.addPoint(point);
  if (!knownNear(document, place)) return std::nullopt;
  return std::move(picksAt(document, {&point, 1}).hits.front());
}

std::optional<AcGePoint3d> pickPointOf(AcApDocument& document, AcDbObjectId id) {
  const std::vector<AcGePoint3d> candidates = candidatesOf(*document.database(), id.index());
  // Nearly always the first one does; the more fail, the more are tried at once.
  constexpr std::size_t kGrowth = 8;
  std::string unsearched;
  for (std::span<const AcGePoint3d> left = candidates, some; !left.empty();
       left = left.subspan(some.size())) {
    some = left.first(std::min(left.size(), std::max<std::size_t>(1, some.size() * kGrowth)));
    const Picks picks = picksAt(document, some);
    for (std::size_t i = 0; i < some.size(); ++i)
      if (picks.hits[i] && gives(*picks.hits[i], id)) return some[i];
    unsearched = picks.unsearched;
  }
  sayUnsearched(unsearched);
  return std::nullopt;
}

std::vector<AcDbObjectId> entitiesInBox(AcApDocument& document, const AcGePoint3d& first,
                                        const AcGePoint3d& second, bool crossing,
                                        Attributes attributes) {
  const AcDbDatabase& database = *document.database();
  const Box box{{std::min(first.x, second.x), std::min(first.y, second.y), 0},
                {std::max(first.x, second.x), std::max(first.y, second.y), 0}};
  std::vector<AcDbObjectId> found;
  AcDbExtents searched;
  searched.addPoint(box.low);
  searched.addPoint(box.high);
  const std::vector<dxf::RecordIndex> entities = entitiesToSearch(document, searched);
  DrawingWalk walk(database, entities, Showing::kScreen);
  for (const dxf::RecordIndex record : entities) {
    const BoxRelation relation = relationTo(box, walk, record, crossing);
    if (relation.drawn && (crossing ? relation.touched : relation.inside))
      found.push_back(database.idOf(record));
    if (attributes == Attributes::kTaken && relation.drawn)
      appendAttributes(box, walk, database, record, crossing, found);
  }
  sayUnsearched(walk.unfinished());
  return found;
}

std::vector<AcDbObjectId> allEntities(AcApDocument& document, Attributes attributes) {
  const AcDbDatabase& database = *document.database();
  std::vector<AcDbObjectId> found;
  const DrawingLooks looks(database, Showing::kScreen);
  forEachEntity(database, [&](dxf::RecordIndex record) {
    if (looks.onFrozenLayer(record)) return;
    found.push_back(database.idOf(record));
    if (attributes == Attributes::kLeftOut) return;
    for (dxf::RecordIndex attribute = database.structure().firstAttribute(record);
         attribute != dxf::kNoRecord; attribute = database.structure().nextAttribute(attribute))
      found.push_back(database.idOf(attribute));
  });
  return found;
}

}  // namespace kovra::arx
