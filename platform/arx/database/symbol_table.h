// Tables of named objects: layers, text styles, blocks.
#pragma once
#include <memory>

#include "platform/arx/database/object.h"

class AcDbSymbolTableRecord;

/// A walk over a symbol table's records in table order. The caller deletes it.
class AcDbSymbolTableIterator {
 public:
  virtual ~AcDbSymbolTableIterator();
  AcDbSymbolTableIterator(const AcDbSymbolTableIterator&) = delete;
  AcDbSymbolTableIterator& operator=(const AcDbSymbolTableIterator&) = delete;
  void start(bool atBeginning = true, bool skipDeleted = true);
  bool done() const;
  void step(bool forward = true, bool skipDeleted = true);
  Acad::ErrorStatus getRecordId(AcDbObjectId& id) const;
  Acad::ErrorStatus getRecord(AcDbSymbolTableRecord*& record, AcDb::OpenMode mode = AcDb::kForRead,
                              bool openErased = false) const;

 protected:
  friend class AcDbSymbolTable;
  struct State;
  explicit AcDbSymbolTableIterator(std::shared_ptr<State> state);
  std::shared_ptr<State> state_;
};

/// A table whose records are found by name, without regard to case.
class AcDbSymbolTable : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbSymbolTable)
  explicit AcDbSymbolTable(kovra::arx::Stored);
  /// eKeyNotFound when there is no such record; erased ones count only if asked for.
  Acad::ErrorStatus getIdAt(const ACHAR* name, AcDbObjectId& id, bool getErased = false) const;
  Acad::ErrorStatus getAt(const ACHAR* name, AcDbSymbolTableRecord*& record, AcDb::OpenMode mode,
                          bool openErased = false) const;
  bool has(const ACHAR* name) const;
  bool has(AcDbObjectId id) const;
  Acad::ErrorStatus newIterator(AcDbSymbolTableIterator*& iterator, bool atBeginning = true,
                                bool skipDeleted = true) const;
  /// Gives the record its place and handle; from then on it is open for write, and the caller
  /// closes it. eDuplicateKey, eInvalidKey for an empty name.
  Acad::ErrorStatus add(AcDbObjectId& id, AcDbSymbolTableRecord* record);
  Acad::ErrorStatus add(AcDbSymbolTableRecord* record);

 protected:
  std::shared_ptr<AcDbSymbolTableIterator::State> iteratorState(bool atBeginning,
                                                                bool skipDeleted) const;
};

class AcDbSymbolTableRecord : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbSymbolTableRecord)
  explicit AcDbSymbolTableRecord(kovra::arx::Stored);
  /// The form with a plain pointer gives a copy that the caller releases with acutDelString; the
  /// one with a pointer to const text is valid until the record changes or closes.
  Acad::ErrorStatus getName(ACHAR*& name) const;
  Acad::ErrorStatus getName(const ACHAR*& name) const;
  Acad::ErrorStatus setName(const ACHAR* name);
};

class AcDbLayerTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbLayerTableRecord)
  explicit AcDbLayerTableRecord(kovra::arx::Stored);
  /// A new layer: on, color 7, continuous.
  AcDbLayerTableRecord();
  bool isOff() const;
  void setIsOff(bool off);
  bool isFrozen() const;
  /// The current layer can't be frozen: eInvalidInput.
  Acad::ErrorStatus setIsFrozen(bool frozen);
  bool isLocked() const;
  void setIsLocked(bool locked);
  Adesk::UInt16 colorIndex() const;
  Acad::ErrorStatus setColorIndex(Adesk::UInt16 color);
};

class AcDbTextStyleTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbTextStyleTableRecord)
  explicit AcDbTextStyleTableRecord(kovra::arx::Stored);
  AcDbTextStyleTableRecord();
  /// Fixed height, 0 for none.
  double textSize() const;
  Acad::ErrorStatus setTextSize(double size);
  /// Width factor.
  double xScale() const;
  Acad::ErrorStatus setXScale(double factor);
  double obliquingAngle() const;
  Acad::ErrorStatus setObliquingAngle(double angle);
  Adesk::Boolean isVertical() const;
  Acad::ErrorStatus setIsVertical(Adesk::Boolean vertical);
  double priorSize() const;
  Acad::ErrorStatus setPriorSize(double size);
  Acad::ErrorStatus fileName(const ACHAR*& name) const;
  Acad::ErrorStatus setFileName(const ACHAR* name);
  Acad::ErrorStatus bigFontFileName(const ACHAR*& name) const;
};

class AcDbBlockTableRecord;

namespace kovra::arx {

/// An iterator that opens records as their own class.
template <class Record>
class TypedTableIterator : public AcDbSymbolTableIterator {
 public:
  using AcDbSymbolTableIterator::AcDbSymbolTableIterator;
  using AcDbSymbolTableIterator::getRecord;
  Acad::ErrorStatus getRecord(Record*& record, AcDb::OpenMode mode = AcDb::kForRead,
                              bool openErased = false) const {
    AcDbObjectId id;
    const Acad::ErrorStatus status = getRecordId(id);
    return status == Acad::eOk ? acdbOpenObject(record, id, mode, openErased) : status;
  }
};

/// A table that hands out its records and iterators as their own classes.
template <class Iterator, class Record>
class TypedTable : public AcDbSymbolTable {
 public:
  using AcDbSymbolTable::AcDbSymbolTable;
  using AcDbSymbolTable::getAt;
  using AcDbSymbolTable::newIterator;
  Acad::ErrorStatus getAt(const ACHAR* name, AcDbObjectId& id, bool getErased = false) const {
    return getIdAt(name, id, getErased);
  }
  Acad::ErrorStatus getAt(const ACHAR* name, Record*& record, AcDb::OpenMode mode,
                          bool openErased = false) const {
    AcDbObjectId id;
    record = nullptr;
    const Acad::ErrorStatus status = getIdAt(name, id, openErased);
    return status == Acad::eOk ? acdbOpenObject(record, id, mode, openErased) : status;
  }
  Acad::ErrorStatus newIterator(Iterator*& iterator, bool atBeginning = true,
                                bool skipDeleted = true) const {
    iterator = new Iterator(iteratorState(atBeginning, skipDeleted));
    return Acad::eOk;
  }
};

}  // namespace kovra::arx

class AcDbLayerTableIterator : public kovra::arx::TypedTableIterator<AcDbLayerTableRecord> {
  using TypedTableIterator::TypedTableIterator;
  friend class kovra::arx::TypedTable<AcDbLayerTableIterator, AcDbLayerTableRecord>;
};
class AcDbLayerTable : public kovra::arx::TypedTable<AcDbLayerTableIterator, AcDbLayerTableRecord> {
 public:
  ACRX_DECLARE_MEMBERS(AcDbLayerTable)
  using TypedTable::TypedTable;
};

class AcDbTextStyleTableIterator : public kovra::arx::TypedTableIterator<AcDbTextStyleTableRecord> {
  using TypedTableIterator::TypedTableIterator;
  friend class kovra::arx::TypedTable<AcDbTextStyleTableIterator, AcDbTextStyleTableRecord>;
};
class AcDbTextStyleTable
    : public kovra::arx::TypedTable<AcDbTextStyleTableIterator, AcDbTextStyleTableRecord> {
 public:
  ACRX_DECLARE_MEMBERS(AcDbTextStyleTable)
  using TypedTable::TypedTable;
};

class AcDbBlockTableIterator : public kovra::arx::TypedTableIterator<AcDbBlockTableRecord> {
  using TypedTableIterator::TypedTableIterator;
  friend class kovra::arx::TypedTable<AcDbBlockTableIterator, AcDbBlockTableRecord>;
};
class AcDbBlockTable : public kovra::arx::TypedTable<AcDbBlockTableIterator, AcDbBlockTableRecord> {
 public:
  ACRX_DECLARE_MEMBERS(AcDbBlockTable)
  using TypedTable::TypedTable;
};
