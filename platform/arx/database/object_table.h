// The open objects of a database, and what an index of the database names.
#pragma once
#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/arx/database/object.h"
#include "platform/arx/database/record_classes.h"
#include "platform/arx/geometry/geometry.h"
#include "platform/arx/geometry/text_metrics.h"
#include "platform/dxf/record_draft.h"
#include "platform/dxf/structure.h"

namespace kovra::arx {

/// What decides the place of a text, read from its groups once: a text that is dragged about is
/// asked for it, and moved, again and again.
struct TextNumbers {
  TextShape shape;      ///< without the text, its size and the style
  AcGeVector3d normal;  ///< of the plane that the shape's points are in
  bool inWorldPlane = false;
  bool hasPosition = false;  ///< a group 10, and so on
  bool hasAlignment = false;
  bool elevated = false;  ///< by group 38
};

/// The decoded part of an open object; reused from object to object.
struct ObjectBody {
  dxf::RecordDraft draft;
  TextNumbers numbers;
  bool numbersKnown = false;
  std::int8_t invisible = -1;  ///< of an entity, -1 when not known
  std::uint8_t heldBack = 0;   ///< values of `numbers` that the draft doesn't have yet
  std::array<std::wstring, 6> texts;
  LineSize textSize;            ///< of the text in slot kText
  std::uint8_t validTexts = 0;  ///< bits by TextSlot, and one behind them for textSize
  bool decoded = false;         ///< the draft holds the record
};

/// How objects outside a database keep their groups: as the newest release, in UTF-8. Numbers are
/// in binary form, which costs least where texts are moved again and again.
const dxf::Dialect& freeDialect();
const dxf::TextCodec& freeCodec();

// Indexes of an AcDbObjectId are record indexes. Symbol tables, and spaces that the file has no
// record for, have indexes above all records.
dxf::RecordIndex tableObject(dxf::TableKind table);
bool isTableObject(dxf::RecordIndex index);
dxf::TableKind tableOfObject(dxf::RecordIndex index);

/// Opens objects, keeps who has them open, and brings their changes to the records.
class ObjectTable {
 public:
  explicit ObjectTable(AcDbDatabase& database);
  ~ObjectTable();
  ObjectTable(const ObjectTable&) = delete;
  ObjectTable& operator=(const ObjectTable&) = delete;

  // Opening and closing; see AcDbObject.
  Acad::ErrorStatus open(AcDbObject*& object, dxf::RecordIndex index, const AcRxClass* wanted,
                         AcDb::OpenMode mode, bool openErased);
  /// The object is gone afterwards unless others have it open.
  Acad::ErrorStatus close(AcDbObject& object, bool keepChanges);
  Acad::ErrorStatus upgrade(AcDbObject& object);
  Acad::ErrorStatus downgrade(AcDbObject& object);
  Acad::ErrorStatus erase(AcDbObject& object, bool erasing);
  /// Brings to the records what writers hold back; they stay writers.
  void writePending();
  /// Drops what writers hold back since they opened or since writePending.
  void dropPending();
  /// Erases or brings back a record with its parts and the objects that it owns, whoever has it
  /// open.
  void eraseRecord(dxf::RecordIndex index, bool erasing);
  /// The objects that a record names as its own and that name it as their owner (where the release
  /// has owners), such as its extension dictionary; none that is erased.
  std::vector<dxf::RecordIndex> ownedObjects(dxf::RecordIndex owner) const;

  /// Makes a record of an entity that isn't in a database, behind the last entity of a block; it is
  /// then open for write. False for an index that is no block.
  bool append(AcDbObject& entity, dxf::RecordIndex block);
  /// Appends the groups of an object that isn't in a database, in this drawing's dialect.
  void translateGroups(const AcDbObject& object, dxf::RecordDraft& draft) const;
  /// The object is open for write as this record from now on.
  void adopt(AcDbObject& object, dxf::RecordIndex index);

  /// A record changed: what was decoded of it is out of date.
  void recordChanged(dxf::RecordIndex index);

  // What an index names.
  bool exists(dxf::RecordIndex index) const;
  bool erased(dxf::RecordIndex index) const;
  /// The class that it opens as; null if it can't be opened.
  AcRxClass* classOf(dxf::RecordIndex index) const;
  dxf::RecordIndex ownerOf(dxf::RecordIndex index) const;
  dxf::RecordIndex blockObject(dxf::BlockNumber number) const;
  dxf::BlockNumber blockOfObject(dxf::RecordIndex index) const;
  /// Group 10 of the block's BLOCK record.
  AcGePoint3d blockOrigin(dxf::RecordIndex index) const;
  bool isEntity(dxf::RecordIndex index) const;
  /// Whether the entity's layer is locked.
  bool onLockedLayer(dxf::RecordIndex index) const;
  /// Open for read or write by somebody.
  bool isOpen(dxf::RecordIndex index) const { return find(index) != nullptr; }

  /// The groups of a record as they are now, also while a writer holds changes back.
  void loadCurrent(dxf::RecordIndex index, dxf::RecordDraft& draft) const;
  /// The object's body, which may be one that another object gave back.
  ObjectBody& body(const AcDbObject& object) const;
  void decode(dxf::RecordIndex index, ObjectBody& body) const;

  // Bodies that nobody needs at the moment; their storage saves the next user allocations.
  std::unique_ptr<ObjectBody> takeBody() const;
  void giveBack(std::unique_ptr<ObjectBody> body) const;

 private:
  AcDbObject* find(dxf::RecordIndex index) const;
  void link(AcDbObject& object);
  void unlink(AcDbObject& object);
  /// Nulls for an index that opens as nothing.
  RecordClass recordClassOf(dxf::RecordIndex index) const;
  AcDbObject* create(dxf::RecordIndex index) const;
  void flush(AcDbObject& object);
  void drop(AcDbObject& object) const;
  void releaseBody(AcDbObject& object) const;
  void eraseWithParts(dxf::RecordIndex index);
  void eraseOwned(dxf::RecordIndex owner, std::vector<dxf::RecordIndex>& parts);
  std::size_t bucket(dxf::RecordIndex index) const { return index & (buckets_.size() - 1); }

  AcDbDatabase& database_;
  std::vector<AcDbObject*> buckets_;
  std::size_t openCount_ = 0;
  mutable std::vector<std::unique_ptr<ObjectBody>> spareBodies_;
  std::unordered_map<dxf::RecordIndex, std::vector<dxf::RecordIndex>> erasedWith_;
  bool flushing_ = false;
};

/// A draft for the length of a function, in storage that goes from user to user.
class ScratchDraft {
 public:
  explicit ScratchDraft(const ObjectTable& objects)
      : objects_(objects), body_(objects.takeBody()) {}
  ~ScratchDraft() { objects_.giveBack(std::move(body_)); }
  ScratchDraft(const ScratchDraft&) = delete;
  ScratchDraft& operator=(const ScratchDraft&) = delete;

  dxf::RecordDraft& operator*() const { return body_->draft; }

 private:
  const ObjectTable& objects_;
  std::unique_ptr<ObjectBody> body_;
};

}  // namespace kovra::arx
