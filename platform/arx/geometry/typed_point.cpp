#include "platform/arx/geometry/typed_point.h"

#include <cmath>
#include <limits>
#include <numbers>
#include <string>

#include "platform/win/base/wide_text.h"

namespace kovra::arx {
namespace {

/// Up to three numbers between commas.
std::optional<AcGePoint3d> parseCoordinates(std::wstring_view text, double elevation) {
  AcGePoint3d point(0, 0, elevation);
  unsigned count = 0;
  while (count < 3) {
    const size_t comma = std::min(text.find(L','), text.size());
    const std::optional<double> number = parseReal(text.substr(0, comma));
    if (!number) return std::nullopt;
    point[count++] = *number;
    if (comma == text.size()) break;
    text.remove_prefix(comma + 1);
    if (count == 3) return std::nullopt;
  }
  return count >= 2 ? std::optional(point) : std::nullopt;
}

std::optional<AcGePoint3d> parsePolar(std::wstring_view text, double elevation) {
  const size_t mark = text.find(L'<');
  if (mark == std::wstring_view::npos) return std::nullopt;
  const std::optional<double> distance = parseReal(text.substr(0, mark));
  const std::optional<double> degrees = parseReal(text.substr(mark + 1));
  if (!distance || !degrees) return std::nullopt;
  const AcGeVector3d along = directionOf(*degrees) * *distance;
  return AcGePoint3d(along.x, along.y, elevation);
}

}  // namespace

AcGeVector3d directionOf(double degrees) {
  const double turned = std::fmod(degrees, 360);
  const double angle = turned * std::numbers::pi / 180;
  const bool right = std::fmod(turned, 90) == 0;
  const double x = std::cos(angle);
  const double y = std::sin(angle);
  return right ? AcGeVector3d(std::round(x), std::round(y), 0) : AcGeVector3d(x, y, 0);
}

std::optional<double> parseReal(std::wstring_view typed) {
  if (typed.empty() || typed.find_first_of(L" \t\n") != std::wstring_view::npos)
    return std::nullopt;
  const std::wstring text(typed);
  wchar_t* end = nullptr;
  const double value = _wcstod(text.c_str(), &end);
  if (end != text.c_str() + text.size() || !std::isfinite(value)) return std::nullopt;
  return value;
}

std::optional<int> parseInteger(std::wstring_view typed) {
  const size_t digits = typed.find_first_not_of(L"+-");
  if (digits > 1 || typed.find_first_not_of(L"0123456789", digits) != std::wstring_view::npos)
    return std::nullopt;
  const std::optional<double> value = parseReal(typed);
  const bool fits = value && *value >= std::numeric_limits<int>::min() &&
                    *value <= std::numeric_limits<int>::max();
  return fits ? std::optional(static_cast<int>(*value)) : std::nullopt;
}

std::optional<TypedPoint> parsePoint(std::wstring_view typed, const AcGePoint3d& last,
                                     double elevation) {
  TypedPoint result;
  bool relative = false;
  for (; !typed.empty() && (typed.front() == L'@' || typed.front() == L'*'); typed.remove_prefix(1))
    (typed.front() == L'@' ? relative : result.world) = true;
  if (relative && result.world) return std::nullopt;
  if (relative && typed.empty()) {
    result.point = last;
    return result;
  }
  const double z = relative ? 0 : elevation;
  std::optional<AcGePoint3d> point = parseCoordinates(typed, z);
  if (!point) point = parsePolar(typed, z);
  if (!point) return std::nullopt;
  result.point = relative ? last + point->asVector() : *point;
  return result;
}

}  // namespace kovra::arx
