#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "platform/arx/base/color.h"
#include "platform/arx/drawing/drawing_parts.h"
#include "platform/arx/drawing/drawn_blocks.h"
#include "platform/arx/drawing/drawn_shapes.h"
#include "platform/arx/geometry/extents.h"
#include "platform/arx/geometry/geometry.h"
#include "platform/dxf/record_kind.h"
#include "platform/dxf/structure.h"

class AcDbDatabase;

namespace kovra::arx {

/// Something drawn: an entity that isn't made of others, where it stands, and inside what.
struct DrawnLeaf {
  dxf::RecordIndex record;
  const dxf::RecordDraft& draft;                 ///< the record's
  const AcGeMatrix3d& toWorld;                   ///< from its own block
  std::span<const dxf::RecordIndex> containers;  ///< block references around it, outermost first
  AcCmEntityColor color;                         ///< neither by layer nor by block
};

/// Some copies of a block, all of one reference, before the walk goes into them.
struct DrawnCopies {
  const AcDbExtents& box;  ///< around all their shapes, in world coordinates
  bool tight;              ///< the box touches shapes on its four sides, seen from above
  bool affordable;         ///< the walk can go through all of them
};
enum class Way { kInto, kPast, kEnd };

/// Goes over what the entities of a space draw; what doesn't show is left out. Reads records; opens
/// no objects.
///
/// Blocks of blocks and arrays may multiply beyond all measure. A walk over a space costs at most a
/// certain multiple of what the file holds: references whose blocks would take more than their
/// share of it are gone through in part, and the walk tells which.
class DrawingWalk : private PartTaker {
 public:
  DrawingWalk(const AcDbDatabase& database, dxf::BlockNumber space, Showing showing);
  /// For some entities of a space only, which share what a whole space may cost.
  DrawingWalk(const AcDbDatabase& database, std::span<const dxf::RecordIndex> entities,
              Showing showing);
  /// For entities one by one, each of which may cost so much (see recordWork()): nothing is looked
  /// at beforehand.
  DrawingWalk(const AcDbDatabase& database, double workEach, Showing showing);

  /// The visitor returns false to end the walk of the entity.
  using Visitor = std::function<bool(const DrawnLeaf&)>;
  /// Asked before the walk goes into blocks that have shapes: for all copies of a reference, then
  /// for fewer and fewer down to single ones. A walk with an approach leaves out blocks without
  /// shapes; it goes into a block that is inside itself without asking.
  using Approach = std::function<Way(const DrawnCopies&)>;
  /// False when the walk went through a part of it only.
  bool entity(dxf::RecordIndex record, const Visitor& visit, const Approach& approach = {});
  /// Each entity of the space in drawing order.
  void all(const Visitor& visit, const Approach& approach = {});
  /// What a leaf shows, in world coordinates; until the next call.
  const std::vector<DrawnShape>& shapes(const DrawnLeaf& leaf);

  /// Which entities the walk went through in part and why, for people; empty: none.
  std::string unfinished() const;

 private:
  bool leaf(dxf::RecordIndex record, const dxf::RecordDraft& draft, const Look& look) override;
  bool block(const BlockUse& use) override;
  bool attribute(dxf::RecordIndex reference, dxf::RecordIndex record, const dxf::RecordDraft& draft,
                 const Look& look) override;
  bool copies(const BlockUse& use, const BlockWhole& whole, const CopyRange& range);
  bool copy(const BlockUse& use, const AcGeMatrix3d& place);
  bool spend(double work);
  void shareOut(std::span<const dxf::RecordIndex> references);

  const AcDbDatabase& database_;
  dxf::BlockNumber space_ = dxf::kNoBlock;
  DrawingParts parts_;
  DrawnBlocks blocks_;
  ShapeReader reader_;
  std::vector<DrawnShape> shapes_;
  double share_;       ///< work that every entity gets
  double common_ = 0;  ///< what they may use beyond that, altogether
  double takers_ = 1;  ///< one entity may use this part of it

  // The entity in progress.
  const Visitor* visit_ = nullptr;
  const Approach* approach_ = nullptr;
  double workLeft_ = 0;
  bool whole_ = true;
  AcGeMatrix3d toWorld_;
  std::vector<dxf::RecordIndex> containers_;
  std::vector<dxf::BlockNumber> within_;  ///< a block inside itself is left out
  std::vector<dxf::RecordIndex> unfinished_;
};

/// The box around everything that shows in a space; not valid for an empty one.
AcDbExtents drawnExtents(const AcDbDatabase& database, dxf::BlockNumber space, Showing showing);

}  // namespace kovra::arx
