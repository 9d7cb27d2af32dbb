#include "platform/arx/drawing/drawing_parts.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "platform/arx/database/database.h"
#include "platform/arx/database/record_edit.h"
#include "platform/arx/entities/record_geometry.h"
#include "platform/arx/geometry/ocs.h"
#include "platform/dxf/record_store.h"

namespace kovra::arx {
namespace {

using dxf::RecordKind;

double real(const dxf::RecordDraft& draft, int code, double absent) {
  return readReal(draft, {kReferencePart, code}, absent);
}

/// Columns or rows: 16 bits in the format.
std::int64_t count(const dxf::RecordDraft& draft, int code) {
  constexpr std::int64_t kMost = 32767;
  return std::clamp<std::int64_t>(readInteger(draft, {kReferencePart, code}, 1), 1, kMost);
}

/// Fills in where the copies of a reference stand; the base point of the block isn't taken off yet.
void placeCopies(const dxf::RecordDraft& draft, BlockUse& use) {
  const AcGePoint3d at = readPoint(draft, {kReferencePart, 10}).value_or(AcGePoint3d());
  const double angle = real(draft, 50, 0) * std::numbers::pi / 180;
  const AcGeVector3d x(std::cos(angle), std::sin(angle), 0);
  const AcGeVector3d y(-x.y, x.x, 0);
  const AcGeMatrix3d plane = ocsToWcs(entityNormal(draft));
  AcGeMatrix3d own;
  own.setCoordSystem(at, x * real(draft, 41, 1), y * real(draft, 42, 1),
                     AcGeVector3d(0, 0, real(draft, 43, 1)));
  use.place = plane * own;
  use.columns = count(draft, 70);
  use.rows = count(draft, 71);
  use.toNextColumn = (x * real(draft, 44, 0)).transformBy(plane);
  use.toNextRow = (y * real(draft, 45, 0)).transformBy(plane);
}

/// From the block that draws a dimension, and perhaps others too, to this one's space.
AcGeMatrix3d dimensionMatrix(const dxf::RecordDraft& draft) {
  AcGeMatrix3d matrix;
  if (const auto offset = readPoint(draft, {"AcDbDimension", 12}))
    matrix.setToTranslation(ocsToWcs(*offset, entityNormal(draft)).asVector());
  return matrix;
}

}  // namespace

AcGeMatrix3d BlockUse::placeOf(std::int64_t column, std::int64_t row) const {
  AcGeMatrix3d shift;
  shift.setToTranslation(toNextColumn * static_cast<double>(column) +
                         toNextRow * static_cast<double>(row));
  return shift * place;
}

bool DrawingParts::ofEntity(dxf::RecordIndex record, const Look& around, bool inBlock,
                            PartTaker& taker) const {
  dxf::RecordDraft draft;
  database_.store().load(record, draft);
  const Look look = looks_.of(draft, around, inBlock);
  if (draft.kind() == RecordKind::kInsert) return reference(record, draft, look, taker);
  if (!looks_.shows(draft, look)) return true;
  if (draft.kind() == RecordKind::kDimension) return dimension(record, draft, look, taker);
  return looks_.isUnplotted(draft) || taker.leaf(record, draft, look);
}

bool DrawingParts::ofBlock(dxf::BlockNumber block, const Look& look, PartTaker& taker) const {
  const dxf::Structure& structure = database_.structure();
  for (dxf::RecordIndex r = structure.firstEntity(block); r != dxf::kNoRecord;
       r = structure.nextEntity(block, r)) {
    // An attribute definition shows only where it stands by itself.
    const bool shown = database_.store().kind(r) != RecordKind::kAttDef;
    if (shown && !ofEntity(r, look, true, taker)) return false;
  }
  return true;
}

bool DrawingParts::reference(dxf::RecordIndex record, const dxf::RecordDraft& draft,
                             const Look& look, PartTaker& taker) const {
  if (!looks_.referenceShows(draft, look)) return true;
  BlockUse use;
  use.record = record;
  use.block = blockNamed(draft, kReferencePart);
  use.look = look;
  placeCopies(draft, use);
  if (use.block != dxf::kNoBlock) {
    use.place = use.place * fromBasePoint(use.block);
    if (!taker.block(use)) return false;
  }
  const dxf::Structure& structure = database_.structure();
  dxf::RecordDraft attribute;
  for (dxf::RecordIndex r = structure.firstAttribute(record); r != dxf::kNoRecord;
       r = structure.nextAttribute(r)) {
    database_.store().load(r, attribute);
    const Look its = looks_.of(attribute, look, true);
    const bool shown = looks_.attributeShows(attribute, its) && !looks_.isUnplotted(attribute);
    if (shown && !taker.attribute(record, r, attribute, its)) return false;
  }
  return true;
}

/// A dimension shows the block that was made for it, where the block's entities stand or displaced.
bool DrawingParts::dimension(dxf::RecordIndex record, const dxf::RecordDraft& draft,
                             const Look& look, PartTaker& taker) const {
  BlockUse use;
  use.record = record;
  use.block = blockNamed(draft, "AcDbDimension");
  if (use.block == dxf::kNoBlock)
    return looks_.isUnplotted(draft) || taker.leaf(record, draft, look);
  use.look = look;
  use.place = dimensionMatrix(draft) * fromBasePoint(use.block);
  return taker.block(use);
}

/// kNoBlock also for a space that has no block of its own.
dxf::BlockNumber DrawingParts::blockNamed(const dxf::RecordDraft& draft,
                                          std::string_view subclass) const {
  const dxf::Structure& structure = database_.structure();
  const std::string_view name = readBytes(draft, {subclass, 2});
  const dxf::BlockNumber block = structure.findBlock(database_.store().codec().decode(name));
  const bool usable = block != dxf::kNoBlock && structure.block(block).begin != dxf::kNoRecord;
  return usable ? block : dxf::kNoBlock;
}

AcGeMatrix3d DrawingParts::fromBasePoint(dxf::BlockNumber block) const {
  dxf::RecordDraft begin;
  database_.store().load(database_.structure().block(block).begin, begin);
  const AcGePoint3d base = readPoint(begin, {"AcDbBlockBegin", 10}).value_or(AcGePoint3d());
  AcGeMatrix3d matrix;
  matrix.setToTranslation(base.asVector() * -1);
  return matrix;
}

}  // namespace kovra::arx
