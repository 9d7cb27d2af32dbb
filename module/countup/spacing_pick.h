#pragma once

#include "module/frame/seam.h"

namespace kovra {

/// Which distances the user shows with two points.
enum class Spacing { both, rows, columns };

/// Where a dialog keeps its distances.
struct SpacingFields {
  int rowHeightField;  ///< the edits
  int colWidthField;
  double& rowHeight;  ///< in drawing units as picked; a second point below the first is above 0
  double& colWidth;
  double scale;  ///< drawing units for a distance of 1 in the edits
};

/// Lets the user show distances while the dialog is out of the way, and writes them into its
/// fields. A cancelled pick leaves all as it was, and so does one during which the dialog ended.
void PickDistances(CAcUiDialog& dialog, Spacing spacing, const SpacingFields& fields);

}  // namespace kovra
