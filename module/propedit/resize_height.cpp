#include "module/propedit/resize_height.h"

#include <algorithm>
#include <cmath>

namespace kovra {
namespace {

constexpr double kTenths = 10.0;

}  // namespace

bool IsHeight(std::wstring_view text) {
  if (text.find_first_not_of(L"0123456789.") != std::wstring_view::npos) return false;
  if (std::count(text.begin(), text.end(), L'.') > 1) return false;
  // Whatever else it is, it isn't 0.
  return text.find_first_of(L"123456789") != std::wstring_view::npos;
}

double SteppedHeight(double height, int presses, double step, int least, int most) {
  // What arithmetic leaves out of a whole number of tenths.
  constexpr double kRounding = 1e-6;
  const double tenths = std::trunc((height + presses * step) * kTenths + kRounding);
  return std::clamp<double>(tenths, least, most) / kTenths;
}

void KeepLargerAxis(double& x, double& y) {
  if (std::fabs(x) > std::fabs(y)) {
    y = 0;
  } else {
    x = 0;
  }
}

}  // namespace kovra
