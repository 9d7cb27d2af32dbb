// Shapes over the drawing as an image: a selection, what is dragged, what a jig shows.
#pragma once
#include <QImage>
#include <QPainter>
#include <functional>

#include "desktop/view/display_list.h"
#include "desktop/view/glyph_masks.h"
#include "desktop/view/shape_painter.h"
#include "desktop/view/view_frame.h"

namespace kovra::desktop {

/// Painted in slices of time. An image of many shapes is kept and moved as long as they are only
/// shifted; it holds more than the view, for what comes into sight. Pixels are those of the screen.
class OverlayPicture {
 public:
  /// With more pieces than this an image is coarse, and kept.
  static constexpr std::size_t kMany = 1500;

  /// What is painted at once; with an empty box nothing.
  struct Piece {
    const Shapes* shapes = nullptr;
    ShapeRange range;
    Box box;
  };
  using PieceAt = std::function<Piece(std::size_t)>;

  bool isNull() const { return image_.isNull(); }
  bool complete() const { return painted_ == count_; }
  /// What it shows now, and where.
  const ViewFrame& frame() const { return frame_; }
  const QTransform& place() const { return place_; }
  /// Whether it still does for this view, with its pieces at this place: then they are there.
  bool moveTo(const ViewFrame& frame, const QTransform& place);
  /// Begins anew. `place` leads from the pieces' coordinates to the world.
  void begin(const ViewFrame& frame, const QTransform& place, std::size_t count,
             const PieceAt& pieceAt);
  /// Goes on with the same pieces until about `deadline`. Many have hard lines without dashes, and
  /// strokes for texts.
  void work(const PieceAt& pieceAt, GlyphMasks& glyphs, ShapePainter::Style style,
            Clock::time_point deadline);
  void paint(QPainter& painter, const ViewFrame& frame) const;

 private:
  ViewFrame begun_;       ///< the view when it was begun
  ViewFrame frame_;       ///< the view that it shows now
  QTransform paintedAt_;  ///< the place when it was begun
  QTransform place_;      ///< where it shows them now
  QRect part_;            ///< what it holds, in pixels of the view when it was begun
  bool whole_ = false;    ///< no piece reaches beyond that
  std::size_t count_ = 0;
  std::size_t painted_ = 0;
  QImage image_;
};

}  // namespace kovra::desktop
