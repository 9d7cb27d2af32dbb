#include "platform/arx/database/block_table_record.h"

#include <algorithm>
#include <vector>

#include "platform/arx/database/database.h"
#include "platform/arx/database/entity.h"
#include "platform/arx/database/object_table.h"
#include "platform/dxf/record_store.h"
#include "platform/dxf/structure.h"

namespace dxf = kovra::dxf;
using namespace kovra::arx;

ACRX_DEFINE_MEMBERS(AcDbBlockTableRecord, AcDbSymbolTableRecord, nullptr)

/// Forwards over live entities the structure walks; any other walk needs the list.
struct AcDbBlockTableRecordIterator::State {
  AcDbDatabase& database;
  dxf::BlockNumber block;
  dxf::RecordIndex at = dxf::kNoRecord;
  std::vector<dxf::RecordIndex> all;  ///< erased ones too; filled when needed

  const std::vector<dxf::RecordIndex>& list() {
    if (!all.empty()) return all;
    const dxf::RecordStore& store = database.store();
    for (dxf::RecordIndex i = store.first(); i != dxf::kNoRecord; i = store.next(i)) {
      const dxf::RecordKind kind = store.kind(i);
      const bool isPart =
          kind == dxf::RecordKind::kVertex || kind == dxf::RecordKind::kSeqEnd ||
          (kind == dxf::RecordKind::kAttrib && database.structure().insertOf(i) != dxf::kNoRecord);
      if (!isPart && database.objects().isEntity(i) && database.structure().blockOf(i) == block)
        all.push_back(i);
    }
    return all;
  }
};

AcDbBlockTableRecordIterator::AcDbBlockTableRecordIterator(std::unique_ptr<State> state)
    : state_(std::move(state)) {}
AcDbBlockTableRecordIterator::~AcDbBlockTableRecordIterator() = default;

void AcDbBlockTableRecordIterator::start(bool atBeginning, bool skipDeleted) {
  if (atBeginning && skipDeleted) {
    state_->at = state_->database.structure().firstEntity(state_->block);
    return;
  }
  const std::vector<dxf::RecordIndex>& list = state_->list();
  if (list.empty()) {
    state_->at = dxf::kNoRecord;
    return;
  }
  state_->at = atBeginning ? list.front() : list.back();
  if (skipDeleted && state_->database.store().erased(state_->at)) step(atBeginning, true);
}

bool AcDbBlockTableRecordIterator::done() const {
  return state_->at == dxf::kNoRecord;
}

void AcDbBlockTableRecordIterator::step(bool forward, bool skipDeleted) {
  if (done()) return;
  if (forward && skipDeleted) {
    state_->at = state_->database.structure().nextEntity(state_->block, state_->at);
    return;
  }
  const std::vector<dxf::RecordIndex>& list = state_->list();
  auto place = std::find(list.begin(), list.end(), state_->at);
  do {
    if (place == list.end() || (!forward && place == list.begin())) {
      state_->at = dxf::kNoRecord;
      return;
    }
    place += forward ? 1 : -1;
    state_->at = place == list.end() ? dxf::kNoRecord : *place;
  } while (!done() && skipDeleted && state_->database.store().erased(state_->at));
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::getEntityId(AcDbObjectId& id) const {
  id.setNull();
  if (done()) return Acad::eEndOfObject;
  id = state_->database.idOf(state_->at);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::getEntity(AcDbEntity*& entity, AcDb::OpenMode mode,
                                                          bool openErased) const {
  AcDbObjectId id;
  entity = nullptr;
  const Acad::ErrorStatus status = getEntityId(id);
  return status == Acad::eOk ? acdbOpenObject(entity, id, mode, openErased) : status;
}

AcDbBlockTableRecord::AcDbBlockTableRecord(Stored stored) : AcDbSymbolTableRecord(stored) {}

Acad::ErrorStatus AcDbBlockTableRecord::newIterator(AcDbBlockTableRecordIterator*& iterator,
                                                    bool atBeginning, bool skipDeleted) const {
  iterator = nullptr;
  const dxf::BlockNumber block = database()->objects().blockOfObject(recordIndex());
  if (block == dxf::kNoBlock) return Acad::eInvalidBlockName;
  iterator = new AcDbBlockTableRecordIterator(std::make_unique<AcDbBlockTableRecordIterator::State>(
      AcDbBlockTableRecordIterator::State{*database(), block, dxf::kNoRecord, {}}));
  iterator->start(atBeginning, skipDeleted);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity) {
  id.setNull();
  if (entity == nullptr) return Acad::eNullEntityPointer;
  if (entity->database() != nullptr) return Acad::eAlreadyInDb;
  if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
  entity->subAppend(*database());
  if (!database()->objects().append(*entity, recordIndex())) return Acad::eInvalidBlockName;
  id = entity->objectId();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbEntity* entity) {
  AcDbObjectId id;
  return appendAcDbEntity(id, entity);
}

bool AcDbBlockTableRecord::isLayout() const {
  const dxf::BlockNumber block = database()->objects().blockOfObject(recordIndex());
  return block != dxf::kNoBlock && database()->structure().block(block).space;
}

AcGePoint3d AcDbBlockTableRecord::origin() const {
  return database()->objects().blockOrigin(recordIndex());
}
