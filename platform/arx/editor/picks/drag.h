// The drag of a selection, for whoever paints it.
#pragma once
#include <vector>

#include "platform/arx/database/object_id.h"
#include "platform/arx/geometry/geometry.h"

namespace kovra::arx {

/// What acedDragGen drags, and where it is now.
struct ActiveDrag {
  std::vector<AcDbObjectId> entities;
  AcGeMatrix3d place;  ///< from where they stand in the drawing, in world coordinates
  bool moved = false;  ///< the cursor has been somewhere
};

/// The innermost drag; null without one.
const ActiveDrag* activeDrag();

}  // namespace kovra::arx
