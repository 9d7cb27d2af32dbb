#include "platform/arx/drawing/drawing_walk.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <limits>
#include <map>

#include "platform/arx/database/database.h"
#include "platform/dxf/record_store.h"

namespace kovra::arx {
namespace {

/// Blocks nest a few levels deep; what lies deeper is left out.
constexpr std::size_t kDeepestNesting = 100;
/// What a walk may cost, measured as recordWork() does: so many bytes in any drawing, and so many
/// for each byte of a larger one. Drawings that people make stay below, also where a part of
/// hundreds of lines stands in a thousand places; what blocks of blocks multiply lies far above.
constexpr double kFreeWork = 64e6;
constexpr double kWorkPerByte = 500;
/// Larger drawings get this, unless even 50 for each byte is more.
constexpr double kMuchWork = 4e9;
constexpr double kLeastWorkPerByte = 50;

/// Collects the work of the references of a space.
class Planner : public PartTaker {
 public:
  explicit Planner(DrawnBlocks& blocks) : blocks_(blocks) {}

  bool leaf(dxf::RecordIndex, const dxf::RecordDraft&, const Look&) override { return true; }
  bool block(const BlockUse& use) override {
    works.push_back(copiesWork(blocks_.of(use), use.all().copies()));
    return false;  // its attributes don't matter
  }
  bool attribute(dxf::RecordIndex, dxf::RecordIndex, const dxf::RecordDraft&,
                 const Look&) override {
    return false;
  }

  std::vector<double> works;

 private:
  DrawnBlocks& blocks_;
};

double fileSize(const dxf::RecordStore& store) {
  double size = 0;
  std::string scratch;
  for (dxf::RecordIndex r = store.first(); r != dxf::kNoRecord; r = store.next(r))
    size += static_cast<double>(store.bytes(r, scratch).size());
  return size;
}

double mostWork(double size) {
  return std::max({kFreeWork, std::min(kWorkPerByte * size, kMuchWork), kLeastWorkPerByte * size});
}

std::string hexadecimal(std::uint64_t handle) {
  std::array<char, 16> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), handle, 16);
  std::string text(digits.data(), end.ptr);
  for (char& digit : text) digit = static_cast<char>(std::toupper(digit));
  return text;
}

/// Beyond this a view or a picture would have no digits left for anything else.
bool isNear(const AcGePoint3d& p) {
  constexpr double kFarthest = 1e15;
  return std::fabs(p.x) < kFarthest && std::fabs(p.y) < kFarthest;
}

bool drawsBlock(const AcDbDatabase& database, dxf::RecordIndex record) {
  const dxf::RecordKind kind = database.store().kind(record);
  return kind == dxf::RecordKind::kInsert || kind == dxf::RecordKind::kDimension;
}

}  // namespace

DrawingWalk::DrawingWalk(const AcDbDatabase& database, double workEach, Showing showing)
    : database_(database),
      parts_(database, showing),
      blocks_(database, parts_),
      reader_(database),
      share_(workEach) {}

DrawingWalk::DrawingWalk(const AcDbDatabase& database, std::span<const dxf::RecordIndex> entities,
                         Showing showing)
    : DrawingWalk(database, std::numeric_limits<double>::infinity(), showing) {
  shareOut(entities);
}

DrawingWalk::DrawingWalk(const AcDbDatabase& database, dxf::BlockNumber space, Showing showing)
    : DrawingWalk(database, std::numeric_limits<double>::infinity(), showing) {
  space_ = space;
  std::vector<dxf::RecordIndex> references;
  const dxf::Structure& structure = database.structure();
  for (dxf::RecordIndex r = structure.firstEntity(space); r != dxf::kNoRecord;
       r = structure.nextEntity(space, r))
    if (drawsBlock(database, r)) references.push_back(r);
  shareOut(references);
}

/// No limit if all references together cost little enough. Else half of what there is goes to them
/// beforehand: those that stay below the average are done as a whole, and the others get equal
/// parts. The other half is for those that turn out to matter, such as the one under a pick.
void DrawingWalk::shareOut(std::span<const dxf::RecordIndex> references) {
  Planner planner(blocks_);
  for (const dxf::RecordIndex r : references)
    if (drawsBlock(database_, r)) parts_.ofEntity(r, spaceLook(), false, planner);
  double sum = 0;
  for (const double work : planner.works) sum += work;
  const double most = sum > kFreeWork ? mostWork(fileSize(database_.store())) : kFreeWork;
  if (sum <= most) return;
  const double shared = most / 2;
  const double average = shared / static_cast<double>(planner.works.size());
  const auto large = std::ranges::count_if(planner.works, [&](double w) { return w > average; });
  share_ = shared / static_cast<double>(large);
  common_ = most - shared;
  // One entity takes a part of what is common, so that others find some, too.
  takers_ = std::min(static_cast<double>(large), 4.0);
}

bool DrawingWalk::entity(dxf::RecordIndex record, const Visitor& visit, const Approach& approach) {
  visit_ = &visit;
  approach_ = approach ? &approach : nullptr;
  const double granted = share_ + common_ / takers_;
  workLeft_ = granted;
  whole_ = true;
  toWorld_.setToIdentity();
  containers_.clear();
  within_.clear();
  parts_.ofEntity(record, spaceLook(), false, *this);
  if (const double spent = granted - workLeft_; spent > share_) common_ -= spent - share_;
  if (!whole_) unfinished_.push_back(record);
  return whole_;
}

void DrawingWalk::all(const Visitor& visit, const Approach& approach) {
  const dxf::Structure& structure = database_.structure();
  for (dxf::RecordIndex r = structure.firstEntity(space_); r != dxf::kNoRecord;
       r = structure.nextEntity(space_, r))
    entity(r, visit, approach);
}

bool DrawingWalk::spend(double work) {
  workLeft_ -= work;
  whole_ = whole_ && workLeft_ >= 0;
  return workLeft_ >= 0;
}

bool DrawingWalk::leaf(dxf::RecordIndex record, const dxf::RecordDraft& draft, const Look& look) {
  // What stands in the space itself costs what it costs once.
  if (!containers_.empty() && !spend(recordWork(database_, record))) return false;
  return (*visit_)({record, draft, toWorld_, containers_, look.color});
}

bool DrawingWalk::attribute(dxf::RecordIndex reference, dxf::RecordIndex record,
                            const dxf::RecordDraft& draft, const Look& look) {
  containers_.push_back(reference);
  const bool goOn = (*visit_)({record, draft, toWorld_, containers_, look.color});
  containers_.pop_back();
  return goOn;
}

bool DrawingWalk::block(const BlockUse& use) {
  if (!containers_.empty() && !spend(recordWork(database_, use.record))) return false;
  if (std::ranges::find(within_, use.block) != within_.end()) return true;
  if (containers_.size() >= kDeepestNesting) {
    whole_ = false;
    return true;
  }
  const BlockWhole& whole = blocks_.of(use);
  if (approach_ != nullptr && whole.known && !whole.box.isValid()) return true;
  containers_.push_back(use.record);
  within_.push_back(use.block);
  const bool goOn = copies(use, whole, use.all());
  within_.pop_back();
  containers_.pop_back();
  return goOn;
}

bool DrawingWalk::copies(const BlockUse& use, const BlockWhole& whole, const CopyRange& range) {
  if (!spend(kCopyWork / 2)) return false;
  if (approach_ != nullptr && whole.known) {
    const AcDbExtents box = boxIn(toWorld_, boxOf(use, range, whole.box));
    const bool tight = whole.tight && keepsAxes(use.place) && keepsAxes(toWorld_);
    const bool affordable = copiesWork(whole, range.copies()) <= workLeft_;
    const Way way = (*approach_)({box, tight, affordable});
    if (way != Way::kInto) return way == Way::kPast;
  }
  if (range.rows == 1 && range.columns == 1)
    return copy(use, use.placeOf(range.firstColumn, range.firstRow));
  CopyRange first = range;
  CopyRange second = range;
  // Whole rows first, so that the copies come in drawing order.
  if (range.rows > 1) {
    first.rows = range.rows / 2;
    second.rows = range.rows - first.rows;
    second.firstRow += first.rows;
  } else {
    first.columns = range.columns / 2;
    second.columns = range.columns - first.columns;
    second.firstColumn += first.columns;
  }
  return copies(use, whole, first) && copies(use, whole, second);
}

bool DrawingWalk::copy(const BlockUse& use, const AcGeMatrix3d& place) {
  const AcGeMatrix3d outer = toWorld_;
  toWorld_ = outer * place;
  const bool goOn = parts_.ofBlock(use.block, use.look, *this);
  toWorld_ = outer;
  return goOn;
}

const std::vector<DrawnShape>& DrawingWalk::shapes(const DrawnLeaf& leaf) {
  shapes_ = reader_.read(leaf.record, leaf.draft);
  for (DrawnShape& shape : shapes_)
    for (AcGePoint3d& point : shape.points) point.transformBy(leaf.toWorld);
  return shapes_;
}

std::string DrawingWalk::unfinished() const {
  constexpr std::size_t kMostHandles = 5;
  const dxf::RecordStore& store = database_.store();
  std::map<std::string, std::vector<dxf::RecordIndex>> kinds;
  for (const dxf::RecordIndex record : unfinished_)
    kinds[std::string(store.typeName(record))].push_back(record);
  std::string text;
  for (const auto& [kind, records] : kinds) {
    text += (text.empty() ? "" : ", ") + std::to_string(records.size()) + " " + kind;
    std::string handles;
    for (const dxf::RecordIndex record :
         std::span(records).first(std::min(records.size(), kMostHandles)))
      if (store.handle(record) != 0)
        handles += (handles.empty() ? "" : ", ") + hexadecimal(store.handle(record));
    if (records.size() > kMostHandles && !handles.empty()) handles += " ...";
    if (!handles.empty()) text += " (" + handles + ")";
  }
  return text.empty() ? text : text + ": too many blocks inside";
}

AcDbExtents drawnExtents(const AcDbDatabase& database, dxf::BlockNumber space, Showing showing) {
  AcDbExtents extents;
  DrawingWalk walk(database, space, showing);
  const DrawingWalk::Visitor visit = [&](const DrawnLeaf& leaf) {
    for (const DrawnShape& shape : walk.shapes(leaf))
      if (std::ranges::all_of(shape.points, isNear))
        for (const AcGePoint3d& point : shape.points) extents.addPoint(point);
    return true;
  };
  walk.all(visit, [&](const DrawnCopies& copies) {
    const bool near = isNear(copies.box.minPoint()) && isNear(copies.box.maxPoint());
    // A box that is too large is better than none.
    if (!near || (!copies.tight && copies.affordable)) return Way::kInto;
    extents.addExt(copies.box);
    return Way::kPast;
  });
  return extents;
}

}  // namespace kovra::arx
