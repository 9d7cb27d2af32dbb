#pragma once

#include <functional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/arx/drawn_shapes.h"
#include "platform/arx/extents.h"
#include "platform/arx/geometry.h"
#include "platform/dxf/record_kind.h"
#include "platform/dxf/structure.h"

class AcDbDatabase;

namespace kovra::arx {

/// Something drawn: an entity that isn't made of others, where it stands, and inside what.
struct DrawnLeaf {
  dxf::RecordIndex record;
  const AcGeMatrix3d& toWorld;                   ///< from its own block
  std::span<const dxf::RecordIndex> containers;  ///< block references around it, outermost first
  const std::vector<DrawnShape>& shapes;         ///< in world coordinates
};

/// Goes over what an entity draws. Frozen and off layers, invisible entities and invisible
/// attributes are left out unless `hiddenToo`. Reads records; opens no objects.
class DrawingWalk {
 public:
  explicit DrawingWalk(const AcDbDatabase& database, bool hiddenToo = false);

  /// The visitor returns false to end the walk.
  using Visitor = std::function<bool(const DrawnLeaf&)>;
  void entity(dxf::RecordIndex record, const Visitor& visit);

  /// Whether the entity's own layer is frozen.
  bool isFrozen(dxf::RecordIndex record);

 private:
  struct Layer {
    bool off = false;
    bool frozen = false;
  };

  bool walk(dxf::RecordIndex record, const AcGeMatrix3d& toWorld, const Layer& around,
            const Visitor& visit);
  bool walkReference(dxf::RecordIndex record, const dxf::RecordDraft& draft,
                     const AcGeMatrix3d& toWorld, const Layer& layer, const Visitor& visit);
  bool walkBlock(std::wstring_view name, const AcGeMatrix3d& toWorld, const Layer& layer,
                 const Visitor& visit);
  bool leaf(dxf::RecordIndex record, const dxf::RecordDraft& draft, const AcGeMatrix3d& toWorld,
            const Visitor& visit);
  Layer layerOf(const dxf::RecordDraft& draft, const Layer& around) const;
  void readLayers();

  const AcDbDatabase& database_;
  bool hiddenToo_;
  ShapeReader reader_;
  std::vector<DrawnShape> shapes_;
  std::vector<dxf::RecordIndex> containers_;
  std::vector<dxf::BlockNumber> blocks_;  ///< being walked; a block inside itself is left out
  std::size_t leavesLeft_ = 0;            ///< of the entity being walked
  std::unordered_map<std::wstring, Layer> layers_;  ///< by upper-case name; only off or frozen ones
};

/// The box around everything that an entity draws, in world coordinates.
AcDbExtents entityExtents(const AcDbDatabase& database, dxf::RecordIndex record);

}  // namespace kovra::arx
