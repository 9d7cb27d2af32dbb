#pragma once

#include <string_view>

/// The numbers of the resize dialog.
namespace kovra {

/// Heights of at most this count as none.
inline constexpr double kLeastHeight = 0.0001;
/// Smallest step of the arrows.
inline constexpr double kLeastStep = 0.1;

/// Whether a text is a height: digits with at most one point, above 0. Signs and exponents are
/// refused.
bool IsHeight(std::wstring_view text);

/// The height after `presses` of the arrows, below 0 of the lower one: in whole tenths, cut off,
/// and that many of them from `least` to `most`.
double SteppedHeight(double height, int presses, double step, int least, int most);

/// A displacement in one axis: keeps what goes along the larger one, and of equal ones Y.
void KeepLargerAxis(double& x, double& y);

}  // namespace kovra
