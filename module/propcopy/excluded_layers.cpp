#include "module/propcopy/excluded_layers.h"

#include "module/frame/companions/ui_tools_lib.h"
#include "module/frame/narrow_text.h"

namespace kovra {

bool ExcludedLayers::contains(const AcDbEntity& entity) {
  ACHAR* layer = entity.layer();
  if (layer == nullptr) return false;
  const auto [place, isNew] = known_.try_emplace(layer, false);
  if (isNew) place->second = IsLayerExcluded(NarrowText(layer).c_str());
  acutDelString(layer);
  return place->second;
}

}  // namespace kovra
