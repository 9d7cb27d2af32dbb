#pragma once

#include "module/drawing/growing_list.h"
#include "module/frame/seam.h"

namespace kovra {

/// State of one layer when it was captured.
class CLayerState {
 public:
  virtual ~CLayerState() = default;

  AcDbObjectId id;
  bool off = false;
  bool frozen = false;
  bool locked = false;
  CString name;
};

/// State of all layers of a database, so that a command can work on locked layers and put
/// everything back: Capture, UnlockAll, the work, Restore. It isn't restored by its destructor.
class LayerSnapshot {
 public:
  /// False when the layer table can't be opened. A layer that can't be opened is kept with all
  /// flags false and no name.
  bool Capture(AcDbDatabase* database);

  /// Layers that can't be opened for write are skipped. Always true.
  bool UnlockAll();

  /// Sets off, frozen and locked as captured; layers that can't be opened for write, such as
  /// those that are gone, are skipped. Always true.
  bool Restore();

  /// The captured locked flag of a layer, by its name without regard to case; false when there is
  /// none.
  bool IsLocked(const ACHAR* name) const;

 private:
  GrowingList<CLayerState> layers_;
};

}  // namespace kovra
