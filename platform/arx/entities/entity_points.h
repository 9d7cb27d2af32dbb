// Which groups of an entity hold its place, by kind.
#pragma once
#include <string_view>

#include "platform/arx/geometry/geometry.h"
#include "platform/dxf/record_draft.h"

namespace kovra::arx {

/// A displacement as an entity's groups count it.
struct Displacement {
  AcGeVector3d world;
  AcGeVector3d plane;  ///< in the coordinates of the entity's own plane
};

/// The displacement of an entity whose plane has this normal.
Displacement displacementIn(const AcGeVector3d& normal, const AcGeVector3d& world);

/// Whether the groups that hold the place of this type (group 0) are known. They aren't for bodies,
/// whose geometry is a modeller's own text, for frames of other programs, and for proxies.
bool hasKnownPoints(std::string_view typeName);

/// Whether the points of an entity are in its own plane's coordinates.
bool hasOcsPoints(const dxf::RecordDraft& draft);

/// Adds a displacement to all points of a record: those of its kind, those in embedded objects,
/// and world positions (1011) in XDATA. A height that the record leaves out is added when the
/// displacement changes it.
void shiftPoints(dxf::RecordDraft& draft, const Displacement& by);

}  // namespace kovra::arx
