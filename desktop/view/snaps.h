// Points of objects near the cursor, which a click may take instead of its own place.
#pragma once
#include <optional>
#include <string_view>

#include "desktop/view/display_list.h"

namespace kovra::desktop {

enum class SnapKind { kEnd, kInsertion, kIntersection };

struct Snap {
  SnapKind kind = SnapKind::kEnd;
  AcGePoint3d place;  ///< in world coordinates
};

/// What people call it.
std::wstring_view nameOf(SnapKind kind);

/// The nearest of the end points of lines and arcs, insertion points of texts, attributes and block
/// references, and intersections of lines and arcs that lie within `aperture` of a place, as seen
/// from above. Reads the drawing.
std::optional<Snap> snapAt(const DisplayList& list, const AcDbDatabase& database, Spot place,
                           double aperture);

}  // namespace kovra::desktop
