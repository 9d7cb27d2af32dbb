#pragma once

#include "module/frame/seam.h"

/// Points between world coordinates, the user's coordinate system of the current document and the
/// planes of entities. Both parameters may be the same point.
namespace kovra {

void WorldToUcs(const ads_point world, ads_point ucs);
void UcsToWorld(const ads_point ucs, ads_point world);
/// From where a list has the points of a flat entity; the entity must exist.
void EntityToWorld(const ads_name entity, const ads_point inPlane, ads_point world);

/// Makes a matrix one that displaces.
void SetTranslation(ads_matrix transform, const ads_point way);

}  // namespace kovra
