// Walks over the objects that another object contains.
#pragma once
#include "platform/arx/base/enums.h"
#include "platform/arx/base/error_status.h"
#include "platform/arx/database/object_id.h"

class AcDbEntity;

/// A walk over entities. The caller deletes it. It holds no object open.
class AcDbObjectIterator {
 public:
  virtual ~AcDbObjectIterator() = default;
  virtual void start(bool atBeginning = true, bool skipErased = true) = 0;
  virtual bool done() const = 0;
  virtual void step(bool backwards = false, bool skipErased = true) = 0;
  virtual AcDbObjectId objectId() const = 0;
  /// Opens the present entity; null if that fails.
  AcDbEntity* entity(AcDb::OpenMode mode = AcDb::kForRead, bool openErased = false);
};
