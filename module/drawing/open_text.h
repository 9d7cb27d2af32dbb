#pragma once

#include <utility>

#include "module/frame/seam.h"

namespace kovra {

/// Scope of an open text; holds none when the object can't be opened or is no text.
class OpenText {
 public:
  OpenText(const AcDbObjectId& id, AcDb::OpenMode mode) {
    if (acdbOpenObject(text_, id, mode) != Acad::eOk) text_ = nullptr;
  }
  ~OpenText() {
    if (text_ != nullptr) text_->close();
  }
  OpenText(const OpenText&) = delete;
  OpenText& operator=(const OpenText&) = delete;

  explicit operator bool() const { return text_ != nullptr; }
  AcDbText* operator->() const { return text_; }
  AcDbText& operator*() const { return *text_; }

  /// Hands over the open text, for others to close.
  AcDbText* release() { return std::exchange(text_, nullptr); }

 private:
  AcDbText* text_ = nullptr;
};

}  // namespace kovra
