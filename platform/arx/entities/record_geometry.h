#pragma once

#include <span>
#include <vector>

#include "platform/arx/database/object_id.h"
#include "platform/arx/entities/entity_points.h"
#include "platform/arx/geometry/geometry.h"
#include "platform/dxf/record_draft.h"

namespace kovra::arx {

/// The normal of an entity's own plane (group 210), the world's Z without one.
AcGeVector3d entityNormal(const dxf::RecordDraft& draft);
AcGeVector3d entityNormal(AcDbObjectId id);

/// Moves entities of one drawing; journalled. With them go their attributes and
/// vertices, the blocks that draw dimensions, and the boundaries of viewports. Gives back those
/// that stay: they can't be opened (locked, erased, open elsewhere), or nothing is known of the
/// points of their type.
std::vector<AcDbObjectId> translateEntities(std::span<const AcDbObjectId> ids,
                                            const Displacement& displacement);

}  // namespace kovra::arx
