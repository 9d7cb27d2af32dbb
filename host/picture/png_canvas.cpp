#include "host/picture/png_canvas.h"

namespace kovra::host {
namespace {

cairo_status_t appendBytes(void* out, const unsigned char* bytes, unsigned count) {
  static_cast<std::string*>(out)->append(reinterpret_cast<const char*>(bytes), count);
  return CAIRO_STATUS_SUCCESS;
}

}  // namespace

PngCanvas::PngCanvas(int width, int height, Rgb ground)
    : surface_(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height)),
      context_(cairo_create(surface_)) {
  setColor(ground);
  cairo_paint(context_);
  cairo_set_line_cap(context_, CAIRO_LINE_CAP_ROUND);
  cairo_set_line_join(context_, CAIRO_LINE_JOIN_ROUND);
  cairo_set_fill_rule(context_, CAIRO_FILL_RULE_EVEN_ODD);
}

PngCanvas::~PngCanvas() {
  cairo_destroy(context_);
  cairo_surface_destroy(surface_);
}

void PngCanvas::setColor(Rgb color) {
  cairo_set_source_rgb(context_, color.red / 255.0, color.green / 255.0, color.blue / 255.0);
}

void PngCanvas::trace(const Path& path, const Affine& matrix) {
  path.forEach([&](Path::Step step, std::span<const Spot> spots) {
    const auto spot = [&](std::size_t i) { return matrix(spots[i]); };
    switch (step) {
      case Path::Step::kMove:
        cairo_move_to(context_, spot(0).x, spot(0).y);
        break;
      case Path::Step::kLine:
        cairo_line_to(context_, spot(0).x, spot(0).y);
        break;
      case Path::Step::kCurve:
        cairo_curve_to(context_, spot(0).x, spot(0).y, spot(1).x, spot(1).y, spot(2).x, spot(2).y);
        break;
      case Path::Step::kClose:
        cairo_close_path(context_);
        break;
    }
  });
}

void PngCanvas::stroke(const Path& path, Rgb color, double width) {
  setColor(color);
  cairo_set_line_width(context_, width);
  trace(path, {});
  cairo_stroke(context_);
}

void PngCanvas::fill(const Path& path, Rgb color) {
  setColor(color);
  trace(path, {});
  cairo_fill(context_);
}

void PngCanvas::glyphs(std::wstring_view, std::span<const PlacedGlyph> glyphs, const Affine& matrix,
                       Rgb color) {
  setColor(color);
  for (const PlacedGlyph& placed : glyphs) {
    Affine own = matrix;
    const Spot origin = matrix({placed.x, 0});
    own.e = origin.x;
    own.f = origin.y;
    trace(placed.glyph->outline, own);
  }
  cairo_set_fill_rule(context_, CAIRO_FILL_RULE_WINDING);
  cairo_fill(context_);
  cairo_set_fill_rule(context_, CAIRO_FILL_RULE_EVEN_ODD);
}

void PngCanvas::beginClip(const Bounds& box) {
  cairo_save(context_);
  cairo_rectangle(context_, box.left, box.top, box.right - box.left, box.bottom - box.top);
  cairo_clip(context_);
}

void PngCanvas::endClip() {
  cairo_restore(context_);
}

Result<std::string> PngCanvas::finish() {
  std::string bytes;
  const cairo_status_t status = cairo_surface_write_to_png_stream(surface_, appendBytes, &bytes);
  if (status == CAIRO_STATUS_SUCCESS) return bytes;
  return Error{ErrorKind::kNotWritable, cairo_status_to_string(status)};
}

}  // namespace kovra::host
