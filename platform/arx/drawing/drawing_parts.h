// What an entity is made of: itself, or the block that it shows and its attributes.
#pragma once
#include <cstdint>

#include "platform/arx/drawing/drawing_looks.h"
#include "platform/arx/geometry/geometry.h"
#include "platform/dxf/record_draft.h"
#include "platform/dxf/structure.h"

namespace kovra::arx {

/// Some of the copies of a block that a reference shows.
struct CopyRange {
  std::int64_t firstColumn = 0;
  std::int64_t columns = 1;
  std::int64_t firstRow = 0;
  std::int64_t rows = 1;

  double copies() const { return static_cast<double>(columns) * static_cast<double>(rows); }
};

/// A block as a reference or a dimension shows it, in columns and rows of copies.
struct BlockUse {
  dxf::RecordIndex record = dxf::kNoRecord;  ///< the reference
  dxf::BlockNumber block = dxf::kNoBlock;
  Look look;           ///< of the reference
  AcGeMatrix3d place;  ///< of the first copy, into the coordinates of the reference's own block
  std::int64_t columns = 1;
  std::int64_t rows = 1;
  AcGeVector3d toNextColumn;
  AcGeVector3d toNextRow;

  CopyRange all() const { return {0, columns, 0, rows}; }
  AcGeMatrix3d placeOf(std::int64_t column, std::int64_t row) const;
};

/// Takes what an entity is made of. Each function returns false to be given nothing more.
class PartTaker {
 public:
  virtual ~PartTaker() = default;
  /// An entity that isn't made of others; `draft` is its own.
  virtual bool leaf(dxf::RecordIndex record, const dxf::RecordDraft& draft, const Look& look) = 0;
  virtual bool block(const BlockUse& use) = 0;
  virtual bool attribute(dxf::RecordIndex reference, dxf::RecordIndex record,
                         const dxf::RecordDraft& draft, const Look& look) = 0;
};

/// Takes entities apart; what doesn't show is left out. Reads records; opens no objects.
class DrawingParts {
 public:
  DrawingParts(const AcDbDatabase& database, Showing showing)
      : database_(database), looks_(database, showing) {}

  /// False when the taker wanted no more.
  bool ofEntity(dxf::RecordIndex record, const Look& around, bool inBlock, PartTaker& taker) const;
  /// Of the entities that a reference with this look shows of a block, in drawing order.
  bool ofBlock(dxf::BlockNumber block, const Look& look, PartTaker& taker) const;

 private:
  bool reference(dxf::RecordIndex record, const dxf::RecordDraft& draft, const Look& look,
                 PartTaker& taker) const;
  bool dimension(dxf::RecordIndex record, const dxf::RecordDraft& draft, const Look& look,
                 PartTaker& taker) const;
  dxf::BlockNumber blockNamed(const dxf::RecordDraft& draft, std::string_view subclass) const;
  AcGeMatrix3d fromBasePoint(dxf::BlockNumber block) const;

  const AcDbDatabase& database_;
  DrawingLooks looks_;
};

}  // namespace kovra::arx
