#include "host/picture/font_outlines.h"

#include <pango/pangocairo.h>

namespace kovra::host {
namespace {

Path pathOf(cairo_t* context) {
  Path path;
  cairo_path_t* copied = cairo_copy_path(context);
  for (int i = 0; i < copied->num_data; i += copied->data[i].header.length) {
    const cairo_path_data_t* data = &copied->data[i];
    const auto spot = [data](int n) { return Spot{data[n].point.x, data[n].point.y}; };
    switch (data->header.type) {
      case CAIRO_PATH_MOVE_TO:
        // Each contour ends with a move that begins nothing.
        if (i + data->header.length < copied->num_data) path.moveTo(spot(1));
        break;
      case CAIRO_PATH_LINE_TO:
        path.lineTo(spot(1));
        break;
      case CAIRO_PATH_CURVE_TO:
        path.curveTo(spot(1), spot(2), spot(3));
        break;
      case CAIRO_PATH_CLOSE_PATH:
        path.close();
        break;
    }
  }
  cairo_path_destroy(copied);
  return path;
}

PangoLayout* makeLayout(cairo_t* context, const char* families) {
  PangoLayout* layout = pango_cairo_create_layout(context);
  cairo_font_options_t* options = cairo_font_options_create();
  cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
  cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
  pango_cairo_context_set_font_options(pango_layout_get_context(layout), options);
  cairo_font_options_destroy(options);
  PangoFontDescription* font = pango_font_description_from_string(families);
  pango_font_description_set_absolute_size(font, FontOutlines::kSize * PANGO_SCALE);
  pango_layout_set_font_description(layout, font);
  pango_font_description_free(font);
  pango_layout_set_single_paragraph_mode(layout, 1);
  return layout;
}

}  // namespace

struct FontOutlines::Pango {
  cairo_surface_t* surface;  ///< without bounds: characters outside of them would be left out
  cairo_t* context;
  PangoLayout* layout;

  explicit Pango(const char* families)
      : surface(cairo_recording_surface_create(CAIRO_CONTENT_ALPHA, nullptr)),
        context(cairo_create(surface)),
        layout(makeLayout(context, families)) {}
  ~Pango() {
    g_object_unref(layout);
    cairo_destroy(context);
    cairo_surface_destroy(surface);
  }
  Pango(const Pango&) = delete;
  Pango& operator=(const Pango&) = delete;

  PangoLayoutLine* line() { return pango_layout_get_line_readonly(layout, 0); }
};

FontOutlines::FontOutlines(const char* families) : pango_(std::make_unique<Pango>(families)) {}

FontOutlines::~FontOutlines() = default;

void FontOutlines::set(std::string_view text) {
  pango_layout_set_text(pango_->layout, text.data(), static_cast<int>(text.size()));
}

Path FontOutlines::outline(std::string_view text) {
  set(text);
  cairo_new_path(pango_->context);
  cairo_move_to(pango_->context, 0, 0);
  pango_cairo_layout_line_path(pango_->context, pango_->line());
  return pathOf(pango_->context);
}

double FontOutlines::advance(std::string_view text) {
  set(text);
  PangoRectangle logical;
  pango_layout_line_get_extents(pango_->line(), nullptr, &logical);
  return static_cast<double>(logical.width) / PANGO_SCALE;
}

bool isLetter(char32_t character) {
  return g_unichar_isalpha(character) != 0;
}

}  // namespace kovra::host
