#include "platform/arx/entities/record_geometry.h"

#include <span>

#include "platform/arx/database/database.h"
#include "platform/arx/database/entity.h"
#include "platform/arx/database/record_change.h"
#include "platform/arx/geometry/ocs.h"
#include "platform/dxf/record_store.h"
#include "platform/dxf/structure.h"

namespace kovra::arx {
namespace {

using dxf::RecordKind;

/// Codes of the x of an entity's points; those of vectors aren't among them.
std::span<const int> pointCodes(RecordKind kind) {
  static constexpr int kOne[] = {10};
  static constexpr int kTwo[] = {10, 11};
  static constexpr int kFour[] = {10, 11, 12, 13};
  switch (kind) {
    case RecordKind::kLine:
    case RecordKind::kSpline:
    case RecordKind::kText:
    case RecordKind::kAttDef:
    case RecordKind::kAttrib:
      return kTwo;
    case RecordKind::kCircle:
    case RecordKind::kArc:
    case RecordKind::kPoint:
    case RecordKind::kEllipse:
    case RecordKind::kInsert:
    case RecordKind::kMText:
    case RecordKind::kVertex:
    case RecordKind::kLwPolyline:
    case RecordKind::kLeader:
    case RecordKind::kViewport:
      return kOne;
    case RecordKind::kSolid:
    case RecordKind::kTrace:
    case RecordKind::k3dFace:
      return kFour;
    default:
      return {};
  }
}

void addReal(dxf::RecordDraft& draft, std::size_t group, double delta) {
  if (group != dxf::kNoGroup && delta != 0) draft.setReal(group, draft.real(group) + delta);
}

/// Moves all points of one of the codes; y and z follow an x before the next x.
void translateCode(dxf::RecordDraft& draft, int code, const AcGeVector3d& vector) {
  std::size_t end = draft.size();
  for (std::size_t i = 0; i < end; ++i) {
    if (draft.part(i) != dxf::GroupPart::kData || draft.code(i) != code) continue;
    addReal(draft, i, vector.x);
    for (std::size_t j = i + 1; j < end && draft.code(j) != code; ++j) {
      if (draft.part(j) != dxf::GroupPart::kData) continue;
      if (draft.code(j) == code + 10) addReal(draft, j, vector.y);
      if (draft.code(j) == code + 20) addReal(draft, j, vector.z);
    }
  }
}

/// The place of a multi-line attribute's embedded text, in world coordinates.
void translateEmbedded(dxf::RecordDraft& draft, const AcGeVector3d& vector) {
  const dxf::RecordDraft::Range embedded = draft.embedded();
  addReal(draft, draft.findIn(embedded, 10), vector.x);
  addReal(draft, draft.findIn(embedded, 20), vector.y);
  addReal(draft, draft.findIn(embedded, 30), vector.z);
}

bool translateRecord(AcDbDatabase& database, dxf::RecordIndex record, const AcGeVector3d& vector) {
  const RecordKind kind = database.store().kind(record);
  const std::span<const int> codes = pointCodes(kind);
  if (codes.empty()) return false;
  changeRecord(database, record, [&](RecordEdit& edit) {
    dxf::RecordDraft& draft = edit.draft();
    AcGeVector3d own = vector;
    if (hasOcsPoints(kind)) own.transformBy(wcsToOcs(entityNormal(draft)));
    for (const int code : codes) translateCode(draft, code, own);
    if (kind == RecordKind::kAttrib) translateEmbedded(draft, vector);
    if (kind == RecordKind::kLwPolyline && own.z != 0)
      edit.setReal({"AcDbPolyline", 38}, readReal(draft, {"AcDbPolyline", 38}, 0) + own.z, 0);
  });
  return true;
}

/// The attributes of a block reference.
void translateFollowers(AcDbDatabase& database, dxf::RecordIndex main, const AcGeVector3d& vector) {
  const dxf::RecordStore& store = database.store();
  const dxf::RecordIndex end = database.structure().pastSubordinates(main);
  for (dxf::RecordIndex r = store.next(main); r != end; r = store.next(r))
    if (!store.erased(r)) translateRecord(database, r, vector);
}

/// A polyline's own point is only its elevation.
bool translatePolyline(AcDbDatabase& database, dxf::RecordIndex record,
                       const AcGeVector3d& vector) {
  AcGeVector3d own = vector;
  changeRecord(database, record, [&](RecordEdit& edit) {
    own.transformBy(wcsToOcs(entityNormal(edit.draft())));
    addReal(edit.draft(), edit.draft().find(30), own.z);
  });
  const dxf::RecordStore& store = database.store();
  for (dxf::RecordIndex r = store.next(record); r != dxf::kNoRecord; r = store.next(r)) {
    if (store.kind(r) != RecordKind::kVertex) break;
    if (store.erased(r)) continue;
    changeRecord(database, r, [&](RecordEdit& edit) { translateCode(edit.draft(), 10, own); });
  }
  return true;
}

}  // namespace

bool hasOcsPoints(RecordKind kind) {
  switch (kind) {
    case RecordKind::kCircle:
    case RecordKind::kArc:
    case RecordKind::kSolid:
    case RecordKind::kTrace:
    case RecordKind::kText:
    case RecordKind::kAttrib:
    case RecordKind::kAttDef:
    case RecordKind::kInsert:
    case RecordKind::kLwPolyline:
      return true;
    default:
      return false;
  }
}

AcGeVector3d entityNormal(const dxf::RecordDraft& draft) {
  const std::size_t x = draft.find(210);
  const std::size_t y = draft.find(220);
  const std::size_t z = draft.find(230);
  if (x == dxf::kNoGroup || y == dxf::kNoGroup) return AcGeVector3d(0, 0, 1);
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

bool translateEntity(AcDbObjectId id, const AcGeVector3d& vector) {
  AcDbEntity* entity = nullptr;
  if (acdbOpenObject(entity, id, AcDb::kForWrite) != Acad::eOk) return false;
  AcGeMatrix3d matrix;
  matrix.setToTranslation(vector);
  const bool moved = entity->transformBy(matrix) == Acad::eOk;
  AcDbDatabase& database = *entity->database();
  const RecordKind kind = database.store().kind(id.index());
  entity->close();
  if (moved) {
    // Attributes go with their block reference, also those on locked layers.
    if (kind == RecordKind::kInsert) translateFollowers(database, id.index(), vector);
    return true;
  }
  if (kind == RecordKind::kPolyline) return translatePolyline(database, id.index(), vector);
  const bool known = translateRecord(database, id.index(), vector);
  if (known) translateFollowers(database, id.index(), vector);
  return known;
}

}  // namespace kovra::arx
