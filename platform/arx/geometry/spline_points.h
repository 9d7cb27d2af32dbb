#pragma once

#include <vector>

#include "platform/arx/geometry/geometry.h"

namespace kovra::arx {

/// A curve of pieces of polynomials. There are degree + 1 more knots than control points, each at
/// least as great as the one before; without weights all are 1.
struct Spline {
  int degree = 3;
  std::vector<AcGePoint3d> controls;
  std::vector<double> knots;
  std::vector<double> weights;
};

/// Points on the curve, the first and the last where it begins and ends. None when the numbers
/// don't fit together.
std::vector<AcGePoint3d> splinePoints(const Spline& spline);

}  // namespace kovra::arx
