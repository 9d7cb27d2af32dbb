#include "platform/arx/base/color.h"

#include <cmath>

namespace {

constexpr Adesk::UInt32 packed(double red, double green, double blue) {
  const auto byte = [](double part) { return static_cast<Adesk::UInt32>(part * 255); };
  return (byte(red) << 16) | (byte(green) << 8) | byte(blue);
}

// Indexes 10 to 249 go round the circle of hues in 24 steps of 15 degrees; each hue has five
// brightnesses, each in full and in half saturation.
Adesk::UInt32 hueColor(int index) {
  static constexpr double kBrightness[] = {1, 0.65, 0.5, 0.3, 0.15};
  const double value = kBrightness[index % 10 / 2];
  const double least = index % 2 == 0 ? 0 : value / 2;
  const int hue = index / 10 - 1;
  const double sector = hue / 4.0;  // of six
  const auto part = [&](double shift) {
    const double distance = std::fabs(std::fmod(sector + shift + 6, 6.0) - 3);  // 3 at the peak
    const double share = distance >= 2 ? 1 : distance <= 1 ? 0 : distance - 1;
    return least + (value - least) * share;
  };
  return packed(part(0), part(4), part(2));
}

}  // namespace

Adesk::UInt16 AcCmEntityColor::colorIndex() const {
  return method_ == kByColor ? 0 : static_cast<Adesk::UInt16>(value_);
}

void AcCmEntityColor::setColorIndex(int index) {
  const bool own = index >= 1 && index <= 255;
  method_ = own ? kByACI : index == 0 ? kByBlock : kByLayer;
  value_ = own ? static_cast<Adesk::UInt32>(index) : index == 0 ? 0 : 256;
}

Adesk::UInt32 AcCmEntityColor::rgb() const {
  if (method_ == kByColor) return value_;
  return lookUpRGB(method_ == kByACI ? static_cast<Adesk::UInt8>(value_) : 7);
}

Adesk::UInt32 AcCmEntityColor::lookUpRGB(Adesk::UInt8 index) {
  static constexpr Adesk::UInt32 kFirst[] = {0x000000, 0xff0000, 0xffff00, 0x00ff00, 0x00ffff,
                                             0x0000ff, 0xff00ff, 0xffffff, 0x808080, 0xc0c0c0};
  static constexpr Adesk::UInt32 kGrays[] = {0x333333, 0x5b5b5b, 0x848484,
                                             0xadadad, 0xd6d6d6, 0xffffff};
  if (index < 10) return kFirst[index];
  return index < 250 ? hueColor(index) : kGrays[index - 250];
}
