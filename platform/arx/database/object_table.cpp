#include "platform/arx/database/object_table.h"

#include "platform/arx/database/database.h"
#include "platform/dxf/record_store.h"

namespace kovra::arx {

const dxf::Dialect& freeDialect() {
  static const dxf::Dialect dialect = [] {
    dxf::Dialect newest;
    newest.release = dxf::kR2018;
    newest.binary = true;
    newest.wideCodes = true;
    newest.subclassMarkers = true;
    return newest;
  }();
  return dialect;
}

const dxf::TextCodec& freeCodec() {
  static const dxf::TextCodec codec(freeDialect());
  return codec;
}

ObjectTable::ObjectTable(AcDbDatabase& database) : database_(database), buckets_(64, nullptr) {}

ObjectTable::~ObjectTable() {
  for (AcDbObject* object : buckets_)
    while (object != nullptr) delete std::exchange(object, object->nextInTable_);
}

AcDbObject* ObjectTable::find(dxf::RecordIndex index) const {
  AcDbObject* object = buckets_[bucket(index)];
  while (object != nullptr && object->record_ != index) object = object->nextInTable_;
  return object;
}

void ObjectTable::link(AcDbObject& object) {
  if (++openCount_ > buckets_.size()) {
    std::vector<AcDbObject*> former(buckets_.size() * 2, nullptr);
    former.swap(buckets_);
    for (AcDbObject* next : former)
      while (next != nullptr) {
        AcDbObject* moved = std::exchange(next, next->nextInTable_);
        moved->nextInTable_ = std::exchange(buckets_[bucket(moved->record_)], moved);
      }
  }
  object.nextInTable_ = std::exchange(buckets_[bucket(object.record_)], &object);
}

void ObjectTable::unlink(AcDbObject& object) {
  AcDbObject** place = &buckets_[bucket(object.record_)];
  while (*place != &object) place = &(*place)->nextInTable_;
  *place = object.nextInTable_;
  --openCount_;
}

Acad::ErrorStatus ObjectTable::open(AcDbObject*& object, dxf::RecordIndex index,
                                    const AcRxClass* wanted, AcDb::OpenMode mode, bool openErased) {
  object = nullptr;
  const AcRxClass* theClass = classOf(index);
  if (theClass == nullptr) return Acad::eNullObjectId;
  if (!theClass->isDerivedFrom(wanted)) return Acad::eNotThatKindOfClass;
  if (!openErased && erased(index)) return Acad::eWasErased;
  const bool write = mode == AcDb::kForWrite;
  AcDbObject* present = find(index);
  if (present != nullptr) {
    if (present->writer_) return Acad::eWasOpenForWrite;
    if (write) return Acad::eWasOpenForRead;
  } else {
    if (write && onLockedLayer(index)) return Acad::eOnLockedLayer;
    present = create(index);
    present->database_ = &database_;
    present->record_ = index;
    link(*present);
  }
  if (write) {
    present->writer_ = true;
  } else {
    ++present->readers_;
  }
  object = present;
  return Acad::eOk;
}

Acad::ErrorStatus ObjectTable::close(AcDbObject& object, bool keepChanges) {
  if (object.writer_) {
    if (keepChanges) flush(object);
    object.writer_ = false;
  } else {
    --object.readers_;
  }
  if (object.readers_ == 0) {
    unlink(object);
    releaseBody(object);
    delete &object;
  }
  return Acad::eOk;
}

Acad::ErrorStatus ObjectTable::upgrade(AcDbObject& object) {
  if (object.writer_) return Acad::eWasOpenForWrite;
  if (object.readers_ > 1) return Acad::eWasOpenForRead;
  if (erased(object.record_)) return Acad::eWasErased;
  if (onLockedLayer(object.record_)) return Acad::eOnLockedLayer;
  object.readers_ = 0;
  object.writer_ = true;
  return Acad::eOk;
}

Acad::ErrorStatus ObjectTable::downgrade(AcDbObject& object) {
  if (!object.writer_) return Acad::eNotOpenForWrite;
  flush(object);
  object.writer_ = false;
  object.readers_ = 1;
  return Acad::eOk;
}

void ObjectTable::flush(AcDbObject& object) {
  if (!object.modified_) return;
  object.subClose();
  // The draft looks into the record's old bytes, so it can't outlive the replacement.
  flushing_ = true;
  database_.store().replace(object.record_, object.groups());
  flushing_ = false;
  releaseBody(object);
  object.modified_ = false;
}

void ObjectTable::drop(AcDbObject& object) const {
  releaseBody(object);
  object.modified_ = false;
}

void ObjectTable::writePending() {
  for (AcDbObject* object : buckets_)
    for (; object != nullptr; object = object->nextInTable_) flush(*object);
}

void ObjectTable::dropPending() {
  for (AcDbObject* object : buckets_)
    for (; object != nullptr; object = object->nextInTable_)
      if (object->modified_) drop(*object);
}

Acad::ErrorStatus ObjectTable::erase(AcDbObject& object, bool erasing) {
  if (!object.writer_) return Acad::eNotOpenForWrite;
  if (!isEntity(object.record_) && isTableObject(object.record_)) return Acad::eNotApplicable;
  if (erased(object.record_) == erasing) return erasing ? Acad::eWasErased : Acad::eWasNotErased;
  flush(object);
  eraseRecord(object.record_, erasing);
  return Acad::eOk;
}

void ObjectTable::eraseRecord(dxf::RecordIndex index, bool erasing) {
  if (erasing) return eraseWithParts(index);
  database_.store().setErased(index, false);
  const auto found = erasedWith_.find(index);
  if (found == erasedWith_.end()) return;
  for (const dxf::RecordIndex part : found->second) database_.store().setErased(part, false);
  erasedWith_.erase(found);
}

void ObjectTable::eraseWithParts(dxf::RecordIndex index) {
  dxf::RecordStore& store = database_.store();
  std::vector<dxf::RecordIndex> parts;
  const dxf::RecordIndex end = database_.structure().pastSubordinates(index);
  for (dxf::RecordIndex part = store.next(index); part != end; part = store.next(part)) {
    if (store.erased(part)) continue;
    store.setErased(part, true);
    parts.push_back(part);
  }
  eraseOwned(index, parts);
  for (std::size_t i = 0; i < parts.size(); ++i) eraseOwned(parts[i], parts);
  store.setErased(index, true);
  if (parts.empty()) {
    erasedWith_.erase(index);
  } else {
    erasedWith_[index] = std::move(parts);
  }
}

std::vector<dxf::RecordIndex> ObjectTable::ownedObjects(dxf::RecordIndex owner) const {
  const dxf::RecordStore& store = database_.store();
  std::vector<dxf::RecordIndex> found;
  const ScratchDraft scratch(*this);
  store.load(owner, *scratch);
  const dxf::RecordDraft& draft = *scratch;
  for (std::size_t i = 0; i < draft.size(); ++i) {
    if (draft.code(i) != 350 && draft.code(i) != 360) continue;
    const dxf::RecordIndex owned = store.find(draft.handle(i));
    if (owned != dxf::kNoRecord && store.section(owned) == dxf::SectionKind::kObjects &&
        !store.erased(owned) &&
        (!store.dialect().owners || store.owner(owned) == store.handle(owner)))
      found.push_back(owned);
  }
  return found;
}

/// Erases what a record owns, and appends it.
void ObjectTable::eraseOwned(dxf::RecordIndex owner, std::vector<dxf::RecordIndex>& parts) {
  for (const dxf::RecordIndex owned : ownedObjects(owner)) {
    database_.store().setErased(owned, true);
    parts.push_back(owned);
  }
}

void ObjectTable::recordChanged(dxf::RecordIndex index) {
  if (flushing_) return;
  if (AcDbObject* object = find(index)) drop(*object);
}

ObjectBody& ObjectTable::body(const AcDbObject& object) const {
  if (object.body_ == nullptr) object.body_ = takeBody();
  return *object.body_;
}

std::unique_ptr<ObjectBody> ObjectTable::takeBody() const {
  if (spareBodies_.empty()) return std::make_unique<ObjectBody>();
  std::unique_ptr<ObjectBody> body = std::move(spareBodies_.back());
  spareBodies_.pop_back();
  body->validTexts = 0;
  body->decoded = false;
  body->numbersKnown = false;
  body->invisible = -1;
  body->heldBack = 0;
  return body;
}

void ObjectTable::giveBack(std::unique_ptr<ObjectBody> body) const {
  constexpr std::size_t kSpare = 64;
  if (body != nullptr && spareBodies_.size() < kSpare) spareBodies_.push_back(std::move(body));
}

void ObjectTable::decode(dxf::RecordIndex index, ObjectBody& body) const {
  if (index < database_.store().count()) {
    database_.store().load(index, body.draft);
  } else {
    body.draft.start(database_.store().dialect(), "TABLE", 0, 0);
  }
  body.decoded = true;
}

void ObjectTable::loadCurrent(dxf::RecordIndex index, dxf::RecordDraft& draft) const {
  const AcDbObject* object = find(index);
  if (object == nullptr || !object->modified_) {
    database_.store().load(index, draft);
    return;
  }
  draft.decodeOwned(database_.store().dialect(),
                    [&](std::string& bytes) { object->groups().appendBytes(bytes); });
}

void ObjectTable::releaseBody(AcDbObject& object) const {
  giveBack(std::move(object.body_));
}

}  // namespace kovra::arx
