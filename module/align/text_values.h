#pragma once

#include <array>
#include <cstddef>

#include "module/drawing/text_properties.h"

/// What the texts of a column have in common.
namespace kovra {

/// Reads a set of properties from their digits, "0" to "5"; other characters are passed over.
TextPropertySet ReadApplySet(const ACHAR* digits);

/// The angle that the dialog shows for a rotation, in degrees; both from radians in 0 to a full
/// turn. Angles above a half turn are shown as negative ones.
double ShownDegrees(double rotation);

/// Numbers of a text as the comparison sees them.
struct TextFigures {
  double height = 0;
  double widthFactor = 1;
};

/// Finds what the texts of a selection have in common: each is compared with the first.
class CommonValues {
 public:
  /// @param figures the numbers behind the values of height and width factor
  void add(const TextValues& values, const TextFigures& figures);

  /// The first text's values; empty ones where not all `selected` objects agree with it, which
  /// objects that were never added don't.
  TextValues result(std::size_t selected) const;

 private:
  bool agrees(std::size_t property, const TextValues& values, const TextFigures& figures) const;

  TextValues first_;
  std::array<std::size_t, kTextProperties> agreeing_ = {};
};

}  // namespace kovra
