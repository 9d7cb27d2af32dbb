#pragma once

namespace kovra {

inline constexpr double kPi = 3.141592653589793;

constexpr double RadiansOf(double degrees) {
  return degrees / 180.0 * kPi;
}

constexpr double DegreesOf(double radians) {
  return radians / kPi * 180.0;
}

}  // namespace kovra
