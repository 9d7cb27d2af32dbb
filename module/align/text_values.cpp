#include "module/align/text_values.h"

#include <cmath>

#include "module/drawing/angles.h"

namespace kovra {
namespace {

/// Numbers that are this near count as equal.
constexpr double kTolerance = 0.0001;

bool isNear(double number, const CString& text) {
  return std::abs(number - _wtof(text.GetString())) <= kTolerance;
}

}  // namespace

TextPropertyFlags ReadApplySet(const ACHAR* digits) {
  TextPropertyFlags set = {};
  for (; *digits != ACHAR{}; ++digits) {
    if (*digits < L'0' || *digits > L'5') continue;
    set[static_cast<std::size_t>(*digits - L'0')] = true;
  }
  return set;
}

double ShownDegrees(double rotation) {
  const double shown = rotation > kPi ? rotation - 2 * kPi : rotation;
  return shown * 180 / kPi;
}

bool CommonValues::agrees(std::size_t property, const TextValues& values,
                          const TextFigures& figures) const {
  switch (property) {
    case kHeightProperty:
      return isNear(figures.height, first_[property]);
    case kWidthFactorProperty:
      return isNear(figures.widthFactor, first_[property]);
    case kRotationProperty:
      return isNear(_wtof(values[property].GetString()), first_[property]);
    default:
      return values[property].CompareNoCase(first_[property].GetString()) == 0;
  }
}

void CommonValues::add(const TextValues& values, const TextFigures& figures) {
  const bool isFirst = agreeing_ == decltype(agreeing_){};
  if (isFirst) first_ = values;
  for (std::size_t property = 0; property < kTextProperties; ++property) {
    if (isFirst || agrees(property, values, figures)) ++agreeing_[property];
  }
}

TextValues CommonValues::result(std::size_t selected) const {
  TextValues common;
  for (std::size_t property = 0; property < kTextProperties; ++property) {
    if (agreeing_[property] == selected) common[property] = first_[property];
  }
  return common;
}

}  // namespace kovra
