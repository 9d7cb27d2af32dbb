// Entities one after another, and by their handles.
#include "platform/arx/database/database.h"
#include "platform/arx/database/object_table.h"
#include "platform/arx/lists/entity_lists.h"
#include "platform/dxf/record_store.h"
#include "platform/dxf/structure.h"

namespace dxf = kovra::dxf;

namespace {

AcDbDatabase* workingDrawing() {
  AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
  return database != nullptr && database->hasDrawing() ? database : nullptr;
}

/// An entity of model space or a layout that isn't erased, attributes and ends of sequences
/// included.
bool isListed(const AcDbDatabase& database, dxf::RecordIndex index) {
  if (!database.objects().isEntity(index) || database.store().erased(index)) return false;
  const dxf::BlockNumber block = database.structure().blockOf(index);
  return block != dxf::kNoBlock && database.structure().block(block).space;
}

bool isPart(const AcDbDatabase& database, dxf::RecordIndex index) {
  switch (database.store().kind(index)) {
    case dxf::RecordKind::kVertex:
    case dxf::RecordKind::kSeqEnd:
      return true;
    case dxf::RecordKind::kAttrib:
      return database.structure().insertOf(index) != dxf::kNoRecord;
    default:
      return false;
  }
}

}  // namespace

// New records have the greatest indexes, in the order in which they were made.
int acdbEntLast(ads_name name) {
  ads_name_clear(name);
  const AcDbDatabase* database = workingDrawing();
  if (database == nullptr) return RTERROR;
  for (dxf::RecordIndex i = database->store().count(); i-- > 0;)
    if (isListed(*database, i) && !isPart(*database, i))
      return acdbGetAdsName(name, database->idOf(i)) == Acad::eOk ? RTNORM : RTERROR;
  return RTERROR;
}

int acdbEntNext(const ads_name name, ads_name next) {
  const AcDbDatabase* database = workingDrawing();
  if (database == nullptr) return RTERROR;
  const dxf::RecordStore& store = database->store();
  dxf::RecordIndex index = store.first();
  if (name != nullptr && !ads_name_nil(name)) {
    AcDbObjectId id;
    if (acdbGetObjectId(id, name) != Acad::eOk || id.database() != database ||
        id.index() >= store.count())
      return RTERROR;
    index = store.next(id.index());
  }
  for (; index != dxf::kNoRecord; index = store.next(index))
    if (isListed(*database, index))
      return acdbGetAdsName(next, database->idOf(index)) == Acad::eOk ? RTNORM : RTERROR;
  return RTERROR;
}

int acdbHandEnt(const ACHAR* handle, ads_name name) {
  ads_name_clear(name);
  AcDbDatabase* database = workingDrawing();
  AcDbObjectId id;
  if (database == nullptr || database->getAcDbObjectId(id, false, AcDbHandle(handle)) != Acad::eOk)
    return RTERROR;
  return acdbGetAdsName(name, id) == Acad::eOk ? RTNORM : RTERROR;
}
