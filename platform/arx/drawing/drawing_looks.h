// The layer and the color that an entity shows with, and whether it shows.
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/arx/base/color.h"
#include "platform/dxf/record_draft.h"

class AcDbDatabase;

namespace kovra::arx {

/// What of a drawing counts.
enum class Showing {
  kScreen,  ///< what isn't off, frozen or invisible
  kPaper,   ///< the same without what is never plotted
  kAll,     ///< everything
};

struct LayerLook {
  bool off = false;
  bool frozen = false;
  AcCmEntityColor color;
};

/// What an entity shows with. An entity of a block takes over from the reference: the layer if it
/// is on layer 0, the color if it has it by block.
struct Look {
  LayerLook layer;
  AcCmEntityColor color;  ///< neither by layer nor by block
};

/// What stands around the entities of a space.
Look spaceLook();

/// The color that a record's groups give: the true color (420) before the index (62).
AcCmEntityColor recordColor(const dxf::RecordDraft& draft, std::string_view subclass);

/// The color that an entity of a space is plotted with; nothing if it doesn't show on paper. For
/// one entity: a walk over many has the layers at hand (DrawingLooks).
std::optional<AcCmEntityColor> plottedColor(const AcDbDatabase& database,
                                            const dxf::RecordDraft& draft);

/// The layers of a drawing as they were when this was made. Reads records; opens no objects.
class DrawingLooks {
 public:
  DrawingLooks(const AcDbDatabase& database, Showing showing);

  /// `inBlock`: the entity belongs to a block, and `around` is the look of the reference.
  Look of(const dxf::RecordDraft& draft, const Look& around, bool inBlock) const;
  bool shows(const dxf::RecordDraft& draft, const Look& look) const;
  /// Whether the entity's own layer is frozen.
  bool onFrozenLayer(dxf::RecordIndex record) const;
  /// Whether a block reference shows its block; one on a layer that is off does.
  bool referenceShows(const dxf::RecordDraft& draft, const Look& look) const;
  /// The same as shows() for an attribute of a block reference, which may be invisible itself.
  bool attributeShows(const dxf::RecordDraft& draft, const Look& look) const;
  /// Whether the entity alone is on a layer that paper leaves out; what a block on it holds isn't.
  bool isUnplotted(const dxf::RecordDraft& draft) const;

 private:
  void readLayers();
  const LayerLook& layer(std::string_view nameBytes) const;

  const AcDbDatabase& database_;
  Showing showing_;
  std::unordered_map<std::wstring, LayerLook> layers_;          ///< by upper-case name
  mutable std::unordered_map<std::string, LayerLook> byBytes_;  ///< those that were asked for
};

}  // namespace kovra::arx
