#pragma once

#include <memory>

#include "module/frame/seam.h"

namespace kovra {

/// The database of a drawing, wherever it is to be had: in the document that shows the drawing,
/// held by somebody already, or read from its file. What was taken for it is given back at the end.
class DrawingAccess {
 public:
  explicit DrawingAccess(const ACHAR* path);
  ~DrawingAccess();
  DrawingAccess(const DrawingAccess&) = delete;
  DrawingAccess& operator=(const DrawingAccess&) = delete;

  /// Null when the drawing can't be read.
  AcDbDatabase* database() const { return database_; }
  /// The document that shows the drawing; null when none does.
  AcApDocument* document() const { return document_; }

 private:
  void take(const ACHAR* path);
  void read(const ACHAR* path);

  AcApDocument* document_;
  AcDbDatabase* database_ = nullptr;
  bool shared_ = false;
  std::unique_ptr<AcDbDatabase> read_;
};

}  // namespace kovra
