#include "platform/arx/drawing_walk.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "platform/arx/database.h"
#include "platform/arx/ocs.h"
#include "platform/arx/record_edit.h"
#include "platform/arx/record_geometry.h"
#include "platform/dxf/record_store.h"
#include "platform/win/wide_text.h"

namespace kovra::arx {
namespace {

using dxf::RecordKind;
/// Blocks nest a few levels deep; a drawing that nests deeper is malformed.
constexpr size_t kDeepestNesting = 32;
/// A rectangular array of one reference that is larger is cut off.
constexpr std::int64_t kLargestArray = 10000;
/// Blocks of blocks of blocks may multiply beyond all measure; what one entity draws is cut off.
constexpr std::size_t kMostLeaves = 1000000;
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

DrawingWalk::DrawingWalk(const AcDbDatabase& database, bool hiddenToo)
    : database_(database), hiddenToo_(hiddenToo), reader_(database) {
  if (!hiddenToo_) readLayers();
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
    if (layer.frozen || layer.off) layers_[win::upperCase(structure.entryName(entry))] = layer;
  }
}

DrawingWalk::Layer DrawingWalk::layerOf(const dxf::RecordDraft& draft, const Layer& around) const {
  const std::string_view bytes = readBytes(draft, kLayerName);
  if (bytes == "0" && !containers_.empty()) return around;
  if (layers_.empty()) return {};
  const auto found = layers_.find(win::upperCase(database_.store().codec().decode(bytes)));
  return found != layers_.end() ? found->second : Layer{};
}

bool DrawingWalk::isFrozen(dxf::RecordIndex record) {
  if (layers_.empty()) return false;
  dxf::RecordDraft draft;
  database_.store().load(record, draft);
  containers_.clear();
  return layerOf(draft, {}).frozen;
}

void DrawingWalk::entity(dxf::RecordIndex record, const Visitor& visit) {
  containers_.clear();
  blocks_.clear();
  leavesLeft_ = kMostLeaves;
  walk(record, AcGeMatrix3d(), {}, visit);
}

bool DrawingWalk::walk(dxf::RecordIndex record, const AcGeMatrix3d& toWorld, const Layer& around,
                       const Visitor& visit) {
  dxf::RecordDraft draft;
  database_.store().load(record, draft);
  const Layer layer = layerOf(draft, around);
  if (!hiddenToo_ && (layer.frozen || readInteger(draft, kInvisible, 0) != 0)) return true;
  if (draft.kind() == RecordKind::kInsert)
    return walkReference(record, draft, toWorld, layer, visit);
  if (layer.off) return true;
  if (draft.kind() == RecordKind::kDimension) {
    const std::wstring block =
        database_.store().codec().decode(readBytes(draft, {"AcDbDimension", 2}));
    if (containers_.size() >= kDeepestNesting) return true;
    containers_.push_back(record);
    const bool goOn = walkBlock(block, toWorld, layer, visit);
    containers_.pop_back();
    return goOn;
  }
  return leaf(record, draft, toWorld, visit);
}

bool DrawingWalk::walkReference(dxf::RecordIndex record, const dxf::RecordDraft& draft,
                                const AcGeMatrix3d& toWorld, const Layer& layer,
                                const Visitor& visit) {
  const std::wstring name = database_.store().codec().decode(readBytes(draft, {kReferencePart, 2}));
  if (containers_.size() >= kDeepestNesting) return true;
  containers_.push_back(record);
  const AcGeMatrix3d own = referenceMatrix(draft);
  bool goOn = true;
  for (const AcGeVector3d& place : arrayPlaces(draft)) {
    AcGeMatrix3d shift;
    shift.setToTranslation(AcGeVector3d(place).transformBy(ocsToWcs(entityNormal(draft))));
    goOn = goOn && walkBlock(name, toWorld * shift * own, layer, visit);
  }
  const dxf::Structure& structure = database_.structure();
  dxf::RecordDraft attribute;
  for (dxf::RecordIndex r = structure.firstAttribute(record); goOn && r != dxf::kNoRecord;
       r = structure.nextAttribute(r)) {
    database_.store().load(r, attribute);
    const Layer its = layerOf(attribute, layer);
    const bool hidden = its.off || its.frozen || readInteger(attribute, kInvisible, 0) != 0 ||
                        (readInteger(attribute, {kAttributePart, 70}, 0) & 1) != 0;
    if (hiddenToo_ || !hidden) goOn = leaf(r, attribute, toWorld, visit);
  }
  containers_.pop_back();
  return goOn;
}

bool DrawingWalk::walkBlock(std::wstring_view name, const AcGeMatrix3d& toWorld, const Layer& layer,
                            const Visitor& visit) {
  const dxf::Structure& structure = database_.structure();
  const dxf::BlockNumber block = structure.findBlock(name);
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
    if (database_.store().kind(r) != RecordKind::kAttDef) goOn = walk(r, matrix, layer, visit);
  }
  blocks_.pop_back();
  return goOn;
}

bool DrawingWalk::leaf(dxf::RecordIndex record, const dxf::RecordDraft& draft,
                       const AcGeMatrix3d& toWorld, const Visitor& visit) {
  if (leavesLeft_ == 0) return false;
  --leavesLeft_;
  shapes_ = reader_.read(record, draft);
  for (DrawnShape& shape : shapes_)
    for (AcGePoint3d& point : shape.points) point.transformBy(toWorld);
  return visit({record, toWorld, containers_, shapes_});
}

AcDbExtents entityExtents(const AcDbDatabase& database, dxf::RecordIndex record) {
  AcDbExtents extents;
  DrawingWalk walk(database, true);
  walk.entity(record, [&](const DrawnLeaf& leaf) {
    for (const DrawnShape& shape : leaf.shapes)
      for (const AcGePoint3d& point : shape.points) extents.addPoint(point);
    return true;
  });
  return extents;
}

}  // namespace kovra::arx
