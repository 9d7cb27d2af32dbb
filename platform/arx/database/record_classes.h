// Which class opens the records of a kind. The database knows its tables and the base of entities;
// the classes of entities lie above it and say so themselves.
#pragma once
#include "platform/arx/database/object.h"
#include "platform/dxf/record_kind.h"

namespace kovra::arx {

/// A class that opens records, and how its object for a stored record is made.
struct RecordClass {
  AcRxClass* theClass = nullptr;
  AcDbObject* (*make)() = nullptr;
};

template <class Object>
RecordClass recordClass() {
  return {Object::desc(), []() -> AcDbObject* { return new Object(Stored{}); }};
}

/// Has the records of a kind open as a class. Called while the library is loaded, before there are
/// drawings.
void openRecordsAs(dxf::RecordKind kind, const RecordClass& row);
/// Null for a kind that no class above the database claims.
const RecordClass* claimedClass(dxf::RecordKind kind);

}  // namespace kovra::arx
