#pragma once

#include "module/frame/seam.h"

/// The point by which a text stands in a column: the position of a text that is left on the base
/// line, the alignment point of every other, also of aligned and fit ones. World coordinates.
namespace kovra {

/// Modes of a text: groups 73 and 72.
struct AnchorModes {
  int vertical = 0;
  int horizontal = 0;
};

AnchorModes AnchorModesOf(const AcDbText& text);

AcGePoint3d TextAnchor(const AcDbText& text);

/// Moves a text by the anchor that texts of these modes have. `database` is the current document's.
void SetTextAnchor(AcDbText& text, const AnchorModes& modes, const AcGePoint3d& anchor,
                   const AcDbDatabase* database);

}  // namespace kovra
