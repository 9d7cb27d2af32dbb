#include "desktop/mirror/pixmaps.h"

#include <QGuiApplication>
#include <QImage>
#include <QPalette>

#include "platform/win/resources/icon_pixels.h"

namespace kovra::desktop {

namespace {

/// Icons are drawn for light buttons: on dark ones their dark strokes take the opposite lightness.
QColor readableOn(const QColor& button, QColor color) {
  if (button.lightness() >= 128 || color.lightness() >= 128) return color;
  return QColor::fromHsl(color.hslHue(), color.hslSaturation(), 255 - color.lightness(),
                         color.alpha());
}

}  // namespace

QPixmap pixmapOf(HICON icon) {
  const win::IconPixels pixels = win::iconPixels(icon);
  if (pixels.pixels.empty()) return {};
  QImage image(pixels.width, pixels.height, QImage::Format_ARGB32);
  const QColor button = QGuiApplication::palette().color(QPalette::Button);
  for (int row = 0; row < pixels.height; ++row)
    for (int column = 0; column < pixels.width; ++column) {
      const win::IconPixel& pixel = pixels.at(column, row);
      image.setPixelColor(
          column, row,
          readableOn(button, QColor(pixel.red, pixel.green, pixel.blue, pixel.opacity)));
    }
  return QPixmap::fromImage(image);
}

}  // namespace kovra::desktop
