#include "platform/arx/database/layer_locks.h"

#include "platform/arx/base/table_flags.h"
#include "platform/arx/database/record_edit.h"
#include "platform/dxf/record_store.h"

namespace kovra::arx {

bool LayerLocks::any() const {
  if (!known_) collect();
  return !locked_.empty();
}

bool LayerLocks::isLocked(std::wstring_view layer) const {
  return any() && locked_.contains(dxf::foldCase(layer));
}

void LayerLocks::collect() const {
  locked_.clear();
  dxf::RecordDraft draft;
  for (dxf::RecordIndex entry = structure_.firstEntry(dxf::TableKind::kLayer);
       entry != dxf::kNoRecord; entry = structure_.nextEntry(entry)) {
    store_.load(entry, draft);
    if ((readInteger(draft, {kLayerPart, 70}, 0) & kLayerLocked) != 0)
      locked_.insert(dxf::foldCase(structure_.entryName(entry)));
  }
  known_ = true;
}

}  // namespace kovra::arx
