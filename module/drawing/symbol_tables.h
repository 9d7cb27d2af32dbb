#pragma once

#include "module/drawing/current_database.h"
#include "module/frame/seam.h"

namespace kovra {

/// Scope of an open symbol-table record: closes it at its end unless told not to.
template <typename Record>
class CRecord {
 public:
  CRecord() = default;
  virtual ~CRecord() { release(); }
  CRecord(const CRecord&) = delete;
  CRecord& operator=(const CRecord&) = delete;

  virtual void attach(Record* record, bool close = true) {
    release();
    record_ = record;
    close_ = close;
  }

  Record* get() const { return record_; }
  Record* operator->() const { return record_; }

 private:
  void release() {
    if (record_ != nullptr && close_) record_->close();
    record_ = nullptr;
  }

  Record* record_ = nullptr;
  bool close_ = true;
};

/// Scope that owns a symbol-table iterator.
template <typename Iterator, typename Record>
class CTableIterator {
 public:
  CTableIterator() = default;
  virtual ~CTableIterator() { delete iterator_; }
  CTableIterator(const CTableIterator&) = delete;
  CTableIterator& operator=(const CTableIterator&) = delete;

  virtual void attach(Iterator* iterator) {
    delete iterator_;
    iterator_ = iterator;
  }

  Iterator* get() const { return iterator_; }
  Iterator* operator->() const { return iterator_; }

  /// Opens the present record for read. False when it can't be opened.
  bool openRecord(CRecord<Record>& record) const {
    Record* opened = nullptr;
    if (iterator_->getRecord(opened, AcDb::kForRead) != Acad::eOk) return false;
    record.attach(opened);
    return true;
  }

 private:
  Iterator* iterator_ = nullptr;
};

/// Scope of a symbol table that is open for read.
template <typename Table, typename Iterator, typename Record>
class CTable {
 public:
  /// @param database null for that of the current document
  /// @param ownsDatabase deletes the database at the end of the scope
  explicit CTable(AcDbDatabase* database = nullptr, bool ownsDatabase = false)
      : database_(database != nullptr ? database : CurrentDatabase()), owns_(ownsDatabase) {
    open_ = database_ != nullptr &&
            database_->getSymbolTable(table_, AcDb::kForRead) == Acad::eOk && table_ != nullptr;
  }
  virtual ~CTable() {
    if (open_) table_->close();
    if (owns_) delete database_;
  }
  CTable(const CTable&) = delete;
  CTable& operator=(const CTable&) = delete;

  bool isOpen() const { return open_; }
  Table* operator->() const { return table_; }

  /// Opens the record of this name. False when the table isn't open or the record can't be had.
  bool openRecord(CRecord<Record>& record, const ACHAR* name, AcDb::OpenMode mode) const {
    Record* opened = nullptr;
    if (!open_ || table_->getAt(name, opened, mode) != Acad::eOk) return false;
    record.attach(opened);
    return true;
  }

  /// Iterator from the start that skips erased records. False when there is none.
  bool newIterator(CTableIterator<Iterator, Record>& iterator) const {
    Iterator* made = nullptr;
    if (!open_ || table_->newIterator(made) != Acad::eOk) return false;
    iterator.attach(made);
    return true;
  }

 private:
  Table* table_ = nullptr;
  AcDbDatabase* database_;
  bool owns_;
  bool open_ = false;
};

using TextStyleTable =
    CTable<AcDbTextStyleTable, AcDbTextStyleTableIterator, AcDbTextStyleTableRecord>;
using BlockTable = CTable<AcDbBlockTable, AcDbBlockTableIterator, AcDbBlockTableRecord>;
using LayerTable = CTable<AcDbLayerTable, AcDbLayerTableIterator, AcDbLayerTableRecord>;

}  // namespace kovra
