#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "platform/dxf/record_store.h"
#include "platform/dxf/structure.h"

namespace kovra::host {

/// One text of a drawing, as `kovra list` and `@list` print it. Texts are UTF-8.
struct TextRow {
  dxf::RecordIndex record = dxf::kNoRecord;
  std::uint64_t handle = 0;  ///< 0: the drawing has no handles
  const char* kind = "";     ///< TEXT, MTEXT, ATTDEF, ATTRIB
  std::string space;         ///< "model", the layout's or the block's name
  std::string tag;           ///< empty for TEXT and MTEXT
  std::string value;         ///< as stored: format codes of MTEXT, %%c and the like stay
  std::string layer;
  std::string style;
  double height = 0;
  std::optional<double> widthFactor;  ///< MTEXT has none
  double rotation = 0;                ///< degrees
  const char* alignment = "";
  double x = 0;  ///< the alignment point where the alignment uses one, else the position;
  double y = 0;  ///< in the entity's own coordinate system, as the drawing has it
  double z = 0;
  /// Left, bottom, right and top end of what is drawn; only where somebody measures it.
  std::optional<std::array<double, 4>> extents;
};

/// Which texts are wanted.
struct TextFilter {
  std::optional<std::wstring> layer;       ///< a name; case doesn't count
  std::optional<std::wstring> tagPattern;  ///< wild cards; case doesn't count
};

/// Calls `take` for each text that passes the filter: model space, layouts, then the blocks, each
/// in drawing order, a block reference's attributes behind it. Reads records without opening
/// objects. The row is valid during the call.
void forEachText(const dxf::RecordStore& store, const dxf::Structure& structure,
                 const TextFilter& filter, const std::function<void(const TextRow&)>& take);

}  // namespace kovra::host
