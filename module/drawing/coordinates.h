#pragma once

#include "module/frame/seam.h"

/// Points between world coordinates and the user's coordinate system of the current document. Both
/// parameters may be the same point.
namespace kovra {

void WorldToUcs(const ads_point world, ads_point ucs);
void UcsToWorld(const ads_point ucs, ads_point world);

}  // namespace kovra
