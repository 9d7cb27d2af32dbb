#include "platform/arx/entities/record_geometry.h"

#include <optional>
#include <span>
#include <unordered_map>
#include <unordered_set>

#include "platform/arx/database/database.h"
#include "platform/arx/database/entity.h"
#include "platform/arx/database/record_change.h"
#include "platform/arx/entities/entity_points.h"
#include "platform/arx/entities/proxy_graphics.h"
#include "platform/dxf/record_store.h"
#include "platform/dxf/structure.h"

namespace kovra::arx {
namespace {

using dxf::RecordKind;

// Flags (70) of POLYLINE and VERTEX.
constexpr std::int64_t kInSpace = 8 | 16 | 64;  ///< a curve in space, a mesh, a polyface
constexpr std::int64_t kMeshVertex = 64;
constexpr std::int64_t kPolyfaceVertex = 128;  ///< a face, unless it is a mesh vertex too

constexpr std::string_view kDimensionPart = "AcDbDimension";
constexpr Property kBlockOffset{kDimensionPart, 12};

std::int64_t flagsOf(const dxf::RecordDraft& draft) {
  return draft.integer(draft.find(70));
}

/// A face of a polyface has a point only for form's sake.
bool isFace(const dxf::RecordDraft& draft) {
  return draft.kind() == RecordKind::kVertex &&
         (flagsOf(draft) & (kPolyfaceVertex | kMeshVertex)) == kPolyfaceVertex;
}

/// One displacement of entities of a drawing.
class Translation {
 public:
  /// `chosen`: the entities that are moved by themselves, so not once more with another.
  Translation(AcDbDatabase& database, std::span<const AcDbObjectId> chosen,
              const Displacement& displacement)
      : database_(database),
        store_(database.store()),
        structure_(database.structure()),
        displacement_(displacement),
        chosen_(chosen) {}

  void move(dxf::RecordIndex entity) {
    const RecordKind kind = store_.kind(entity);
    if (kind == RecordKind::kViewport) return moveViewport(entity);
    moveWithParts(entity);
    if (kind == RecordKind::kDimension) moveDimensionBlock(entity);
  }

 private:
  /// `plane`: where the entity itself doesn't say what its plane is.
  void moveRecord(dxf::RecordIndex record, const std::optional<AcGeVector3d>& plane = {}) {
    changeRecord(database_, record, [&](RecordEdit& edit) {
      dxf::RecordDraft& draft = edit.draft();
      Displacement by = displacementIn(entityNormal(draft), displacement_);
      if (plane) by.fromTo.reset();
      if (isFace(draft))
        by.plane = AcGeVector3d();
      else if (plane)
        by.plane = *plane;
      shiftPoints(draft, by);
      translateProxyGraphics(draft, displacement_.world);
    });
  }

  /// An entity with its attributes or vertices, which go along also on locked layers.
  void moveWithParts(dxf::RecordIndex main) {
    std::optional<AcGeVector3d> own;
    std::optional<AcGeVector3d> ofVertices;
    if (store_.kind(main) == RecordKind::kPolyline) {
      store_.load(main, draft_);
      const bool inSpace = (flagsOf(draft_) & kInSpace) != 0;
      own = inSpace ? AcGeVector3d() : displacementIn(entityNormal(draft_), displacement_).plane;
      ofVertices = inSpace ? displacement_.world : own;
    }
    moveRecord(main, own);
    const dxf::RecordIndex end = structure_.pastSubordinates(main);
    for (dxf::RecordIndex r = store_.next(main); r != end; r = store_.next(r))
      if (!store_.erased(r)) moveRecord(r, ofVertices);
  }

  /// A dimension is drawn by a block of its own, in world coordinates. One that isn't its own
  /// stays, displaced by group 12.
  void moveDimensionBlock(dxf::RecordIndex dimension) {
    store_.load(dimension, draft_);
    const dxf::BlockNumber block = blockOf(draft_, kDimensionPart);
    if (block == dxf::kNoBlock) return;
    if (!isMovable(block)) {
      changeRecord(database_, dimension, [&](RecordEdit& edit) {
        const AcGeVector3d by = displacementIn(entityNormal(edit.draft()), displacement_).plane;
        edit.setPoint(kBlockOffset,
                      readPoint(edit.draft(), kBlockOffset).value_or(AcGePoint3d()) + by);
      });
      return;
    }
    for (dxf::RecordIndex r = structure_.firstEntity(block); r != dxf::kNoRecord;
         r = structure_.nextEntity(block, r))
      moveWithParts(r);
  }

  /// Whether only one entity shows an anonymous block and all that is in it can be moved.
  bool isMovable(dxf::BlockNumber block) {
    if (!structure_.block(block).name.starts_with(L'*') || usesOf(block) != 1) return false;
    for (dxf::RecordIndex r = structure_.firstEntity(block); r != dxf::kNoRecord;
         r = structure_.nextEntity(block, r))
      if (!hasKnownPoints(store_.typeName(r))) return false;
    return true;
  }

  int usesOf(dxf::BlockNumber block) {
    if (!uses_) {
      uses_.emplace();
      dxf::RecordDraft draft;
      for (dxf::RecordIndex r = store_.first(); r != dxf::kNoRecord; r = store_.next(r)) {
        const bool isDimension = store_.kind(r) == RecordKind::kDimension;
        if ((!isDimension && store_.kind(r) != RecordKind::kInsert) || store_.erased(r)) continue;
        store_.load(r, draft);
        ++(*uses_)[blockOf(draft, isDimension ? kDimensionPart : kReferencePart)];
      }
    }
    return (*uses_)[block];
  }

  bool isChosen(dxf::RecordIndex entity) {
    if (!chosenRecords_) {
      chosenRecords_.emplace();
      for (const AcDbObjectId& id : chosen_) chosenRecords_->insert(id.index());
    }
    return chosenRecords_->contains(entity);
  }

  dxf::BlockNumber blockOf(const dxf::RecordDraft& draft, std::string_view subclass) const {
    return structure_.findBlock(store_.codec().decode(readBytes(draft, {subclass, 2})));
  }

  /// The first viewport of a sheet is the sheet itself. The others have what cuts them off with
  /// them.
  void moveViewport(dxf::RecordIndex viewport) {
    constexpr std::int64_t kSheet = 1;
    store_.load(viewport, draft_);
    if (draft_.integer(draft_.find(69)) == kSheet) return;
    const dxf::RecordIndex boundary = store_.find(draft_.handle(draft_.find(340)));
    moveRecord(viewport);
    if (boundary == dxf::kNoRecord || store_.erased(boundary) || isChosen(boundary)) return;
    if (structure_.blockOf(boundary) == structure_.blockOf(viewport)) moveWithParts(boundary);
  }

  AcDbDatabase& database_;
  const dxf::RecordStore& store_;
  const dxf::Structure& structure_;
  Displacement displacement_;
  std::span<const AcDbObjectId> chosen_;
  std::optional<std::unordered_set<dxf::RecordIndex>> chosenRecords_;  ///< made when it is needed
  /// How many dimensions and references show a block; counted when it is needed.
  std::optional<std::unordered_map<dxf::BlockNumber, int>> uses_;
  dxf::RecordDraft draft_;
};

bool canBeWritten(AcDbObjectId id) {
  AcDbEntity* entity = nullptr;
  if (acdbOpenObject(entity, id, AcDb::kForWrite) != Acad::eOk) return false;
  entity->close();
  return true;
}

}  // namespace

AcGeVector3d entityNormal(const dxf::RecordDraft& draft) {
  const std::size_t x = draft.find(210);
  if (x == dxf::kNoGroup) return AcGeVector3d(0, 0, 1);
  const std::size_t y = draft.find(220);
  if (y == dxf::kNoGroup) return AcGeVector3d(0, 0, 1);
  const std::size_t z = draft.find(230);
  const AcGeVector3d normal(draft.real(x), draft.real(y), z == dxf::kNoGroup ? 0 : draft.real(z));
  return normal.isZeroLength() ? AcGeVector3d(0, 0, 1) : normal.normal();
}

AcGeVector3d entityNormal(AcDbObjectId id) {
  const AcDbDatabase* database = id.database();
  if (database == nullptr) return AcGeVector3d(0, 0, 1);
  dxf::RecordDraft draft;
  database->store().load(id.index(), draft);
  return entityNormal(draft);
}

std::vector<AcDbObjectId> translateEntities(std::span<const AcDbObjectId> ids,
                                            const Displacement& displacement) {
  std::vector<AcDbObjectId> left;
  if (ids.empty()) return left;
  AcDbDatabase& database = *ids.front().database();
  Translation translation(database, ids, displacement);
  for (const AcDbObjectId& id : ids) {
    if (hasKnownPoints(database.store().typeName(id.index())) && canBeWritten(id))
      translation.move(id.index());
    else
      left.push_back(id);
  }
  return left;
}

}  // namespace kovra::arx
