#pragma once

#include <functional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/arx/base/color.h"
#include "platform/arx/drawing/drawn_shapes.h"
#include "platform/arx/geometry/extents.h"
#include "platform/arx/geometry/geometry.h"
#include "platform/dxf/record_kind.h"
#include "platform/dxf/structure.h"

class AcDbDatabase;

namespace kovra::arx {

/// Something drawn: an entity that isn't made of others, where it stands, and inside what.
struct DrawnLeaf {
  dxf::RecordIndex record;
  const dxf::RecordDraft& draft;                 ///< the record's
  const AcGeMatrix3d& toWorld;                   ///< from its own block
  std::span<const dxf::RecordIndex> containers;  ///< block references around it, outermost first
  AcCmEntityColor color;                         ///< neither by layer nor by block
};

/// The color that a record's groups give: the true color (420) before the index (62).
AcCmEntityColor recordColor(const dxf::RecordDraft& draft, std::string_view subclass);

/// Goes over what an entity draws. Frozen and off layers, invisible entities and invisible
/// attributes are left out unless `hiddenToo`. Reads records; opens no objects.
class DrawingWalk {
 public:
  explicit DrawingWalk(const AcDbDatabase& database, bool hiddenToo = false);

  /// The visitor returns false to end the walk.
  using Visitor = std::function<bool(const DrawnLeaf&)>;
  void entity(dxf::RecordIndex record, const Visitor& visit);
  /// What a leaf shows, in world coordinates; until the next call.
  const std::vector<DrawnShape>& shapes(const DrawnLeaf& leaf);

  /// Whether the entity's own layer is frozen.
  bool isFrozen(dxf::RecordIndex record);

 private:
  struct Layer {
    bool off = false;
    bool frozen = false;
    AcCmEntityColor color;
  };
  /// What an entity of a block takes over from the reference: the layer for what is on layer 0,
  /// the color for what has it by block.
  struct Look {
    Layer layer;
    AcCmEntityColor color;
  };

  bool walk(dxf::RecordIndex record, const AcGeMatrix3d& toWorld, const Look& around,
            const Visitor& visit);
  bool walkReference(dxf::RecordIndex record, const dxf::RecordDraft& draft,
                     const AcGeMatrix3d& toWorld, const Look& look, const Visitor& visit);
  bool walkBlock(dxf::BlockNumber block, const AcGeMatrix3d& toWorld, const Look& look,
                 const Visitor& visit);
  bool leaf(dxf::RecordIndex record, const dxf::RecordDraft& draft, const AcGeMatrix3d& toWorld,
            const Look& look, const Visitor& visit);
  dxf::BlockNumber blockNamed(const dxf::RecordDraft& draft, std::string_view subclass) const;
  Look lookOf(const dxf::RecordDraft& draft, const Look& around) const;
  const Layer& layerOf(std::string_view nameBytes, const Layer& around) const;
  void readLayers();

  const AcDbDatabase& database_;
  bool hiddenToo_;
  ShapeReader reader_;
  std::vector<DrawnShape> shapes_;
  std::vector<dxf::RecordIndex> containers_;
  std::vector<dxf::BlockNumber> blocks_;  ///< being walked; a block inside itself is left out
  std::size_t leavesLeft_ = 0;            ///< of the entity being walked
  std::unordered_map<std::wstring, Layer> layers_;          ///< by upper-case name
  mutable std::unordered_map<std::string, Layer> byBytes_;  ///< those that were asked for
};

/// The box around everything that an entity draws, in world coordinates.
AcDbExtents entityExtents(const AcDbDatabase& database, dxf::RecordIndex record);

}  // namespace kovra::arx
