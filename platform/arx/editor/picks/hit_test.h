#pragma once

#include <optional>
#include <vector>

#include "platform/arx/database/object_id.h"
#include "platform/arx/geometry/extents.h"
#include "platform/arx/geometry/geometry.h"
#include "platform/dxf/record_kind.h"

class AcApDocument;

namespace kovra::arx {

/// What a pick found.
struct PickHit {
  AcDbObjectId entity;                   ///< of the current space
  AcDbObjectId leaf;                     ///< what was hit, inside block references if there are any
  AcGeMatrix3d toWorld{};                ///< from the leaf's own block
  std::vector<AcDbObjectId> containers;  ///< innermost first
};

/// Knows where the entities of a drawing are: what shows it has that at hand. Picks and boxes then
/// look at those near by only.
class EntityIndex {
 public:
  virtual ~EntityIndex() = default;
  /// Entities of the current space in drawing order, among them all that draw something in the box,
  /// as seen from above. Nothing when that isn't known now.
  virtual std::optional<std::vector<dxf::RecordIndex>> entitiesIn(const AcApDocument& document,
                                                                  const AcDbExtents& box) = 0;
};
/// Not owned; null: none.
void setEntityIndex(EntityIndex* index);

/// The last drawn visible entity within PICKBOX pixels of a world point, in plan view.
std::optional<PickHit> pickAt(AcApDocument& document, const AcGePoint3d& point);

/// The same for who only shows what a pick would give: it says nothing, and finds nothing as long
/// as nobody knows what lies near by (see EntityIndex).
std::optional<PickHit> hoveredAt(AcApDocument& document, const AcGePoint3d& point);

/// A world point at which a pick gives the entity, or the attribute or nested entity; nothing when
/// others cover it or it isn't drawn.
std::optional<AcGePoint3d> pickPointOf(AcApDocument& document, AcDbObjectId id);

/// Whether a selection has block references as a whole, or their attributes too, each behind its
/// reference.
enum class Attributes { kLeftOut, kTaken };

/// The entities of the current space inside a box of world points (a window), or also those that it
/// touches (a crossing); in drawing order. Attributes are measured by themselves.
std::vector<AcDbObjectId> entitiesInBox(AcApDocument& document, const AcGePoint3d& first,
                                        const AcGePoint3d& second, bool crossing,
                                        Attributes attributes = Attributes::kLeftOut);
/// Everything in the current space that isn't on a frozen layer.
std::vector<AcDbObjectId> allEntities(AcApDocument& document,
                                      Attributes attributes = Attributes::kLeftOut);

// Plane geometry; z doesn't count.
double distanceToSegment(const AcGePoint3d& point, const AcGePoint3d& a, const AcGePoint3d& b);
bool insidePolygon(const AcGePoint3d& point, const std::vector<AcGePoint3d>& corners);

}  // namespace kovra::arx
