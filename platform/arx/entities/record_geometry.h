#pragma once

#include "platform/arx/database/object_id.h"
#include "platform/arx/geometry/geometry.h"
#include "platform/dxf/record_draft.h"

namespace kovra::arx {

/// The normal of an entity's own plane (group 210), the world's Z without one.
AcGeVector3d entityNormal(const dxf::RecordDraft& draft);
AcGeVector3d entityNormal(AcDbObjectId id);

/// Whether the points of an entity of this kind are in its own plane's coordinates.
bool hasOcsPoints(dxf::RecordKind kind);

/// Moves an entity of whatever type, with its attributes or vertices, by a world vector;
/// journalled. False when it can't be opened (locked, erased, open elsewhere) or nothing is known
/// of its type.
bool translateEntity(AcDbObjectId id, const AcGeVector3d& vector);

}  // namespace kovra::arx
