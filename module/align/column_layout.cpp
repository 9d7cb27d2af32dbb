#include "module/align/column_layout.h"

#include <cmath>

namespace kovra {
namespace {

constexpr double kQuarterTurn = 1.5707963267948966;
constexpr double kThreeQuarterTurn = 4.71238898038469;
constexpr double kFullTurn = 6.283185307179586;

/// Sine and cosine of the quarter turns come out as 0 only nearly; a column there is upright or
/// level.
double withoutNoise(double part) {
  constexpr double kNoise = 1e-15;
  return std::abs(part) < kNoise ? 0.0 : part;
}

double span(const TextExtent& extent, double gap) {
  return gap + extent.above + extent.below;
}

std::vector<double> pitchDistances(std::size_t count, double pitch, std::size_t base) {
  std::vector<double> distances(count);
  for (std::size_t i = 0; i < count; ++i) {
    distances[i] = (static_cast<double>(i) - static_cast<double>(base)) * pitch;
  }
  return distances;
}

/// Sums are carried on from text to text, outward from the base: the boxes up to a text, then from
/// the edges of the boxes to the anchors.
std::vector<double> gapDistances(std::span<const TextExtent> extents, double gap,
                                 std::size_t base) {
  std::vector<double> distances(extents.size());
  double sum = 0;
  for (std::size_t i = base + 1; i < extents.size(); ++i) {
    sum += span(extents[i - 1], gap);
    distances[i] = sum - extents[base].above + extents[i].above;
  }
  sum = 0;
  for (std::size_t i = base; i-- > 0;) {
    sum += span(extents[i + 1], gap);
    distances[i] = -(sum - extents[base].below + extents[i].below);
  }
  return distances;
}

}  // namespace

std::vector<double> ColumnDistances(std::span<const TextExtent> extents,
                                    const ColumnSpacing& spacing, std::size_t base) {
  if (base >= extents.size()) return {};
  return spacing.mode == SpacingMode::pitch ? pitchDistances(extents.size(), spacing.distance, base)
                                            : gapDistances(extents, spacing.distance, base);
}

ColumnDirection DraggedDirection(double rotation) {
  return {withoutNoise(std::sin(rotation)), withoutNoise(-std::cos(rotation))};
}

ColumnDirection StandingDirection(double rotation) {
  const ColumnDirection dragged = DraggedDirection(rotation);
  return {std::abs(dragged.x), -std::abs(dragged.y)};
}

bool StacksForward(double rotation) {
  return (rotation >= 0 && rotation <= kQuarterTurn) ||
         (rotation > kThreeQuarterTurn && rotation < kFullTurn);
}

}  // namespace kovra
