#pragma once

#include "module/frame/seam.h"

namespace kovra {

/// Shows an entity as highlighted, or as it is without that.
void HighlightEntity(const ads_name entity, bool on);

}  // namespace kovra
