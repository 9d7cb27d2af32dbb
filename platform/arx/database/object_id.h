// Identity of objects in a database.
#pragma once
#include <compare>
#include <cstdint>
#include <functional>
#include <string>

#include "platform/arx/base/adesk.h"
#include "platform/arx/base/array.h"

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

using AcDbObjectIdArray = AcArray<AcDbObjectId>;
