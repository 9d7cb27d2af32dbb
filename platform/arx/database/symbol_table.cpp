#include "platform/arx/database/symbol_table.h"

#include <algorithm>
#include <vector>

#include "platform/arx/base/ads.h"
#include "platform/arx/database/block_table_record.h"
#include "platform/arx/database/database.h"
#include "platform/arx/database/object_table.h"
#include "platform/arx/database/record_edit.h"
#include "platform/dxf/record_store.h"
#include "platform/dxf/structure.h"

namespace dxf = kovra::dxf;
using namespace kovra::arx;

ACRX_DEFINE_MEMBERS(AcDbSymbolTable, AcDbObject, nullptr)
ACRX_DEFINE_MEMBERS(AcDbLayerTable, AcDbSymbolTable, nullptr)
ACRX_DEFINE_MEMBERS(AcDbTextStyleTable, AcDbSymbolTable, nullptr)
ACRX_DEFINE_MEMBERS(AcDbBlockTable, AcDbSymbolTable, nullptr)
ACRX_DEFINE_MEMBERS(AcDbSymbolTableRecord, AcDbObject, nullptr)

namespace {

bool hasEntities(const dxf::RecordStore& store) {
  const std::vector<dxf::RecordIndex>& marks = store.structural();
  return std::any_of(marks.begin(), marks.end(), [&store](dxf::RecordIndex mark) {
    if (store.kind(mark) != dxf::RecordKind::kSection) return false;
    const dxf::RecordIndex first = store.next(mark);
    return store.section(mark) == dxf::SectionKind::kEntities && first != dxf::kNoRecord &&
           store.kind(first) != dxf::RecordKind::kEndSec;
  });
}

/// R12 needs no record for a space. Programs that write later releases may leave out that of model
/// space; where there are entities, there is one.
bool isListed(const AcDbDatabase& database, dxf::BlockNumber number) {
  const dxf::Block& block = database.structure().block(number);
  if (block.blockRecord != dxf::kNoRecord || block.begin != dxf::kNoRecord) return true;
  return !database.store().dialect().subclassMarkers ||
         (number == dxf::kModelSpace && hasEntities(database.store()));
}

std::vector<dxf::RecordIndex> blockObjects(const AcDbDatabase& database) {
  std::vector<dxf::RecordIndex> objects;
  for (dxf::BlockNumber i = 0; i < database.structure().blockCount(); ++i)
    if (isListed(database, i)) objects.push_back(database.objects().blockObject(i));
  return objects;
}

/// The records of a table in table order, erased ones too.
std::vector<dxf::RecordIndex> entriesOf(const AcDbDatabase& database, dxf::TableKind table) {
  if (table == dxf::TableKind::kBlockRecord) return blockObjects(database);
  std::vector<dxf::RecordIndex> entries;
  const dxf::RecordStore& store = database.store();
  dxf::RecordIndex entry = database.structure().tableRecord(table);
  if (entry == dxf::kNoRecord) return entries;
  const auto wanted = static_cast<dxf::RecordKind>(static_cast<int>(dxf::RecordKind::kVport) +
                                                   static_cast<int>(table));
  for (entry = store.next(entry); entry != dxf::kNoRecord; entry = store.next(entry)) {
    const dxf::RecordKind kind = store.kind(entry);
    if (kind == dxf::RecordKind::kEndTab || kind == dxf::RecordKind::kEndSec) break;
    if (kind == wanted) entries.push_back(entry);
  }
  return entries;
}

dxf::RecordIndex findLive(const AcDbDatabase& database, dxf::TableKind table, const ACHAR* name) {
  if (table != dxf::TableKind::kBlockRecord) return database.structure().findEntry(table, name);
  const dxf::BlockNumber block = database.structure().findBlock(name);
  return block != dxf::kNoBlock && isListed(database, block) ? database.objects().blockObject(block)
                                                             : dxf::kNoRecord;
}

Property nameProperty(dxf::RecordKind kind) {
  switch (kind) {
    case dxf::RecordKind::kLayer:
      return {kLayerPart, 2};
    case dxf::RecordKind::kStyle:
      return {kStylePart, 2};
    case dxf::RecordKind::kLtype:
      return {"AcDbLinetypeTableRecord", 2};
    case dxf::RecordKind::kView:
      return {"AcDbViewTableRecord", 2};
    case dxf::RecordKind::kUcs:
      return {"AcDbUCSTableRecord", 2};
    case dxf::RecordKind::kAppId:
      return {"AcDbRegAppTableRecord", 2};
    case dxf::RecordKind::kDimStyle:
      return {"AcDbDimStyleTableRecord", 2};
    default:
      return {"AcDbViewportTableRecord", 2};
  }
}

}  // namespace

struct AcDbSymbolTableIterator::State {
  AcDbDatabase& database;
  std::vector<dxf::RecordIndex> entries;
  std::size_t at = 0;

  bool isDone() const { return at >= entries.size(); }
  bool isErased() const { return database.objects().erased(entries[at]); }
};

AcDbSymbolTableIterator::AcDbSymbolTableIterator(std::shared_ptr<State> state)
    : state_(std::move(state)) {}
AcDbSymbolTableIterator::~AcDbSymbolTableIterator() = default;

void AcDbSymbolTableIterator::start(bool atBeginning, bool skipDeleted) {
  state_->at = atBeginning || state_->entries.empty() ? 0 : state_->entries.size() - 1;
  if (!done() && skipDeleted && state_->isErased()) step(atBeginning, true);
}

bool AcDbSymbolTableIterator::done() const {
  return state_->isDone();
}

void AcDbSymbolTableIterator::step(bool forward, bool skipDeleted) {
  // One before the first wraps round to the greatest index, which is done as well.
  do {
    state_->at += forward ? 1 : static_cast<std::size_t>(-1);
  } while (!done() && skipDeleted && state_->isErased());
}

Acad::ErrorStatus AcDbSymbolTableIterator::getRecordId(AcDbObjectId& id) const {
  id.setNull();
  if (done()) return Acad::eEndOfObject;
  id = state_->database.idOf(state_->entries[state_->at]);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableIterator::getRecord(AcDbSymbolTableRecord*& record,
                                                     AcDb::OpenMode mode, bool openErased) const {
  AcDbObjectId id;
  record = nullptr;
  const Acad::ErrorStatus status = getRecordId(id);
  return status == Acad::eOk ? acdbOpenObject(record, id, mode, openErased) : status;
}

AcDbSymbolTable::AcDbSymbolTable(Stored stored) : AcDbObject(stored) {}

std::shared_ptr<AcDbSymbolTableIterator::State> AcDbSymbolTable::iteratorState(
    bool atBeginning, bool skipDeleted) const {
  auto state = std::make_unique<AcDbSymbolTableIterator::State>(AcDbSymbolTableIterator::State{
      *database(), entriesOf(*database(), tableOfObject(recordIndex()))});
  AcDbSymbolTableIterator iterator(std::move(state));
  iterator.start(atBeginning, skipDeleted);
  return std::move(iterator.state_);
}

Acad::ErrorStatus AcDbSymbolTable::newIterator(AcDbSymbolTableIterator*& iterator, bool atBeginning,
                                               bool skipDeleted) const {
  iterator = new AcDbSymbolTableIterator(iteratorState(atBeginning, skipDeleted));
  return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTable::getIdAt(const ACHAR* name, AcDbObjectId& id,
                                           bool getErased) const {
  id.setNull();
  if (name == nullptr) return Acad::eInvalidInput;
  const dxf::TableKind table = tableOfObject(recordIndex());
  dxf::RecordIndex entry = findLive(*database(), table, name);
  if (entry == dxf::kNoRecord && getErased) {
    const std::vector<dxf::RecordIndex> entries = entriesOf(*database(), table);
    const auto found = std::find_if(entries.begin(), entries.end(), [&](dxf::RecordIndex i) {
      return i < database()->store().count() &&
             dxf::equalNames(database()->structure().entryName(i), name);
    });
    if (found != entries.end()) entry = *found;
  }
  if (entry == dxf::kNoRecord) return Acad::eKeyNotFound;
  id = database()->idOf(entry);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTable::getAt(const ACHAR* name, AcDbSymbolTableRecord*& record,
                                         AcDb::OpenMode mode, bool openErased) const {
  AcDbObjectId id;
  record = nullptr;
  const Acad::ErrorStatus status = getIdAt(name, id, openErased);
  return status == Acad::eOk ? acdbOpenObject(record, id, mode, openErased) : status;
}

bool AcDbSymbolTable::has(const ACHAR* name) const {
  AcDbObjectId id;
  return getIdAt(name, id) == Acad::eOk;
}

bool AcDbSymbolTable::has(AcDbObjectId id) const {
  return id.database() == database() && id.ownerId() == objectId() && !id.isErased();
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbObjectId& id, AcDbSymbolTableRecord* record) {
  id.setNull();
  if (record == nullptr) return Acad::eNullObjectPointer;
  if (record->database() != nullptr) return Acad::eAlreadyInDb;
  if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
  const ACHAR* name = nullptr;
  record->getName(name);
  if (*name == 0) return Acad::eInvalidKey;
  if (has(name)) return Acad::eDuplicateKey;
  const dxf::TableKind table = tableOfObject(recordIndex());
  const AcRxClass* wanted = table == dxf::TableKind::kLayer   ? AcDbLayerTableRecord::desc()
                            : table == dxf::TableKind::kStyle ? AcDbTextStyleTableRecord::desc()
                                                              : nullptr;
  if (record->isA() != wanted) return Acad::eNotThatKindOfClass;
  dxf::Structure& structure = database()->structure();
  dxf::RecordDraft draft;
  structure.startEntry(table, draft);
  database()->objects().translateGroups(*record, draft);
  const dxf::RecordIndex entry = structure.addEntry(table, draft);
  database()->objects().adopt(*record, entry);
  id = record->objectId();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbSymbolTableRecord* record) {
  AcDbObjectId id;
  return add(id, record);
}

AcDbSymbolTableRecord::AcDbSymbolTableRecord(Stored stored) : AcDbObject(stored) {}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(const ACHAR*& name) const {
  // Spaces that the file has no record for, and blocks, are named by the structure.
  if (database() != nullptr && isKindOf(AcDbBlockTableRecord::desc())) {
    const dxf::BlockNumber block = database()->objects().blockOfObject(recordIndex());
    name = block == dxf::kNoBlock ? L"" : database()->structure().block(block).name.c_str();
  } else {
    name = cachedText(TextSlot::kName, nameProperty(groups().kind())).c_str();
  }
  return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(ACHAR*& name) const {
  const ACHAR* text = nullptr;
  name = nullptr;
  getName(text);
  return acutNewString(text, name) == RTNORM ? Acad::eOk : Acad::eOutOfMemory;
}

Acad::ErrorStatus AcDbSymbolTableRecord::setName(const ACHAR* name) {
  if (name == nullptr || *name == 0) return Acad::eInvalidKey;
  if (database() != nullptr && isKindOf(AcDbBlockTableRecord::desc())) return Acad::eNotApplicable;
  const Property property = nameProperty(groups().kind());
  return apply([&](RecordEdit& edit) { return edit.setText(property, name, codec()); });
}
