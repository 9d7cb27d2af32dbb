// Blocks and spaces.
#pragma once
#include "platform/arx/database/symbol_table.h"
#include "platform/arx/geometry/geometry.h"

class AcDbEntity;
/// Names of the two spaces that every drawing has.
#define ACDB_MODEL_SPACE ACRX_T("*Model_Space")
#define ACDB_PAPER_SPACE ACRX_T("*Paper_Space")

/// A walk over a block's own entities in drawing order, without attributes. The caller deletes it.
class AcDbBlockTableRecordIterator {
 public:
  ~AcDbBlockTableRecordIterator();
  AcDbBlockTableRecordIterator(const AcDbBlockTableRecordIterator&) = delete;
  AcDbBlockTableRecordIterator& operator=(const AcDbBlockTableRecordIterator&) = delete;
  void start(bool atBeginning = true, bool skipDeleted = true);
  bool done() const;
  void step(bool forward = true, bool skipDeleted = true);
  Acad::ErrorStatus getEntityId(AcDbObjectId& id) const;
  Acad::ErrorStatus getEntity(AcDbEntity*& entity, AcDb::OpenMode mode = AcDb::kForRead,
                              bool openErased = false) const;

 private:
  friend class AcDbBlockTableRecord;
  struct State;
  explicit AcDbBlockTableRecordIterator(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

class AcDbBlockTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbBlockTableRecord)
  explicit AcDbBlockTableRecord(kovra::arx::Stored);
  Acad::ErrorStatus newIterator(AcDbBlockTableRecordIterator*& iterator, bool atBeginning = true,
                                bool skipDeleted = true) const;
  /// Puts an entity that isn't in a database behind the block's last one. From then on it is in the
  /// database, open for write, and the caller closes it; on failure it stays the caller's.
  Acad::ErrorStatus appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity);
  Acad::ErrorStatus appendAcDbEntity(AcDbEntity* entity);
  bool isLayout() const;
  AcGePoint3d origin() const;
};
