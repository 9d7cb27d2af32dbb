#include "desktop/view/prompt_overlay.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "desktop/loop/texts.h"
#include "desktop/view/shape_painter.h"
#include "platform/arx/database/entity.h"
#include "platform/arx/editor/picks/drag.h"

namespace kovra::desktop {
namespace {

constexpr QRgb kSelected = 0xff58a6ff;
constexpr QRgb kHovered = 0xff9bd1ff;
constexpr double kHoveredWidth = 2;
constexpr QRgb kWindowColor = 0xff4f8ff7;
constexpr QRgb kCrossingColor = 0xff4fc36a;
constexpr QRgb kSnapColor = 0xff7ee02c;
constexpr QRgb kTipGround = 0xfff4f1d8;
constexpr QRgb kTipInk = 0xff202020;
constexpr QRgb kBandColor = 0xffe0c46c;
/// With more entities in a preview their texts are strokes.
constexpr std::size_t kMostLetters = 1500;

QImage emptyImage(const ViewFrame& frame) {
  QImage image(std::max(1, static_cast<int>(std::lround(frame.width))),
               std::max(1, static_cast<int>(std::lround(frame.height))),
               QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  return image;
}

bool sameFrame(const ViewFrame& a, const ViewFrame& b) {
  return a.center.x == b.center.x && a.center.y == b.center.y && a.scale == b.scale &&
         a.width == b.width && a.height == b.height;
}

/// What lies in a rectangle of a picture as a picture of its own.
ViewFrame partOf(const ViewFrame& frame, const QRect& place) {
  return {frame.toWorld(QRectF(place).center()), frame.scale, static_cast<double>(place.width()),
          static_cast<double>(place.height())};
}

void append(const std::vector<AcDbObjectId>& ids, std::vector<dxf::RecordIndex>& records) {
  for (const AcDbObjectId& id : ids) records.push_back(id.index());
}

QTransform flat(const AcGeMatrix3d& m) {
  return {m(0, 0), m(1, 0), m(0, 1), m(1, 1), m(0, 3), m(1, 3)};
}

bool isShift(const QTransform& t) {
  constexpr double kNothing = 1e-12;
  return std::fabs(t.m11() - 1) < kNothing && std::fabs(t.m22() - 1) < kNothing &&
         std::fabs(t.m12()) < kNothing && std::fabs(t.m21()) < kNothing;
}

}  // namespace

bool PromptOverlay::Picture::is(const std::vector<dxf::RecordIndex>& those,
                                const ViewFrame& in) const {
  return records == those && (records.empty() || (sameFrame(frame, in) && !image.isNull()));
}

bool PromptOverlay::refresh(DisplayList* list, const ViewFrame& frame, bool hovers) {
  const arx::host::PromptView before = std::exchange(prompt_, arx::host::promptView());
  const bool banded = prompt_.base.has_value() && prompt_.takesPoints;
  bool changed = before.kind != prompt_.kind || before.base != prompt_.base ||
                 (banded && before.cursor != prompt_.cursor);
  changed = refreshSelection(list, frame) || changed;
  changed = refreshDrag(list, frame) || changed;
  changed = refreshHovered(list, frame, hovers) || changed;
  return refreshJig(frame) || changed;
}

bool PromptOverlay::refreshSelection(const DisplayList* list, const ViewFrame& frame) {
  std::vector<dxf::RecordIndex> records;
  append(prompt_.selected, records);
  append(prompt_.highlighted, records);
  if (selection_.is(records, frame)) return false;
  selection_ = {std::move(records), frame, {}};
  if (list != nullptr && !selection_.records.empty())
    selection_.image = picture(*list, selection_.records, frame, {}, true);
  return true;
}

/// Few entities are painted where they are now. A picture of many is moved as long as they are only
/// shifted; it shows more than the view, for what comes into sight.
bool PromptOverlay::refreshDrag(const DisplayList* list, const ViewFrame& frame) {
  std::vector<dxf::RecordIndex> records;
  const arx::ActiveDrag* drag = prompt_.drag;
  const bool shown = list != nullptr && drag != nullptr && drag->moved;
  if (shown) append(drag->entities, records);
  if (!shown && drag_.records.empty()) return false;
  const QTransform place = shown ? flat(drag->place) : QTransform();
  const bool stays = place == dragPlace_;
  dragPlace_ = place;
  if (stays && drag_.is(records, frame)) return false;
  const bool moves = records.size() >= kMostLetters && isShift(place);
  const QPointF shift(place.dx() * frame.scale, -place.dy() * frame.scale);
  dragShift_ = moves ? shift - QPointF(frame.width / 2, frame.height / 2) : QPointF();
  if (moves && drag_.is(records, frame)) return true;
  drag_ = {std::move(records), frame, {}};
  ViewFrame wide = frame;
  wide.width *= 2;
  wide.height *= 2;
  if (moves) drag_.image = picture(*list, drag_.records, wide, {}, false);
  if (shown && !moves) drag_.image = picture(*list, drag_.records, frame, place, false);
  return true;
}

/// What a click would take. It is asked anew each time: what a prompt takes may change under a
/// cursor that rests.
bool PromptOverlay::refreshHovered(DisplayList* list, const ViewFrame& frame, bool hovers) {
  const std::optional<arx::host::Hovered> before = hovered_;
  hovered_ = hovers && list != nullptr ? arx::host::hovered() : std::nullopt;
  if (hovered_ == before && (!hovered_ || sameFrame(frame, hoverFrame_))) return false;
  hoverFrame_ = frame;
  const bool showed = !std::exchange(hover_, {}).isNull();
  if (!hovered_) return showed;
  const Shapes shapes = list->shapesOf(hovered_->entity.index(), hovered_->taken.index());
  const Box box = shapes.boxOf(shapes.all());
  if (box.isEmpty()) return showed;
  const QRectF all(0, 0, frame.width, frame.height);
  hoverPlace_ = frame.toPixels(box).adjusted(-4, -4, 4, 4).intersected(all).toAlignedRect();
  if (hoverPlace_.isEmpty()) return showed;
  const ViewFrame part = partOf(frame, hoverPlace_);
  hover_ = emptyImage(part);
  ShapePainter::Style style;
  style.color = kHovered;
  style.width = kHoveredWidth;
  ShapePainter painter(hover_, part, glyphs_, hover_.rect(), style);
  painter.paint(shapes, shapes.all(), box);
  return true;
}

bool PromptOverlay::refreshJig(const ViewFrame& frame) {
  const Shapes before = std::exchange(jigged_, {});
  const bool had = !jig_.isNull();
  if (prompt_.jigged != nullptr && prompt_.cursorKnown) {
    ShapeWriter writer(jigged_);
    prompt_.jigged->worldDraw(&writer);
  }
  const bool shows = !jigged_.curves.empty() || !jigged_.texts.empty();
  if (shows == had && jigged_ == before && sameFrame(frame, jigFrame_)) return false;
  jigFrame_ = frame;
  jig_ = {};
  if (!shows) return had;
  jig_ = emptyImage(frame);
  ShapePainter::Style style;
  style.smooth = style.letters = jigged_.texts.size() < kMostLetters;
  ShapePainter painter(jig_, frame, glyphs_, jig_.rect(), style);
  painter.paint(jigged_, jigged_.all(), jigged_.boxOf(jigged_.all()));
  return true;
}

QImage PromptOverlay::picture(const DisplayList& list, const std::vector<dxf::RecordIndex>& records,
                              const ViewFrame& frame, const QTransform& place,
                              bool selected) const {
  QImage image = emptyImage(frame);
  ShapePainter::Style style;
  style.smooth = style.letters = records.size() < kMostLetters;
  if (selected) style.color = kSelected;
  style.dashed = selected && records.size() < kMostLetters;
  ShapePainter painter(image, frame, glyphs_, image.rect(), style);
  for (const dxf::RecordIndex record : records) {
    const Chunk* chunk = nullptr;
    if (const Shown* shown = list.find(record, chunk); shown != nullptr)
      painter.paint(chunk->shapes, shown->range, shown->box, place);
  }
  return image;
}

void PromptOverlay::paint(QPainter& painter, const ViewFrame& frame,
                          std::optional<QPointF> cursor) const {
  const auto show = [&](const Picture& shown, QPointF shift) {
    if (!shown.image.isNull() && sameFrame(shown.frame, frame))
      painter.drawImage(shift, shown.image);
  };
  show(selection_, {});
  show(drag_, dragShift_);
  if (!hover_.isNull() && sameFrame(hoverFrame_, frame))
    painter.drawImage(hoverPlace_.topLeft(), hover_);
  if (!jig_.isNull()) painter.drawImage(QPointF(0, 0), jig_);
  if (!prompt_.base || !prompt_.takesPoints || !cursor) return;
  const QPointF base = frame.toPixel({prompt_.base->x, prompt_.base->y});
  if (prompt_.corner) return paintBox(painter, QRectF(base, *cursor), cursor->x() < base.x());
  painter.setPen(QPen(QColor::fromRgb(kBandColor), 1, Qt::DashLine));
  painter.drawLine(base, *cursor);
}

void paintBox(QPainter& painter, const QRectF& box, bool crossing) {
  const QColor color = QColor::fromRgb(crossing ? kCrossingColor : kWindowColor);
  QColor inside = color;
  inside.setAlpha(50);
  painter.setPen(QPen(color, 1, crossing ? Qt::DashLine : Qt::SolidLine));
  painter.setBrush(inside);
  painter.drawRect(box.normalized());
  painter.setBrush(Qt::NoBrush);
}

namespace {

/// A name at the upper right of a mark, or at its left where there is no room.
void paintTip(QPainter& painter, QPointF at, const QString& name, double pixel,
              const QRectF& room) {
  QFont font = painter.font();
  font.setPixelSize(static_cast<int>(std::lround(12 * pixel)));
  painter.setFont(font);
  const QFontMetricsF metrics(font);
  const QSizeF size(metrics.horizontalAdvance(name) + 8 * pixel, metrics.height() + 2 * pixel);
  const double away = 12 * pixel;
  QRectF box(at + QPointF(away, -away - size.height()), size);
  if (box.right() > room.right()) box.moveRight(at.x() - away);
  if (box.top() < room.top()) box.moveTop(at.y() + away);
  painter.fillRect(box, QColor::fromRgb(kTipGround));
  painter.setPen(QColor::fromRgb(kTipInk));
  painter.drawText(box, Qt::AlignCenter, name);
}

}  // namespace

void paintSnap(QPainter& painter, QPointF at, SnapKind kind, double pixel, const QRectF& room) {
  const double size = 6 * pixel;
  painter.setPen(QPen(QColor::fromRgb(kSnapColor), 2 * pixel));
  painter.setBrush(Qt::NoBrush);
  const QRectF box(at.x() - size, at.y() - size, 2 * size, 2 * size);
  switch (kind) {
    case SnapKind::kEnd:
      painter.drawRect(box);
      break;
    case SnapKind::kInsertion:
      painter.drawRect(QRectF(box.topLeft(), at + QPointF(size / 3, size / 3)));
      painter.drawRect(QRectF(at - QPointF(size / 3, size / 3), box.bottomRight()));
      break;
    case SnapKind::kIntersection:
      painter.drawLine(box.topLeft(), box.bottomRight());
      painter.drawLine(box.topRight(), box.bottomLeft());
      break;
  }
  paintTip(painter, at, toQt(nameOf(kind)), pixel, room);
}

}  // namespace kovra::desktop
