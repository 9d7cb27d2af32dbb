#include "desktop/view/overlay_picture.h"

#include <cmath>

namespace kovra::desktop {
namespace {

/// Pieces between two looks at the clock.
constexpr std::size_t kStride = 64;
/// Lines may reach that far over their box.
constexpr double kMargin = 4;

bool sameScale(const ViewFrame& a, const ViewFrame& b) {
  return a.scale == b.scale && a.width == b.width && a.height == b.height;
}

bool turnsAlike(const QTransform& a, const QTransform& b) {
  constexpr double kNothing = 1e-12;
  return std::fabs(a.m11() - b.m11()) < kNothing && std::fabs(a.m22() - b.m22()) < kNothing &&
         std::fabs(a.m12() - b.m12()) < kNothing && std::fabs(a.m21() - b.m21()) < kNothing;
}

Box placed(const Box& box, const QTransform& place) {
  Box result;
  if (box.isEmpty()) return result;
  for (const QPointF corner : {QPointF(box.left, box.bottom), QPointF(box.left, box.top),
                               QPointF(box.right, box.bottom), QPointF(box.right, box.top)}) {
    const QPointF at = place.map(corner);
    result.add(Spot{at.x(), at.y()});
  }
  return result;
}

/// Where the view's upper left corner, as it was, is seen once everything has moved.
QPointF wayOf(const ViewFrame& from, const QTransform& placeThen, const ViewFrame& to,
              const QTransform& placeNow) {
  const double x = (from.center.x - to.center.x + placeNow.dx() - placeThen.dx()) * to.scale;
  const double y = (to.center.y - from.center.y - placeNow.dy() + placeThen.dy()) * to.scale;
  return {x, y};
}

}  // namespace

bool OverlayPicture::moveTo(const ViewFrame& frame, const QTransform& place) {
  if (frame == frame_ && place == place_) return true;
  if (count_ < kMany || !sameScale(frame, begun_) || !turnsAlike(place, paintedAt_)) return false;
  const QPointF way = wayOf(begun_, paintedAt_, frame, place);
  const bool near = std::fabs(way.x()) <= frame.width / 2 && std::fabs(way.y()) <= frame.height / 2;
  if (!near && !whole_) return false;
  frame_ = frame;
  place_ = place;
  return true;
}

void OverlayPicture::begin(const ViewFrame& frame, const QTransform& place, std::size_t count,
                           const PieceAt& pieceAt) {
  begun_ = frame_ = frame;
  paintedAt_ = place_ = place;
  count_ = count;
  painted_ = 0;
  image_ = {};
  Box box;
  for (std::size_t i = 0; i < count; ++i) box.add(pieceAt(i).box);
  QRectF held(0, 0, frame.width, frame.height);
  if (count >= kMany)
    held.adjust(-frame.width / 2, -frame.height / 2, frame.width / 2, frame.height / 2);
  const QRectF around =
      box.isEmpty()
          ? QRectF()
          : frame.toPixels(placed(box, place)).adjusted(-kMargin, -kMargin, kMargin, kMargin);
  whole_ = held.contains(around);
  part_ = around.intersected(held).toAlignedRect();
  if (part_.isEmpty()) {
    painted_ = count_;
    return;
  }
  image_ = QImage(part_.size(), QImage::Format_ARGB32_Premultiplied);
  image_.fill(Qt::transparent);
}

void OverlayPicture::work(const PieceAt& pieceAt, GlyphMasks& glyphs, ShapePainter::Style style,
                          Clock::time_point deadline) {
  if (complete()) return;
  const bool few = count_ < kMany;
  style.smooth = style.letters = few;
  style.dashed = style.dashed && few;
  ShapePainter painter(image_, begun_.partOf(part_), glyphs, image_.rect(), style);
  while (painted_ < count_) {
    const Piece piece = pieceAt(painted_++);
    if (!piece.box.isEmpty()) painter.paint(*piece.shapes, piece.range, piece.box, paintedAt_);
    if (painted_ % kStride == 0 && Clock::now() >= deadline) return;
  }
}

void OverlayPicture::paint(QPainter& painter, const ViewFrame& frame) const {
  if (image_.isNull() || frame != frame_) return;
  const QPointF way = wayOf(begun_, paintedAt_, frame_, place_);
  painter.drawImage(QPointF(part_.topLeft()) + way, image_);
}

}  // namespace kovra::desktop
