#include "desktop/mirror/pixmaps.h"

#include <QImage>

#include "platform/win/resources/icon_pixels.h"

namespace kovra::desktop {

QPixmap pixmapOf(HICON icon) {
  const win::IconPixels pixels = win::iconPixels(icon);
  if (pixels.pixels.empty()) return {};
  QImage image(pixels.width, pixels.height, QImage::Format_ARGB32);
  for (int row = 0; row < pixels.height; ++row)
    for (int column = 0; column < pixels.width; ++column) {
      const win::IconPixel& pixel = pixels.at(column, row);
      image.setPixelColor(column, row, QColor(pixel.red, pixel.green, pixel.blue, pixel.opacity));
    }
  return QPixmap::fromImage(image);
}

}  // namespace kovra::desktop
