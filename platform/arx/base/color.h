// Colors of entities and layers.
#pragma once
#include "platform/arx/base/adesk.h"

/// A color as entities have it: by layer, by block, an index (1 to 255), or red, green and blue.
class AcCmEntityColor {
 public:
  enum ColorMethod { kByLayer = 0xC0, kByBlock = 0xC1, kByColor = 0xC2, kByACI = 0xC3 };

  /// By layer.
  AcCmEntityColor() = default;
  AcCmEntityColor(Adesk::UInt8 red, Adesk::UInt8 green, Adesk::UInt8 blue)
      : method_(kByColor),
        value_((Adesk::UInt32{red} << 16) | (Adesk::UInt32{green} << 8) | blue) {}

  ColorMethod colorMethod() const { return method_; }
  bool isByLayer() const { return method_ == kByLayer; }
  bool isByBlock() const { return method_ == kByBlock; }
  /// 0 by block, 256 by layer; 0 for a color that has no index.
  Adesk::UInt16 colorIndex() const;
  /// 0 is by block, 1 to 255 an index, everything else by layer.
  void setColorIndex(int index);
  /// Of a color by index its entry of the palette.
  Adesk::UInt8 red() const { return static_cast<Adesk::UInt8>(rgb() >> 16); }
  Adesk::UInt8 green() const { return static_cast<Adesk::UInt8>(rgb() >> 8); }
  Adesk::UInt8 blue() const { return static_cast<Adesk::UInt8>(rgb()); }

  /// The palette that color indexes have on a dark ground, as 0xRRGGBB. 7 is white there; whoever
  /// paints on a white ground shows it in black.
  static Adesk::UInt32 lookUpRGB(Adesk::UInt8 index);

 private:
  Adesk::UInt32 rgb() const;

  ColorMethod method_ = kByLayer;
  Adesk::UInt32 value_ = 256;  ///< the index, or 0xRRGGBB
};
