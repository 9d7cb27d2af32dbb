#pragma once

#include <cstdint>
#include <vector>

#include "platform/win/base/windows_types.h"

namespace kovra::win {

/// A pixel of an icon.
struct IconPixel {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
  std::uint8_t opacity = 0;  ///< 255 hides what is below
  bool operator==(const IconPixel&) const = default;
};

/// The pixels of an icon, row by row from the top.
struct IconPixels {
  int width = 0;
  int height = 0;
  std::vector<IconPixel> pixels;

  const IconPixel& at(int column, int row) const {
    return pixels[static_cast<std::size_t>(row) * static_cast<std::size_t>(width) +
                  static_cast<std::size_t>(column)];
  }
};

/// The image of an icon with 32 bits a pixel; without pixels for every other handle.
IconPixels iconPixels(HICON icon);

}  // namespace kovra::win
