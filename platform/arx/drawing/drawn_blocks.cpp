#include "platform/arx/drawing/drawn_blocks.h"

#include <cmath>
#include <limits>
#include <memory>
#include <vector>

#include "platform/arx/database/database.h"
#include "platform/dxf/record_store.h"

namespace kovra::arx {

using dxf::RecordKind;

double recordWork(const AcDbDatabase& database, dxf::RecordIndex record) {
  constexpr double kVisit = 100;
  constexpr double kReferenceVisit = 400;  // its block is looked up, its matrix made
  const dxf::RecordStore& store = database.store();
  const RecordKind kind = store.kind(record);
  std::string scratch;
  const bool reference = kind == RecordKind::kInsert || kind == RecordKind::kDimension;
  double work = static_cast<double>(store.bytes(record, scratch).size());
  work += reference ? kReferenceVisit : kVisit;
  if (kind != RecordKind::kInsert && kind != RecordKind::kPolyline) return work;
  const dxf::RecordIndex end = database.structure().pastSubordinates(record);
  for (dxf::RecordIndex r = store.next(record); r != end; r = store.next(r))
    work += kVisit + static_cast<double>(store.bytes(r, scratch).size());
  return work;
}

double copiesWork(const BlockWhole& whole, double copies) {
  return whole.known ? copies * (whole.work + kCopyWork) : std::numeric_limits<double>::infinity();
}

AcDbExtents boxIn(const AcGeMatrix3d& matrix, const AcDbExtents& box) {
  AcDbExtents result;
  if (!box.isValid()) return result;
  const AcGePoint3d low = box.minPoint();
  const AcGePoint3d high = box.maxPoint();
  for (const double x : {low.x, high.x})
    for (const double y : {low.y, high.y})
      for (const double z : {low.z, high.z})
        result.addPoint(AcGePoint3d(x, y, z).transformBy(matrix));
  return result;
}

bool keepsAxes(const AcGeMatrix3d& matrix) {
  // The sine of a right angle's multiple isn't quite 0.
  constexpr double kNothing = 1e-12;
  for (unsigned row = 0; row < 2; ++row) {
    double sum = 0;
    double largest = 0;
    for (unsigned column = 0; column < 3; ++column) {
      sum += std::fabs(matrix(row, column));
      largest = std::max(largest, std::fabs(matrix(row, column)));
    }
    if (sum - largest > kNothing * largest) return false;
  }
  return true;
}

AcDbExtents boxOf(const BlockUse& use, const CopyRange& range, const AcDbExtents& blockBox) {
  AcDbExtents box;
  for (const std::int64_t column : {range.firstColumn, range.firstColumn + range.columns - 1})
    for (const std::int64_t row : {range.firstRow, range.firstRow + range.rows - 1})
      box.addExt(boxIn(use.placeOf(column, row), blockBox));
  return box;
}

/// A block that is being looked at: its own entities are done, those of its references follow.
class DrawnBlocks::Opened : public PartTaker {
 public:
  Opened(DrawnBlocks& owner, const BlockUse& use) : key(keyOf(use)), owner_(owner) {
    const dxf::Structure& structure = owner.database_.structure();
    for (dxf::RecordIndex r = structure.firstEntity(use.block); r != dxf::kNoRecord;
         r = structure.nextEntity(use.block, r))
      whole.work += recordWork(owner.database_, r);
    owner.parts_.ofBlock(use.block, use.look, *this);
  }

  bool leaf(dxf::RecordIndex record, const dxf::RecordDraft& draft, const Look&) override {
    for (const DrawnShape& shape : owner_.reader_.read(record, draft))
      for (const AcGePoint3d& point : shape.points) whole.box.addPoint(point);
    return true;
  }
  bool block(const BlockUse& use) override {
    uses.push_back(use);
    return true;
  }
  bool attribute(dxf::RecordIndex, dxf::RecordIndex record, const dxf::RecordDraft& draft,
                 const Look& look) override {
    return leaf(record, draft, look);
  }

  /// Takes over what the next of the uses draws, which has been looked at.
  void takeNext(const Entry& entry) {
    const BlockUse& use = uses[next++];
    // A block inside itself isn't drawn again.
    whole.known = whole.known && entry.whole.known && !entry.open;
    if (entry.open) return;
    whole.tight = whole.tight && entry.whole.tight && keepsAxes(use.place);
    whole.work += copiesWork(entry.whole, use.all().copies());
    whole.box.addExt(boxOf(use, use.all(), entry.whole.box));
  }

  const Key key;
  BlockWhole whole;
  std::vector<BlockUse> uses;
  std::size_t next = 0;

 private:
  DrawnBlocks& owner_;
};

DrawnBlocks::Key DrawnBlocks::keyOf(const BlockUse& use) {
  return static_cast<Key>(use.block) << 1U | static_cast<Key>(use.look.layer.off);
}

const BlockWhole& DrawnBlocks::of(const BlockUse& use) {
  std::vector<std::unique_ptr<Opened>> open;
  const auto openIfNew = [&](const BlockUse& one) {
    const bool isNew = entries_.try_emplace(keyOf(one)).second;
    if (isNew) open.push_back(std::make_unique<Opened>(*this, one));
    return isNew;
  };
  openIfNew(use);
  // No recursion: blocks may lie in one another by the thousands.
  while (!open.empty()) {
    Opened& top = *open.back();
    while (top.next < top.uses.size() && !openIfNew(top.uses[top.next]))
      top.takeNext(entries_.at(keyOf(top.uses[top.next])));
    if (&top != open.back().get()) continue;
    entries_.at(top.key) = {top.whole, false};
    open.pop_back();
  }
  return entries_.at(keyOf(use)).whole;
}

}  // namespace kovra::arx
