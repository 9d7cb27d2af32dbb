#include "platform/arx/drawing/drawing_walk.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "platform/arx/database/database.h"
#include "platform/arx/database/record_edit.h"
#include "platform/arx/entities/record_geometry.h"
#include "platform/arx/geometry/ocs.h"
#include "platform/dxf/record_store.h"
#include "platform/win/base/wide_text.h"

namespace kovra::arx {
namespace {

using dxf::RecordKind;
/// Blocks nest a few levels deep; a drawing that nests deeper is malformed.
constexpr size_t kDeepestNesting = 32;
/// A rectangular array of one reference that is larger is cut off.
constexpr std::int64_t kLargestArray = 10000;
/// Blocks of blocks of blocks may multiply beyond all measure; what one entity draws is cut off.
constexpr std::size_t kMostLeaves = 1000000;
constexpr int kWhite = 7;
constexpr Property kLayerName{kEntityPart, 8};
constexpr Property kInvisible{kEntityPart, 60};

double real(const dxf::RecordDraft& draft, int code, double absent) {
  return readReal(draft, {kReferencePart, code}, absent);
}

/// From the block's coordinates to those of the reference's space, without its base point.
AcGeMatrix3d referenceMatrix(const dxf::RecordDraft& draft) {
  const AcGePoint3d at = readPoint(draft, {kReferencePart, 10}).value_or(AcGePoint3d());
  const double angle = real(draft, 50, 0) * std::numbers::pi / 180;
  AcGeMatrix3d matrix;
  const AcGeVector3d x(std::cos(angle), std::sin(angle), 0);
  const AcGeVector3d y(-x.y, x.x, 0);
  matrix.setCoordSystem(at, x * real(draft, 41, 1), y * real(draft, 42, 1),
                        AcGeVector3d(0, 0, real(draft, 43, 1)));
  return ocsToWcs(entityNormal(draft)) * matrix;
}

/// From the block that draws a dimension, and perhaps others too, to this one's space.
AcGeMatrix3d dimensionMatrix(const dxf::RecordDraft& draft) {
  AcGeMatrix3d matrix;
  if (const auto offset = readPoint(draft, {"AcDbDimension", 12}))
    matrix.setToTranslation(ocsToWcs(*offset, entityNormal(draft)).asVector());
  return matrix;
}

/// The copies of a reference that is an array, as displacements in the block's turned axes.
std::vector<AcGeVector3d> arrayPlaces(const dxf::RecordDraft& draft) {
  const auto count = [&](int code) {
    return std::clamp<std::int64_t>(readInteger(draft, {kReferencePart, code}, 1), 1,
                                    kLargestArray);
  };
  const std::int64_t columns = count(70);
  const std::int64_t rows = std::min(count(71), std::max<std::int64_t>(1, kLargestArray / columns));
  const double angle = real(draft, 50, 0) * std::numbers::pi / 180;
  const AcGeVector3d x = AcGeVector3d(std::cos(angle), std::sin(angle), 0) * real(draft, 44, 0);
  const AcGeVector3d y = AcGeVector3d(-std::sin(angle), std::cos(angle), 0) * real(draft, 45, 0);
  std::vector<AcGeVector3d> places;
  for (std::int64_t row = 0; row < rows; ++row)
    for (std::int64_t column = 0; column < columns; ++column)
      places.push_back(x * static_cast<double>(column) + y * static_cast<double>(row));
  return places;
}

}  // namespace

AcCmEntityColor recordColor(const dxf::RecordDraft& draft, std::string_view subclass) {
  constexpr std::int64_t kByLayer = 256;
  if (const std::int64_t rgb = readInteger(draft, {subclass, 420}, -1); rgb >= 0)
    return {static_cast<Adesk::UInt8>(rgb >> 16), static_cast<Adesk::UInt8>(rgb >> 8),
            static_cast<Adesk::UInt8>(rgb)};
  AcCmEntityColor color;
  const std::int64_t index = readInteger(draft, {subclass, 62}, kByLayer);
  color.setColorIndex(static_cast<int>(std::clamp<std::int64_t>(std::abs(index), 0, kByLayer)));
  return color;
}

DrawingWalk::DrawingWalk(const AcDbDatabase& database, bool hiddenToo)
    : database_(database), hiddenToo_(hiddenToo), reader_(database) {
  readLayers();
}

void DrawingWalk::readLayers() {
  const dxf::Structure& structure = database_.structure();
  dxf::RecordDraft draft;
  for (dxf::RecordIndex entry = structure.firstEntry(dxf::TableKind::kLayer);
       entry != dxf::kNoRecord; entry = structure.nextEntry(entry)) {
    database_.store().load(entry, draft);
    Layer layer;
    layer.frozen = (readInteger(draft, {kLayerPart, 70}, 0) & 1) != 0;
    layer.off = readInteger(draft, {kLayerPart, 62}, 7) < 0;
    layer.color = recordColor(draft, kLayerPart);
    layers_.try_emplace(win::upperCase(structure.entryName(entry)), layer);
  }
}

const DrawingWalk::Layer& DrawingWalk::layerOf(std::string_view nameBytes,
                                               const Layer& around) const {
  if (nameBytes == "0" && !containers_.empty()) return around;
  const std::string key(nameBytes);
  const auto known = byBytes_.find(key);
  if (known != byBytes_.end()) return known->second;
  const auto found = layers_.find(win::upperCase(database_.store().codec().decode(nameBytes)));
  return byBytes_[key] = found != layers_.end() ? found->second : Layer{};
}

DrawingWalk::Look DrawingWalk::lookOf(const dxf::RecordDraft& draft, const Look& around) const {
  Look look{layerOf(readBytes(draft, kLayerName), around.layer), recordColor(draft, kEntityPart)};
  if (look.color.isByBlock()) look.color = around.color;
  if (look.color.isByLayer()) look.color = look.layer.color;
  return look;
}

bool DrawingWalk::isFrozen(dxf::RecordIndex record) {
  dxf::RecordDraft draft;
  database_.store().load(record, draft);
  containers_.clear();
  return layerOf(readBytes(draft, kLayerName), {}).frozen;
}

void DrawingWalk::entity(dxf::RecordIndex record, const Visitor& visit) {
  containers_.clear();
  blocks_.clear();
  leavesLeft_ = kMostLeaves;
  Look white;
  white.color.setColorIndex(kWhite);
  walk(record, AcGeMatrix3d(), white, visit);
}

bool DrawingWalk::walk(dxf::RecordIndex record, const AcGeMatrix3d& toWorld, const Look& around,
                       const Visitor& visit) {
  dxf::RecordDraft draft;
  database_.store().load(record, draft);
  const Look look = lookOf(draft, around);
  if (!hiddenToo_ && (look.layer.frozen || readInteger(draft, kInvisible, 0) != 0)) return true;
  if (draft.kind() == RecordKind::kInsert)
    return walkReference(record, draft, toWorld, look, visit);
  if (look.layer.off && !hiddenToo_) return true;
  if (draft.kind() == RecordKind::kDimension) {
    const dxf::BlockNumber block = blockNamed(draft, "AcDbDimension");
    if (block == dxf::kNoBlock) return leaf(record, draft, toWorld, look, visit);
    if (containers_.size() >= kDeepestNesting) return true;
    containers_.push_back(record);
    const bool goOn = walkBlock(block, toWorld * dimensionMatrix(draft), look, visit);
    containers_.pop_back();
    return goOn;
  }
  return leaf(record, draft, toWorld, look, visit);
}

bool DrawingWalk::walkReference(dxf::RecordIndex record, const dxf::RecordDraft& draft,
                                const AcGeMatrix3d& toWorld, const Look& look,
                                const Visitor& visit) {
  const dxf::BlockNumber block = blockNamed(draft, kReferencePart);
  if (containers_.size() >= kDeepestNesting) return true;
  containers_.push_back(record);
  const AcGeMatrix3d own = referenceMatrix(draft);
  bool goOn = true;
  for (const AcGeVector3d& place : arrayPlaces(draft)) {
    AcGeMatrix3d shift;
    shift.setToTranslation(AcGeVector3d(place).transformBy(ocsToWcs(entityNormal(draft))));
    goOn = goOn && walkBlock(block, toWorld * shift * own, look, visit);
  }
  const dxf::Structure& structure = database_.structure();
  dxf::RecordDraft attribute;
  for (dxf::RecordIndex r = structure.firstAttribute(record); goOn && r != dxf::kNoRecord;
       r = structure.nextAttribute(r)) {
    database_.store().load(r, attribute);
    const Look its = lookOf(attribute, look);
    const bool hidden = its.layer.off || its.layer.frozen ||
                        readInteger(attribute, kInvisible, 0) != 0 ||
                        (readInteger(attribute, {kAttributePart, 70}, 0) & 1) != 0;
    if (hiddenToo_ || !hidden) goOn = leaf(r, attribute, toWorld, its, visit);
  }
  containers_.pop_back();
  return goOn;
}

dxf::BlockNumber DrawingWalk::blockNamed(const dxf::RecordDraft& draft,
                                         std::string_view subclass) const {
  const std::string_view name = readBytes(draft, {subclass, 2});
  return database_.structure().findBlock(database_.store().codec().decode(name));
}

bool DrawingWalk::walkBlock(dxf::BlockNumber block, const AcGeMatrix3d& toWorld, const Look& look,
                            const Visitor& visit) {
  const dxf::Structure& structure = database_.structure();
  if (block == dxf::kNoBlock || structure.block(block).begin == dxf::kNoRecord) return true;
  if (std::count(blocks_.begin(), blocks_.end(), block) > 0) return true;
  dxf::RecordDraft begin;
  database_.store().load(structure.block(block).begin, begin);
  const AcGePoint3d base = readPoint(begin, {"AcDbBlockBegin", 10}).value_or(AcGePoint3d());
  AcGeMatrix3d fromBase;
  fromBase.setToTranslation(base.asVector() * -1);
  const AcGeMatrix3d matrix = toWorld * fromBase;
  blocks_.push_back(block);
  bool goOn = true;
  for (dxf::RecordIndex r = structure.firstEntity(block); goOn && r != dxf::kNoRecord;
       r = structure.nextEntity(block, r)) {
    // An attribute definition shows only where it stands by itself.
    if (database_.store().kind(r) != RecordKind::kAttDef) goOn = walk(r, matrix, look, visit);
  }
  blocks_.pop_back();
  return goOn;
}

bool DrawingWalk::leaf(dxf::RecordIndex record, const dxf::RecordDraft& draft,
                       const AcGeMatrix3d& toWorld, const Look& look, const Visitor& visit) {
  if (leavesLeft_ == 0) return false;
  --leavesLeft_;
  return visit({record, draft, toWorld, containers_, look.color});
}

const std::vector<DrawnShape>& DrawingWalk::shapes(const DrawnLeaf& leaf) {
  shapes_ = reader_.read(leaf.record, leaf.draft);
  for (DrawnShape& shape : shapes_)
    for (AcGePoint3d& point : shape.points) point.transformBy(leaf.toWorld);
  return shapes_;
}

AcDbExtents entityExtents(const AcDbDatabase& database, dxf::RecordIndex record) {
  AcDbExtents extents;
  DrawingWalk walk(database, true);
  walk.entity(record, [&](const DrawnLeaf& leaf) {
    for (const DrawnShape& shape : walk.shapes(leaf))
      for (const AcGePoint3d& point : shape.points) extents.addPoint(point);
    return true;
  });
  return extents;
}

}  // namespace kovra::arx
