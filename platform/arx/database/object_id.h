// Identity of objects in a database.
#pragma once
#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

#include "platform/arx/base/adesk.h"

class AcDbDatabase;
class AcRxClass;

/// An object's handle in its drawing, 0 for none.
class AcDbHandle {
 public:
  constexpr AcDbHandle() = default;
  constexpr explicit AcDbHandle(Adesk::UInt64 value) : value_(value) {}
  /// Reads hexadecimal digits; anything else gives a null handle.
  explicit AcDbHandle(const ACHAR* text);
  constexpr operator Adesk::UInt64() const { return value_; }
  bool isNull() const { return value_ == 0; }
  /// Hexadecimal digits, upper case. The buffer must hold 17 characters.
  bool getIntoAsciiBuffer(ACHAR* buffer) const;

 private:
  Adesk::UInt64 value_ = 0;
};

/// Names an object of an open database for the database's whole life, erased ones too, also in
/// drawings without handles. An id of a database that has been deleted is like a null id.
class AcDbObjectId {
 public:
  constexpr AcDbObjectId() = default;
  /// For the database's own use: its serial number and the object's index in it.
  constexpr AcDbObjectId(std::uint32_t databaseSerial, std::uint32_t index)
      : serial_(databaseSerial), index_(index) {}
  static const AcDbObjectId kNull;

  bool isNull() const { return serial_ == 0; }
  void setNull() { *this = AcDbObjectId(); }
  /// A live object of an open database, erased or not.
  bool isValid() const;
  bool isErased() const;
  bool isResident() const { return isValid(); }
  /// The database, or null.
  AcDbDatabase* database() const;
  AcDbDatabase* originalDatabase() const { return database(); }
  AcDbHandle handle() const;
  AcDbObjectId ownerId() const;
  /// The class that the object opens as, or null.
  AcRxClass* objectClass() const;

  std::uint32_t serial() const { return serial_; }
  std::uint32_t index() const { return index_; }
  friend constexpr auto operator<=>(const AcDbObjectId&, const AcDbObjectId&) = default;

 private:
  std::uint32_t serial_ = 0;
  std::uint32_t index_ = 0;
};

template <>
struct std::hash<AcDbObjectId> {
  std::size_t operator()(const AcDbObjectId& id) const noexcept {
    return std::hash<std::uint64_t>()((std::uint64_t{id.serial()} << 32) | id.index());
  }
};

/// A growing list of ids. New entries of setLogicalLength are null ids.
class AcDbObjectIdArray {
 public:
  AcDbObjectIdArray() = default;
  AcDbObjectIdArray(std::initializer_list<AcDbObjectId> ids) : ids_(ids) {}
  int length() const { return static_cast<int>(ids_.size()); }
  int logicalLength() const { return length(); }
  bool isEmpty() const { return ids_.empty(); }
  const AcDbObjectId& at(int i) const { return ids_[static_cast<std::size_t>(i)]; }
  AcDbObjectId& at(int i) { return ids_[static_cast<std::size_t>(i)]; }
  const AcDbObjectId& operator[](int i) const { return at(i); }
  AcDbObjectId& operator[](int i) { return at(i); }
  const AcDbObjectId& first() const { return ids_.front(); }
  const AcDbObjectId& last() const { return ids_.back(); }
  int append(const AcDbObjectId& id) {
    ids_.push_back(id);
    return length() - 1;
  }
  AcDbObjectIdArray& append(const AcDbObjectIdArray& other);
  AcDbObjectIdArray& insertAt(int i, const AcDbObjectId& id);
  AcDbObjectIdArray& removeAt(int i);
  AcDbObjectIdArray& removeLast();
  AcDbObjectIdArray& removeAll();
  AcDbObjectIdArray& setLogicalLength(int length);
  AcDbObjectIdArray& setPhysicalLength(int length);
  AcDbObjectIdArray& setAt(int i, const AcDbObjectId& id);
  AcDbObjectIdArray& reverse();
  /// Index of the first equal entry, or -1.
  int find(const AcDbObjectId& id, int start = 0) const;
  bool find(const AcDbObjectId& id, int& index, int start) const;
  bool contains(const AcDbObjectId& id) const { return find(id) >= 0; }
  auto begin() const { return ids_.begin(); }
  auto end() const { return ids_.end(); }

 private:
  std::vector<AcDbObjectId> ids_;
};
