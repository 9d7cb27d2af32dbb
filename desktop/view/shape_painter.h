// Paints shapes into an image.
#pragma once
#include <QImage>
#include <QLineF>
#include <QPainter>
#include <optional>
#include <vector>

#include "desktop/view/glyph_masks.h"
#include "desktop/view/shapes.h"
#include "desktop/view/view_frame.h"

namespace kovra::desktop {

/// One round of painting. What is smaller than a pixel becomes one, texts that can't be read become
/// strokes. Later things cover earlier ones.
class ShapePainter {
 public:
  struct Style {
    std::optional<QRgb> color{};  ///< instead of the shapes' own
    double width = 1;             ///< of lines, in pixels
    bool smooth = true;           ///< lines with soft edges
    bool dashed = false;
    bool letters = true;  ///< false: texts are strokes
  };

  /// Nothing is painted outside of `clip`, in pixels of the image.
  ShapePainter(QImage& image, const ViewFrame& frame, GlyphMasks& glyphs, const QRect& clip,
               const Style& style);
  ~ShapePainter();
  ShapePainter(const ShapePainter&) = delete;
  ShapePainter& operator=(const ShapePainter&) = delete;

  /// `box`: around the shapes of the range. `place` leads from their coordinates to the world.
  void paint(const Shapes& shapes, const ShapeRange& range, const Box& box);
  void paint(const Shapes& shapes, const ShapeRange& range, const Box& box,
             const QTransform& place);

 private:
  void curve(const Shapes& shapes, const Curve& curve);
  void chain(const Spot* points, std::uint32_t count, QRgb color);
  void face(const Spot* points, std::uint32_t count, QRgb color);
  void arc(const Spot* points, QRgb color);
  void text(const Shapes& shapes, const TextLine& line);
  void letters(std::wstring_view characters, const QTransform& toPixels, QRgb color);
  void letter(const arx::TextCharacter& character, LineRoom room, const QTransform& toPixels,
              QRgb color);
  void cover(const GlyphMask& mask, int x, int y, QRgb color);
  void strokes(const arx::TextCharacter& character, const QTransform& toPixels, QRgb color);
  void segment(QPointF from, QPointF to, QRgb color);
  void dot(QPointF at, QRgb color);
  void flush();
  QPointF pixel(Spot spot) const { return toPixels_.map(QPointF(spot.x, spot.y)); }

  ViewFrame frame_;
  GlyphMasks& glyphs_;
  QRect clip_;
  QRectF near_;  ///< lines are cut to it
  Style style_;
  QTransform toPixels_;
  QTransform worldToPixels_;
  uchar* bits_;
  qsizetype bytesPerLine_;
  QPainter painter_;
  std::vector<QLineF> lines_;  ///< of one color, not painted yet
  QRgb lineColor_ = 0;
};

}  // namespace kovra::desktop
