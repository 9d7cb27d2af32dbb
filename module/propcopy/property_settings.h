#pragma once

#include <cmath>
#include <string>
#include <string_view>

namespace kovra {

/// What the property copy writes. Each value has its own way of saying that the property stays as
/// it is.
struct PropertySettings {
  static constexpr double kKeepSize = -1.0;
  static constexpr double kKeepRotation = 100000.0;

  std::wstring Layer;               ///< empty: stays
  double Height = kKeepSize;        ///< drawing units; 0 counts as given
  double WidthFactor = kKeepSize;   ///< 0 counts as given
  double Rotation = kKeepRotation;  ///< degrees, of any sign
  std::wstring Alignment;           ///< a code such as "MC", in any case; empty: stays
};

/// Whether a height or width factor is to be written.
constexpr bool isSizeGiven(double size) {
  return size > -0.0001;
}

/// Whether a rotation is to be written.
inline bool isRotationGiven(double degrees) {
  return std::abs(degrees) < 99999.9999;
}

/// Longest layer name and alignment code that are taken.
inline constexpr std::size_t kLayerNameLength = 255;
inline constexpr std::size_t kAlignmentCodeLength = 2;

}  // namespace kovra
