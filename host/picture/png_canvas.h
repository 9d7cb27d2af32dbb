#pragma once

#include <cairo.h>

#include "host/picture/canvas.h"

namespace kovra::host {

/// Draws a PNG file.
class PngCanvas : public Canvas {
 public:
  PngCanvas(int width, int height, Rgb ground);
  ~PngCanvas() override;
  PngCanvas(const PngCanvas&) = delete;
  PngCanvas& operator=(const PngCanvas&) = delete;

  void stroke(const Path& path, Rgb color, double width) override;
  void fill(const Path& path, Rgb color) override;
  void glyphs(std::wstring_view text, std::span<const PlacedGlyph> glyphs, const Affine& matrix,
              Rgb color) override;
  void beginClip(const Bounds& box) override;
  void endClip() override;
  Result<std::string> finish() override;

 private:
  void trace(const Path& path, const Affine& matrix);
  void setColor(Rgb color);

  cairo_surface_t* surface_;
  cairo_t* context_;
};

}  // namespace kovra::host
