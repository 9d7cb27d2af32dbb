#pragma once

#include <cstddef>
#include <span>
#include <vector>

/// Where the texts of a column stand: numbers alone.
namespace kovra {

/// How the spacing of a column is meant.
enum class SpacingMode {
  pitch = 0,  ///< from anchor to anchor
  gap = 1     ///< clear distance between the boxes of neighbours
};

/// How far the box of a text, turned level, reaches from its anchor; drawing units.
struct TextExtent {
  double above = 0;
  double below = 0;
};

/// Spacing of a column, in drawing units; may be 0 or negative.
struct ColumnSpacing {
  double distance = 0;
  SpacingMode mode = SpacingMode::pitch;
};

/// Distance of every text's anchor from that of text `base`, along the column: above 0 for the
/// texts behind the base, below 0 for those ahead of it. Empty without such a text.
std::vector<double> ColumnDistances(std::span<const TextExtent> extents,
                                    const ColumnSpacing& spacing, std::size_t base);

/// Direction in which a column runs.
struct ColumnDirection {
  double x = 0;
  double y = 0;
};

/// A dragged column runs down as its texts see it: down the sheet for a rotation of 0, to the right
/// for a quarter turn, up for a half turn. The rotation is in radians.
ColumnDirection DraggedDirection(double rotation);

/// Around a text that stays, whatever comes behind it stands below it or to its right.
ColumnDirection StandingDirection(double rotation);

/// Whether a dragged column of this rotation (radians, from 0 up to a full turn) takes the texts
/// from the first to the last, else from the last to the first: either way the top and the left of
/// the selection stay ahead on the sheet.
bool StacksForward(double rotation);

}  // namespace kovra
