// The base of all database objects, and opening them.
#pragma once
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/arx/base/enums.h"
#include "platform/arx/base/error_status.h"
#include "platform/arx/base/rx_class.h"
#include "platform/arx/database/object_id.h"
#include "platform/arx/geometry/gi.h"

class AcDbDatabase;
namespace kovra::dxf {
class RecordDraft;
class TextCodec;
}  // namespace kovra::dxf
namespace kovra::arx {
class ObjectTable;
class RecordEdit;
struct LineSize;
struct ObjectBody;
struct Property;

/// Chooses the constructors of objects that get their groups from a stored record.
struct Stored {};

/// What a change may touch: texts too, or numbers alone.
enum class Touched { kAll, kNumbers };

/// Texts of an object that are kept decoded as long as they don't change.
enum class TextSlot { kLayer, kLinetype, kText, kName, kStyle, kPrompt };
}  // namespace kovra::arx

/// An object of a drawing: a view of one record's groups. In a database it is either open for read
/// by any number of openers, who share the one object, or open for write by one; an opener calls
/// close and then forgets the pointer. Changes reach the record when the writer closes or
/// downgrades. An object outside a database holds groups of its own, is always readable and
/// writable, and belongs to whoever made it.
class AcDbObject : public AcGiDrawable {
 public:
  ACRX_DECLARE_MEMBERS(AcDbObject)
  explicit AcDbObject(kovra::arx::Stored);
  ~AcDbObject() override;
  AcDbObject(const AcDbObject&) = delete;
  AcDbObject& operator=(const AcDbObject&) = delete;

  /// Null outside a database.
  AcDbObjectId objectId() const;
  AcDbObjectId id() const { return objectId(); }
  /// The block table record of an entity's space or block, the table of a table record, the block
  /// reference of an attribute.
  AcDbObjectId ownerId() const;
  AcDbDatabase* database() const { return database_; }
  void getAcDbHandle(AcDbHandle& handle) const;

  /// Ends this open. The writer's changes go to the record. eInvalidOpenState outside a database.
  Acad::ErrorStatus close();
  /// Ends this open and drops the writer's changes.
  Acad::ErrorStatus cancel();
  /// From the only reader to the writer. eWasOpenForRead with other readers, eOnLockedLayer.
  Acad::ErrorStatus upgradeOpen();
  /// From the writer to a reader; the changes go to the record.
  Acad::ErrorStatus downgradeOpen();
  /// Erases or brings back the object, with what it contains (the attributes of a block reference).
  Acad::ErrorStatus erase(Adesk::Boolean erasing = true);

  Adesk::Boolean isErased() const;
  Adesk::Boolean isReadEnabled() const;
  Adesk::Boolean isWriteEnabled() const;
  Adesk::Boolean isModified() const { return modified_; }
  Adesk::Boolean isNewObject() const { return database_ == nullptr; }

  /// Changes groups as a list asks for it: the function changes the record's groups and says
  /// whether it did. eNotOpenForWrite.
  virtual Acad::ErrorStatus applyGroups(const std::function<bool(kovra::arx::RecordEdit&)>& change);

 protected:
  friend class kovra::arx::ObjectTable;

  /// Starts the groups of an object that isn't in a database.
  kovra::dxf::RecordDraft& startGroups(std::string_view typeName);
  /// The record's groups, decoded at the first use.
  const kovra::dxf::RecordDraft& groups() const;
  const kovra::dxf::TextCodec& codec() const;
  /// A text property, decoded once; valid until the object changes or closes. Empty if the group is
  /// missing.
  const std::wstring& cachedText(kovra::arx::TextSlot slot, kovra::arx::Property property) const;
  /// Size of the text that slot kText holds, which must have been asked for; measured once.
  const kovra::arx::LineSize& textSize() const;
  /// Carries a change out. It gets a RecordEdit and says whether something changed; `changed` (if
  /// not null) is told. eNotOpenForWrite.
  Acad::ErrorStatus apply(const std::function<bool(kovra::arx::RecordEdit&)>& change,
                          bool* changed = nullptr,
                          kovra::arx::Touched touched = kovra::arx::Touched::kAll);
  /// Notes a change of this bit's value that goes to the groups only when somebody reads them; see
  /// writeHeldBack.
  void holdBack(std::uint8_t bit);
  /// Brings the values that were held back into the groups.
  virtual void writeHeldBack(kovra::arx::ObjectBody&) const {}
  kovra::arx::ObjectBody& ensureBody() const;
  bool canWrite() const { return database_ == nullptr || writer_; }
  std::uint32_t recordIndex() const { return record_; }
  /// Last chance to bring groups in step before changes go to the record.
  virtual void subClose() {}

 private:
  void decodeText(kovra::arx::Property property, std::wstring& text) const;

  mutable std::unique_ptr<kovra::arx::ObjectBody> body_;
  AcDbDatabase* database_ = nullptr;
  AcDbObject* nextInTable_ = nullptr;
  std::uint32_t record_ = 0;
  std::uint32_t readers_ = 0;
  bool writer_ = false;
  bool modified_ = false;
};

/// Opens an object. Failures leave the pointer null: eNullObjectId, eWasErased (unless erased ones
/// may be opened), eWasOpenForWrite, eWasOpenForRead (for write with readers), eOnLockedLayer, and
/// eNotThatKindOfClass from the form that asks for a class.
Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased = false);
Acad::ErrorStatus acdbOpenObject(AcDbObject*& object, AcDbObjectId id, AcRxClass* wanted,
                                 AcDb::OpenMode mode, bool openErased);

template <class T>
Acad::ErrorStatus acdbOpenObject(T*& object, AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead,
                                 bool openErased = false) {
  AcDbObject* opened = nullptr;
  const Acad::ErrorStatus status = acdbOpenObject(opened, id, T::desc(), mode, openErased);
  object = static_cast<T*>(opened);
  return status;
}
