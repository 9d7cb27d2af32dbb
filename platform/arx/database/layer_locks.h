// Which layers are locked, for every open for write.
#pragma once
#include <string>
#include <string_view>
#include <unordered_set>

#include "platform/dxf/structure.h"

namespace kovra::arx {

/// The names of the locked layers, collected again after a layer changed.
class LayerLocks {
 public:
  LayerLocks(const dxf::RecordStore& store, const dxf::Structure& structure)
      : store_(store), structure_(structure) {}

  bool any() const;
  bool isLocked(std::wstring_view layer) const;
  void layersChanged() { known_ = false; }

 private:
  void collect() const;

  const dxf::RecordStore& store_;
  const dxf::Structure& structure_;
  mutable std::unordered_set<std::wstring> locked_;  ///< folded names
  mutable bool known_ = false;
};

}  // namespace kovra::arx
