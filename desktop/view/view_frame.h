// Which part of the world a picture shows.
#pragma once
#include <QPointF>
#include <QRectF>

#include "desktop/view/shapes.h"

namespace kovra::desktop {

/// Seen from above; y up in the world, down in the picture. Pixels are those of the picture.
struct ViewFrame {
  Spot center;
  double scale = 1;  ///< pixels to a drawing unit
  double width = 1;  ///< pixels
  double height = 1;

  QPointF toPixel(Spot spot) const {
    return {(spot.x - center.x) * scale + width / 2, height / 2 - (spot.y - center.y) * scale};
  }
  Spot toWorld(QPointF pixel) const {
    return {center.x + (pixel.x() - width / 2) / scale,
            center.y + (height / 2 - pixel.y()) / scale};
  }
  QRectF toPixels(const Box& box) const {
    return {toPixel({box.left, box.top}), toPixel({box.right, box.bottom})};
  }
  Box toWorld(const QRectF& pixels) const {
    Box box;
    box.add(toWorld(pixels.topLeft()));
    box.add(toWorld(pixels.bottomRight()));
    return box;
  }
  /// The same part of the world in pixels that are `ratio` times as many.
  ViewFrame inPixels(double ratio) const {
    return {center, scale * ratio, width * ratio, height * ratio};
  }
  /// What lies in a rectangle of the picture as a picture of its own.
  ViewFrame partOf(const QRect& place) const {
    return {toWorld(QRectF(place).center()), scale, static_cast<double>(place.width()),
            static_cast<double>(place.height())};
  }
  bool operator==(const ViewFrame&) const = default;
};

}  // namespace kovra::desktop
