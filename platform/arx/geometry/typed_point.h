#pragma once

#include <optional>
#include <string_view>

#include "platform/arx/geometry/geometry.h"

namespace kovra::arx {

/// A point as it was typed.
struct TypedPoint {
  AcGePoint3d point{};
  bool world = false;  ///< "*" stood before it: world coordinates, else the UCS
};

/// "x,y", "x,y,z", "distance<degrees", each with "@" in front relative to `last`, and with "*" for
/// world coordinates. `elevation` is z where none is typed. Nothing for any other text.
std::optional<TypedPoint> parsePoint(std::wstring_view typed, const AcGePoint3d& last,
                                     double elevation = 0);

/// The direction of an angle in degrees from the X axis; exact at right angles.
AcGeVector3d directionOf(double degrees);

/// A decimal number that is the whole text, without blanks; finite.
std::optional<double> parseReal(std::wstring_view typed);
std::optional<int> parseInteger(std::wstring_view typed);

}  // namespace kovra::arx
