#include "desktop/view/shape_painter.h"

#include <QPolygonF>
#include <algorithm>
#include <cmath>

namespace kovra::desktop {
namespace {

/// Texts that are lower can't be read and become strokes.
constexpr double kLowestLetters = 2.5;
/// Letters that are higher are painted as outlines: there can't be many.
constexpr double kHighestMask = 40;
constexpr std::size_t kBatch = 4096;
/// How far from a pixel's middle a chord may lie from its arc.
constexpr double kChordError = 0.15;

/// Cuts a line to a rectangle; false when it lies outside.
bool cutTo(const QRectF& room, QPointF& from, QPointF& to) {
  double first = 0;
  double last = 1;
  const QPointF way = to - from;
  const auto cut = [&](double start, double along, double low, double high) {
    if (along == 0) return start >= low && start <= high;
    const double one = (low - start) / along;
    const double other = (high - start) / along;
    first = std::max(first, std::min(one, other));
    last = std::min(last, std::max(one, other));
    return first <= last;
  };
  if (!cut(from.x(), way.x(), room.left(), room.right()) ||
      !cut(from.y(), way.y(), room.top(), room.bottom()))
    return false;
  to = from + way * last;
  from += way * first;
  return true;
}

}  // namespace

ShapePainter::ShapePainter(QImage& image, const ViewFrame& frame, GlyphMasks& glyphs,
                           const QRect& clip, const Style& style)
    : frame_(frame),
      glyphs_(glyphs),
      clip_(clip.intersected(image.rect())),
      near_(QRectF(clip_).adjusted(-4, -4, 4, 4)),
      style_(style),
      worldToPixels_(frame.scale, 0, 0, -frame.scale,
                     frame.width / 2 - frame.center.x * frame.scale,
                     frame.height / 2 + frame.center.y * frame.scale),
      bits_(image.bits()),
      bytesPerLine_(image.bytesPerLine()),
      painter_(&image) {
  toPixels_ = worldToPixels_;
  painter_.setClipRect(clip_);
  painter_.setRenderHint(QPainter::Antialiasing, style.smooth);
}

ShapePainter::~ShapePainter() {
  flush();
}

void ShapePainter::paint(const Shapes& shapes, const ShapeRange& range, const Box& box,
                         const QTransform& place) {
  toPixels_ = place * worldToPixels_;
  Box placed;
  for (const QPointF corner : {QPointF(box.left, box.bottom), QPointF(box.left, box.top),
                               QPointF(box.right, box.bottom), QPointF(box.right, box.top)}) {
    const QPointF at = place.map(corner);
    placed.add(Spot{at.x(), at.y()});
  }
  paint(shapes, range, placed);
  toPixels_ = worldToPixels_;
}

void ShapePainter::paint(const Shapes& shapes, const ShapeRange& range, const Box& box) {
  if (box.isEmpty()) return;
  const QRectF pixels = frame_.toPixels(box);
  const QRectF padded = pixels.adjusted(-1, -1, 1, 1);
  if (!padded.intersects(near_)) return;
  const bool tiny = pixels.width() < 1 && pixels.height() < 1;
  const Curve* first = range.curves > 0 ? &shapes.curves[range.firstCurve] : nullptr;
  if (tiny) {
    dot(pixels.center(), first != nullptr ? first->color : shapes.texts[range.firstText].color);
    return;
  }
  for (std::uint32_t i = 0; i < range.curves; ++i) curve(shapes, first[i]);
  for (std::uint32_t i = 0; i < range.texts; ++i) text(shapes, shapes.texts[range.firstText + i]);
}

void ShapePainter::curve(const Shapes& shapes, const Curve& curve) {
  const Spot* points = &shapes.points[curve.firstPoint];
  const QRgb color = style_.color.value_or(curve.color);
  if (curve.kind == CurveKind::kArc) return arc(points, color);
  if (curve.kind == CurveKind::kFace) return face(points, curve.points, color);
  chain(points, curve.points, color);
}

void ShapePainter::chain(const Spot* points, std::uint32_t count, QRgb color) {
  QPointF from = pixel(points[0]);
  if (count == 1) return dot(from, color);
  for (std::uint32_t i = 1; i < count; ++i) {
    const QPointF to = pixel(points[i]);
    segment(from, to, color);
    from = to;
  }
}

void ShapePainter::face(const Spot* points, std::uint32_t count, QRgb color) {
  flush();
  QPolygonF polygon;
  for (std::uint32_t i = 0; i < count; ++i) polygon << pixel(points[i]);
  // Coordinates far outside would have no digits left in the rasterizer.
  if (!near_.contains(polygon.boundingRect())) polygon = polygon.intersected(QPolygonF(near_));
  painter_.setPen(Qt::NoPen);
  painter_.setBrush(QColor::fromRgb(color));
  painter_.drawPolygon(polygon);
}

void ShapePainter::arc(const Spot* points, QRgb color) {
  constexpr int kMostChords = 4096;
  const double sweep = points[3].x;
  const auto at = [&](double angle) {
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    return pixel({points[0].x + points[1].x * c + points[2].x * s,
                  points[0].y + points[1].y * c + points[2].y * s});
  };
  const double radius =
      std::max(std::hypot(points[1].x, points[1].y), std::hypot(points[2].x, points[2].y)) *
      std::hypot(toPixels_.m11(), toPixels_.m12());
  const double step = 2 * std::acos(1 - std::min(0.5, kChordError / std::max(radius, 1e-9)));
  const int chords = std::clamp(static_cast<int>(std::fabs(sweep) / step) + 1, 2, kMostChords);
  QPointF from = at(0);
  for (int i = 1; i <= chords; ++i) {
    const QPointF to = at(sweep * i / chords);
    segment(from, to, color);
    from = to;
  }
}

void ShapePainter::segment(QPointF from, QPointF to, QRgb color) {
  if (!cutTo(near_, from, to)) return;
  if (color != lineColor_ || lines_.size() >= kBatch) flush();
  lineColor_ = color;
  lines_.emplace_back(from, to);
}

void ShapePainter::flush() {
  if (lines_.empty()) return;
  QPen pen(QColor::fromRgb(lineColor_), style_.width);
  pen.setCosmetic(true);
  if (style_.dashed) pen.setDashPattern({4, 3});
  painter_.setPen(pen);
  painter_.drawLines(lines_.data(), static_cast<int>(lines_.size()));
  lines_.clear();
}

void ShapePainter::dot(QPointF at, QRgb color) {
  const QPoint place(static_cast<int>(std::floor(at.x())), static_cast<int>(std::floor(at.y())));
  if (!clip_.contains(place)) return;
  uchar* line = bits_ + place.y() * bytesPerLine_;
  reinterpret_cast<QRgb*>(line)[place.x()] = style_.color.value_or(color);
}

void ShapePainter::text(const Shapes& shapes, const TextLine& line) {
  const QTransform cell =
      QTransform(line.along.x, line.along.y, line.up.x, line.up.y, line.origin.x, line.origin.y) *
      toPixels_;
  const QRectF box = cell.mapRect(QRectF(0, 0, static_cast<double>(line.advance), 1));
  if (!box.adjusted(-1, -1, 1, 1).intersects(near_)) return;
  const QRgb color = style_.color.value_or(line.color);
  const double high = std::hypot(cell.m21(), cell.m22());
  const double wide = std::hypot(cell.m11(), cell.m12());
  if (std::min(high, wide) < kLowestLetters || !style_.letters)
    return segment(cell.map(QPointF(0, 0.5)),
                   cell.map(QPointF(static_cast<double>(line.advance), 0.5)), color);
  letters(shapes.text(line), cell, color);
}

void ShapePainter::letters(std::wstring_view characters, const QTransform& toPixels, QRgb color) {
  LineRoom room;
  arx::TextCharacter character;
  for (arx::TextCharacters all(characters); all.next(character);) {
    const LineRoom its = glyphs_.roomFor(character);
    room = {room.below || its.below, room.above || its.above};
  }
  double x = 0;
  for (arx::TextCharacters all(characters); all.next(character); x += character.advance) {
    const QTransform place = QTransform::fromTranslate(x, 0) * toPixels;
    if (!place.mapRect(QRectF(0, 0, character.advance, 1)).intersects(near_)) continue;
    letter(character, room, place, color);
    strokes(character, place, color);
  }
}

void ShapePainter::letter(const arx::TextCharacter& character, LineRoom room,
                          const QTransform& toPixels, QRgb color) {
  const double size = std::max({std::fabs(toPixels.m11()), std::fabs(toPixels.m12()),
                                std::fabs(toPixels.m21()), std::fabs(toPixels.m22())});
  if (size > kHighestMask) {
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.fillPath(toPixels.map(glyphs_.outline(character, room)), QColor::fromRgb(color));
    painter_.setRenderHint(QPainter::Antialiasing, style_.smooth);
    return;
  }
  // Upright texts have their base line on a whole pixel.
  const auto quarters = [](double value, bool whole) {
    return whole ? std::round(value) : std::floor(value * 4) / 4;
  };
  const double x = quarters(toPixels.dx(), std::fabs(toPixels.m11()) < 1e-6);
  const double y = quarters(toPixels.dy(), std::fabs(toPixels.m12()) < 1e-6);
  const double left = std::floor(x);
  const double top = std::floor(y);
  const QTransform within(toPixels.m11(), toPixels.m12(), toPixels.m21(), toPixels.m22(), x - left,
                          y - top);
  cover(glyphs_.mask(character, room, within), static_cast<int>(left), static_cast<int>(top),
        color);
}

void ShapePainter::cover(const GlyphMask& mask, int x, int y, QRgb color) {
  const QRect part = QRect(x + mask.left, y + mask.top, mask.width, mask.height) & clip_;
  for (int row = part.top(); row <= part.bottom(); ++row) {
    auto* line = reinterpret_cast<QRgb*>(bits_ + row * bytesPerLine_);
    const std::uint8_t* cover = &mask.cover[static_cast<std::size_t>(
        (row - y - mask.top) * mask.width + part.left() - x - mask.left)];
    for (int column = part.left(); column <= part.right(); ++column, ++cover) {
      const unsigned much = *cover;
      if (much == 0) continue;
      const QRgb below = line[column];
      const auto mix = [&](unsigned shift) {
        const unsigned one = color >> shift & 255U;
        const unsigned other = below >> shift & 255U;
        return (one * much + other * (255 - much) + 127) / 255 << shift;
      };
      line[column] = mix(0) | mix(8) | mix(16) | mix(24);
    }
  }
}

/// Lines under, over and through a letter, on the edges and in the middle of its cell.
void ShapePainter::strokes(const arx::TextCharacter& character, const QTransform& toPixels,
                           QRgb color) {
  const std::pair<bool, double> all[] = {
      {character.under, 0}, {character.over, 1}, {character.through, 0.5}};
  for (const auto& [drawn, y] : all)
    if (drawn)
      segment(toPixels.map(QPointF(0, y)), toPixels.map(QPointF(character.advance, y)), color);
}

}  // namespace kovra::desktop
