// Where lines and arcs cross.
#pragma once
#include <vector>

#include "desktop/view/shapes.h"

namespace kovra::desktop {

struct LinePiece {
  Spot from;
  Spot to;
};

/// Part of a circle or an ellipse: center + start cos t + quarter sin t, t from 0 to the sweep
/// (radians, either way round).
struct ArcPiece {
  Spot center;
  Spot start;
  Spot quarter;
  double sweep = 0;

  Spot at(double angle) const;
  /// Whether an angle lies in the sweep, whole turns aside.
  bool has(double angle) const;
};

/// Each appends the places that both pieces share. Lines that lie in each other and arcs of one
/// circle have none.
void appendCrossings(const LinePiece& a, const LinePiece& b, std::vector<Spot>& places);
void appendCrossings(const LinePiece& line, const ArcPiece& arc, std::vector<Spot>& places);
void appendCrossings(const ArcPiece& a, const ArcPiece& b, std::vector<Spot>& places);

}  // namespace kovra::desktop
