#pragma once

#include "module/frame/seam.h"

namespace kovra {

/// Scope of an object that is opened for read; holds none when it can't be opened.
class OpenObject {
 public:
  explicit OpenObject(const AcDbObjectId& id) {
    if (acdbOpenObject(object_, id, AcDb::kForRead) != Acad::eOk) object_ = nullptr;
  }
  ~OpenObject() {
    if (object_ != nullptr) object_->close();
  }
  OpenObject(const OpenObject&) = delete;
  OpenObject& operator=(const OpenObject&) = delete;

  AcDbObject* get() const { return object_; }
  /// The object if it is of this class, else null.
  template <typename Class>
  Class* as() const {
    return Class::cast(object_);
  }

 private:
  AcDbObject* object_ = nullptr;
};

}  // namespace kovra
