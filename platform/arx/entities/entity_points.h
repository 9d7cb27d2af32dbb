// Which groups of an entity hold its place, by kind.
#pragma once
#include <optional>
#include <string_view>
#include <utility>

#include "platform/arx/geometry/geometry.h"
#include "platform/dxf/record_draft.h"

namespace kovra::arx {

/// A displacement as an entity's groups count it.
struct Displacement {
  AcGeVector3d world;
  AcGeVector3d plane;  ///< in the coordinates of the entity's own plane
  /// Where one point goes, in world coordinates, if that is known. In an entity whose plane is the
  /// world's a coordinate that is equal to its goes to exactly there, without what rounding makes
  /// of a difference and a sum.
  std::optional<std::pair<AcGePoint3d, AcGePoint3d>> fromTo;
};

/// A displacement in world coordinates, for entities whose plane is the world's.
Displacement displacementBy(const AcGeVector3d& vector);
/// The one that takes a point to another.
Displacement displacementOf(const AcGePoint3d& from, const AcGePoint3d& to);

/// The displacement of an entity whose plane has this normal.
Displacement displacementIn(const AcGeVector3d& normal, const Displacement& world);

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
