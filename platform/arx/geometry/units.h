// Numbers and angles as text.
#pragma once
#include <string>

#include "platform/arx/base/adesk.h"

namespace kovra::arx {
/// Unit 1 scientific, 2 decimal, 3 engineering, 4 architectural, 5 fractional. Precision 0 to 8:
/// decimal places, or the exponent of 2 of the smallest denominator. Zeros at the end stay. Empty
/// for other units.
std::wstring formatLength(double value, int unit, int precision);
/// Unit 0 degrees, 1 degrees/minutes/seconds, 2 grads, 3 radians, 4 surveyor's.
std::wstring formatAngle(double radians, int unit, int precision);
}  // namespace kovra::arx

/// Into a buffer of at least 64 characters. Unit -1 and precision -1 mean LUNITS and LUPREC of the
/// working database. RTNORM, RTERROR for other units.
int acdbRToS(double value, int unit, int precision, ACHAR* text);
/// The same for angles in radians with AUNITS and AUPREC.
int acdbAngToS(double angle, int unit, int precision, ACHAR* text);
/// A length from its decimal or scientific form. RTNORM or RTERROR.
int acdbDisToF(const ACHAR* text, int unit, double* value);
