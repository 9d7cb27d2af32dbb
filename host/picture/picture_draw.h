#pragma once

#include <vector>

#include "host/picture/canvas.h"
#include "launch/picture_library.h"
#include "platform/arx/geometry/gi.h"

namespace kovra::host {

Rgb groundColor(Ground ground);
/// The color on that ground. What is white by its index, and what could hardly be told from the
/// ground, is black on white and white on dark.
Rgb inkColor(const AcCmEntityColor& color, Ground ground);

/// Which part of the world a picture shows, seen from above; y up in the world, down in the
/// picture.
struct Page {
  AcGePoint3d low;
  double scale = 1;  ///< pixels to a drawing unit
  int width = 0;     ///< pixels
  int height = 0;

  Spot toPixel(const AcGePoint3d& point) const {
    return {(point.x - low.x) * scale, height - (point.y - low.y) * scale};
  }
};

/// The page for a window of the world whose longer side gets `size` pixels; a side that is nearly
/// nothing beside the other gets a twentieth of it. `margin`: what is added all round, as a share
/// of the longer side.
Page pageFor(const AcGePoint3d& low, const AcGePoint3d& high, int size, double margin);

/// Draws AcGi operations on a canvas.
class PictureDraw : public AcGiWorldDraw {
 public:
  PictureDraw(Canvas& canvas, Glyphs& glyphs, const Page& page, Ground ground);
  ~PictureDraw() override;
  AcGiGeometry& geometry() const override;
  AcGiSubEntityTraits& subEntityTraits() const override;
  /// Whether anything was drawn on the page.
  bool hasInk() const;

 private:
  class Geometry;
  class Traits;

  std::unique_ptr<Traits> traits_;
  std::unique_ptr<Geometry> geometry_;
};

}  // namespace kovra::host
