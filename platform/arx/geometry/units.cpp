#include "platform/arx/geometry/units.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cwchar>
#include <iterator>
#include <numbers>

#include "platform/win/base/wide_format.h"

namespace kovra::arx {
namespace {

constexpr double kInchesPerFoot = 12;

/// `value` is finite, the precision at most 8.
std::wstring decimal(double value, int precision) {
  constexpr double kLargestWhole = 1e9;
  if (value < kLargestWhole && value == std::floor(value) && !std::signbit(value)) {
    std::wstring whole = std::to_wstring(static_cast<int>(value));
    if (precision > 0) whole.append(1, L'.').append(static_cast<std::size_t>(precision), L'0');
    return whole;
  }
  std::array<char, 328> digits;  // the largest number has 309 before the point
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                 std::chars_format::fixed, precision);
  return std::wstring(digits.data(), end.ptr);
}

/// One digit before the point, an exponent of at least two digits.
std::wstring scientific(double value, int precision) {
  return win::formatWide(L"%.*E", precision, value);
}

/// A number above 0 as whole part and fraction over a power of two, reduced: "3 1/2", "1/4", "3".
std::wstring fraction(double value, int precision) {
  const auto denominator = std::int64_t{1} << precision;
  const double units = std::round(value * static_cast<double>(denominator));
  if (units >= 9e15) return decimal(value, 0);
  auto numerator = static_cast<std::int64_t>(units);
  const std::int64_t whole = numerator / denominator;
  numerator %= denominator;
  if (numerator == 0) return std::to_wstring(whole);
  std::int64_t divisor = denominator;
  while (numerator % 2 == 0) {
    numerator /= 2;
    divisor /= 2;
  }
  const std::wstring part = std::to_wstring(numerator) + L"/" + std::to_wstring(divisor);
  return whole == 0 ? part : std::to_wstring(whole) + L" " + part;
}

/// Feet and the inches behind them, whose text `inches` makes of what is left.
template <class Inches>
std::wstring feet(double value, double step, Inches inches) {
  const double rounded = std::round(value / step) * step;
  const double whole = std::floor(rounded / kInchesPerFoot);
  const std::wstring rest = inches(std::max(0.0, rounded - whole * kInchesPerFoot)) + L"\"";
  return whole == 0 ? rest : decimal(whole, 0) + L"'-" + rest;
}

std::wstring positiveLength(double value, int unit, int precision) {
  switch (unit) {
    case 1:
      return scientific(value, precision);
    case 2:
      return decimal(value, precision);
    case 3:
      return feet(value, std::pow(10.0, -precision),
                  [&](double inches) { return decimal(inches, precision); });
    case 4:
      return feet(value, std::pow(2.0, -precision),
                  [&](double inches) { return fraction(inches, precision); });
    case 5:
      return fraction(value, precision);
    default:
      return {};
  }
}

/// Degrees, then minutes and seconds as far as the precision goes (1 or 2 minutes, from 3 on
/// seconds).
std::wstring degreesMinutesSeconds(double degrees, int precision) {
  if (precision <= 0) return decimal(degrees, 0) + L"d";
  if (precision <= 2) {
    const double minutes = std::round(degrees * 60);
    const double whole = std::floor(minutes / 60);
    return decimal(whole, 0) + L"d" + decimal(minutes - whole * 60, 0) + L"'";
  }
  const int places = std::max(0, precision - 4);
  const double step = std::pow(10.0, -places);
  const double seconds = std::round(degrees * 3600 / step) * step;
  const double whole = std::floor(seconds / 3600);
  const double minutes = std::floor((seconds - whole * 3600) / 60);
  return decimal(whole, 0) + L"d" + decimal(minutes, 0) + L"'" +
         decimal(std::max(0.0, seconds - whole * 3600 - minutes * 60), places) + L"\"";
}

/// Measured from north or south towards east or west.
std::wstring surveyor(double degrees, int precision) {
  const bool north = degrees <= 180;
  const bool east = degrees <= 90 || degrees >= 270;
  const double from = std::fabs(90 - (north ? degrees : 360 - degrees));
  return (north ? L"N " : L"S ") + degreesMinutesSeconds(from, precision) + (east ? L" E" : L" W");
}

}  // namespace

std::wstring formatLength(double value, int unit, int precision) {
  if (!std::isfinite(value)) value = 0;
  precision = std::clamp(precision, 0, 8);
  const std::wstring text = positiveLength(std::fabs(value), unit, precision);
  const bool isZero = text.find_first_of(L"123456789") == std::wstring::npos;
  return value < 0 && !isZero ? L"-" + text : text;
}

std::wstring formatAngle(double radians, int unit, int precision) {
  constexpr double kTurn = 2 * std::numbers::pi;
  if (!std::isfinite(radians)) radians = 0;
  precision = std::clamp(precision, 0, 8);
  double angle = std::fmod(radians, kTurn);
  if (angle < 0) angle += kTurn;
  const double degrees = angle / std::numbers::pi * 180;
  switch (unit) {
    case 0:
      return decimal(degrees, precision);
    case 1:
      return degreesMinutesSeconds(degrees, precision);
    case 2:
      return decimal(degrees / 0.9, precision) + L"g";
    case 3:
      return decimal(angle, precision) + L"r";
    case 4:
      return surveyor(degrees, precision);
    default:
      return {};
  }
}

}  // namespace kovra::arx
