#include "module/drawing/nested_text.h"

#include <cmath>

#include "module/drawing/angles.h"

namespace kovra {
namespace {

/// What the arithmetic with a matrix may spoil of a number, in relation to it.
constexpr double kNoise = 1e-14;
/// The same of an angle, in degrees.
constexpr double kAngleNoise = 1e-12;

AcGeMatrix3d blockTransform(const ads_matrix matrix) {
  AcGeMatrix3d transform;
  for (unsigned row = 0; row < 4; ++row) {
    for (unsigned column = 0; column < 4; ++column) {
      transform(row, column) = matrix[row][column];
    }
  }
  return transform;
}

/// The short decimal number that a value is but for noise, else the value.
double withoutNoise(double value, int places, double noise) {
  const double unit = std::pow(10.0, places);
  const double rounded = std::round(value * unit) / unit;
  return std::fabs(value - rounded) <= noise ? rounded : value;
}

double settledHeight(double height, double former) {
  if (!std::isfinite(height) || height <= 0) return height;
  const double noise = kNoise * height;
  if (std::fabs(height - former) <= noise) return former;
  constexpr int kDigits = 12;
  const int places = kDigits - 1 - static_cast<int>(std::floor(std::log10(height)));
  return places > 0 ? withoutNoise(height, places, noise) : height;
}

double settledAngle(double angle, double former) {
  constexpr int kPlaces = 9;
  constexpr double kTurn = 360;
  double unturned = std::fmod(former, 2 * kPi);
  if (unturned < 0) unturned += 2 * kPi;
  const double degrees = DegreesOf(angle);
  if (std::fabs(degrees - DegreesOf(unturned)) <= kAngleNoise) return unturned;
  const double settled = withoutNoise(degrees, kPlaces, kAngleNoise);
  if (settled >= kTurn) return 0;
  return settled == degrees ? angle : RadiansOf(settled);
}

}  // namespace

void TransformHeightAndAngle(double* height, double& angle, const ads_matrix matrix) {
  // Vectors: the place of a block that is far away would cost digits.
  AcGeVector3d unit(1, 0, 0);
  AcGeVector3d top(0, height != nullptr ? *height : 1.0, 0);
  const AcGeMatrix3d transform = blockTransform(matrix);
  for (AcGeVector3d* vector : {&unit, &top}) {
    vector->rotateBy(angle, AcGeVector3d::kZAxis).transformBy(transform);
  }
  if (height != nullptr) *height = settledHeight(top.length(), *height);
  angle = settledAngle(AcGeVector3d::kXAxis.angleTo(unit, AcGeVector3d::kZAxis), angle);
}

}  // namespace kovra
