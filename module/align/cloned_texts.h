#pragma once

#include "module/frame/seam.h"

namespace kovra {

/// Appends copies of the texts, made in the space of the first with all that they own. None if the
/// first is no text or the drawing can't copy one of them.
void CloneTexts(const AcDbObjectIdArray& ids, AcDbObjectIdArray& clones);

/// Copies of texts in the drawing, which are erased at the end of the scope unless they are kept.
class ClonedTexts {
 public:
  explicit ClonedTexts(const AcDbObjectIdArray& ids) { CloneTexts(ids, ids_); }
  ~ClonedTexts();
  ClonedTexts(const ClonedTexts&) = delete;
  ClonedTexts& operator=(const ClonedTexts&) = delete;

  const AcDbObjectIdArray& ids() const { return ids_; }

  /// From now on the copies are the drawing's.
  void keep() { ids_.removeAll(); }

 private:
  AcDbObjectIdArray ids_;
};

}  // namespace kovra
