// What whole blocks draw.
#pragma once
#include <unordered_map>

#include "platform/arx/drawing/drawing_parts.h"
#include "platform/arx/drawing/drawn_shapes.h"
#include "platform/arx/geometry/extents.h"

namespace kovra::arx {

/// A block as a whole, with the blocks inside it.
struct BlockWhole {
  AcDbExtents box;    ///< around the shapes, in the block's coordinates; not valid without shapes
  bool tight = true;  ///< the box touches shapes on all its sides
  double work = 0;    ///< what going through all of it costs, see recordWork(); may be infinite
  bool known = true;  ///< false: a block is inside itself, and box and work may lack some of it
};

/// What it costs to look at an entity with its attributes or vertices: the bytes of their records
/// and something for the visit.
double recordWork(const AcDbDatabase& database, dxf::RecordIndex record);
/// What finding the place of a copy costs, in the same measure.
inline constexpr double kCopyWork = 200;
/// What going through so many copies of a block costs.
double copiesWork(const BlockWhole& whole, double copies);

/// The box around what some copies draw, in the coordinates of the reference's own block.
AcDbExtents boxOf(const BlockUse& use, const CopyRange& range, const AcDbExtents& blockBox);
/// The box around the image of a box.
AcDbExtents boxIn(const AcGeMatrix3d& matrix, const AcDbExtents& box);
/// Whether that fits as closely as the box did, seen from above: no axis is mixed from others.
bool keepsAxes(const AcGeMatrix3d& matrix);

/// Looks at each block once, however many references lead to it, and however deep it lies.
class DrawnBlocks {
 public:
  DrawnBlocks(const AcDbDatabase& database, const DrawingParts& parts)
      : database_(database), parts_(parts), reader_(database) {}

  /// Valid as long as this object.
  const BlockWhole& of(const BlockUse& use);

 private:
  class Opened;
  struct Entry {
    BlockWhole whole;
    bool open = true;  ///< being looked at
  };
  using Key = std::uint64_t;
  static Key keyOf(const BlockUse& use);

  const AcDbDatabase& database_;
  const DrawingParts& parts_;
  ShapeReader reader_;
  std::unordered_map<Key, Entry> entries_;
};

}  // namespace kovra::arx
