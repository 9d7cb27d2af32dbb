#include "desktop/view/prompt_overlay.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "desktop/loop/texts.h"
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

QImage emptyImage(const ViewFrame& frame) {
  QImage image(std::max(1, static_cast<int>(std::lround(frame.width))),
               std::max(1, static_cast<int>(std::lround(frame.height))),
               QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  return image;
}

void append(const std::vector<AcDbObjectId>& ids, std::vector<dxf::RecordIndex>& records) {
  for (const AcDbObjectId& id : ids) records.push_back(id.index());
}

QTransform flat(const AcGeMatrix3d& m) {
  return {m(0, 0), m(1, 0), m(0, 1), m(1, 1), m(0, 3), m(1, 3)};
}

OverlayPicture::PieceAt piecesOf(const DisplayList& list,
                                 const std::vector<dxf::RecordIndex>& records) {
  return [&](std::size_t i) {
    const Chunk* chunk = nullptr;
    const Shown* shown = list.find(records[i], chunk);
    return shown != nullptr ? OverlayPicture::Piece{&chunk->shapes, shown->range, shown->box}
                            : OverlayPicture::Piece();
  };
}

/// Each curve and each text of its own.
OverlayPicture::PieceAt piecesOf(const Shapes& shapes) {
  return [&](std::size_t i) {
    const std::size_t curves = shapes.curves.size();
    ShapeRange range;
    if (i < curves)
      range = {static_cast<std::uint32_t>(i), 1, 0, 0};
    else
      range = {0, 0, static_cast<std::uint32_t>(i - curves), 1};
    return OverlayPicture::Piece{&shapes, range, shapes.boxOf(range)};
  };
}

}  // namespace

bool PromptOverlay::refresh(DisplayList* list, const ViewFrame& frame, bool hovers,
                            Clock::time_point deadline) {
  const arx::host::PromptView before = std::exchange(prompt_, arx::host::promptView());
  const bool banded = prompt_.base.has_value() && prompt_.takesPoints;
  bool changed = before.kind != prompt_.kind || before.base != prompt_.base ||
                 (banded && before.cursor != prompt_.cursor);
  changed = refreshDrag(list, frame, deadline) || changed;
  changed = refreshJig(frame, deadline) || changed;
  changed = refreshHovered(list, frame, hovers) || changed;
  return refreshSelection(list, frame, deadline) || changed;
}

bool PromptOverlay::refreshEntities(Entities& shown, std::vector<dxf::RecordIndex> records,
                                    const DisplayList* list, const ViewFrame& frame,
                                    const QTransform& place, const ShapePainter::Style& style,
                                    Clock::time_point deadline) const {
  if (list == nullptr || records.empty()) {
    const bool showed = !shown.records.empty();
    shown = {};
    return showed;
  }
  const ViewFrame frameBefore = shown.picture.frame();
  const QTransform placeBefore = shown.picture.place();
  if (records != shown.records || !shown.picture.moveTo(frame, place)) {
    shown.records = std::move(records);
    shown.picture.begin(frame, place, shown.records.size(), piecesOf(*list, shown.records));
  } else if (shown.picture.complete()) {
    return placeBefore != place || frameBefore != frame;
  }
  shown.picture.work(piecesOf(*list, shown.records), glyphs_, style, deadline);
  return true;
}

bool PromptOverlay::refreshSelection(const DisplayList* list, const ViewFrame& frame,
                                     Clock::time_point deadline) {
  std::vector<dxf::RecordIndex> records;
  append(prompt_.selected, records);
  append(prompt_.highlighted, records);
  ShapePainter::Style style;
  style.color = kSelected;
  style.dashed = true;
  return refreshEntities(selection_, std::move(records), list, frame, {}, style, deadline);
}

bool PromptOverlay::refreshDrag(const DisplayList* list, const ViewFrame& frame,
                                Clock::time_point deadline) {
  std::vector<dxf::RecordIndex> records;
  const arx::ActiveDrag* drag = prompt_.drag;
  const bool moved = drag != nullptr && drag->moved;
  if (moved) append(drag->entities, records);
  const QTransform place = moved ? flat(drag->place) : QTransform();
  return refreshEntities(drag_, std::move(records), list, frame, place, {}, deadline);
}

/// What a click would take. It is asked anew each time: what a prompt takes may change under a
/// cursor that rests.
bool PromptOverlay::refreshHovered(DisplayList* list, const ViewFrame& frame, bool hovers) {
  const std::optional<arx::host::Hovered> before = hovered_;
  hovered_ = hovers && list != nullptr ? arx::host::hovered() : std::nullopt;
  if (hovered_ == before && (!hovered_ || frame == hoverFrame_)) return false;
  hoverFrame_ = frame;
  const bool showed = !std::exchange(hover_, {}).isNull();
  if (!hovered_) return showed;
  const Shapes shapes = list->shapesOf(hovered_->entity.index(), hovered_->taken.index());
  const Box box = shapes.boxOf(shapes.all());
  if (box.isEmpty()) return showed;
  const QRectF all(0, 0, frame.width, frame.height);
  hoverPlace_ = frame.toPixels(box).adjusted(-4, -4, 4, 4).intersected(all).toAlignedRect();
  if (hoverPlace_.isEmpty()) return showed;
  const ViewFrame part = frame.partOf(hoverPlace_);
  hover_ = emptyImage(part);
  ShapePainter::Style style;
  style.color = kHovered;
  style.width = kHoveredWidth;
  ShapePainter painter(hover_, part, glyphs_, hover_.rect(), style);
  painter.paint(shapes, shapes.all(), box);
  return true;
}

/// The jig's entity is asked anew each time: it may have changed under a cursor that rests. If only
/// its place has, the picture is moved.
bool PromptOverlay::refreshJig(const ViewFrame& frame, Clock::time_point deadline) {
  Shapes shapes;
  if (prompt_.jigged != nullptr && prompt_.cursorKnown) {
    ShapeWriter writer(shapes);
    prompt_.jigged->worldDraw(&writer);
  }
  const std::size_t pieces = shapes.curves.size() + shapes.texts.size();
  if (pieces == 0) {
    const bool showed = !jig_.isNull();
    jigged_ = {};
    jig_ = {};
    return showed;
  }
  const std::optional<Spot> way = wayBetween(jigged_, shapes);
  const QTransform place = way ? QTransform::fromTranslate(way->x, way->y) : QTransform();
  const ViewFrame frameBefore = jig_.frame();
  const QTransform placeBefore = jig_.place();
  if (!way || !jig_.moveTo(frame, place)) {
    jigged_ = std::move(shapes);
    jig_.begin(frame, {}, pieces, piecesOf(jigged_));
  } else if (jig_.complete()) {
    return placeBefore != place || frameBefore != frame;
  }
  jig_.work(piecesOf(jigged_), glyphs_, {}, deadline);
  return true;
}

void PromptOverlay::paint(QPainter& painter, const ViewFrame& frame,
                          std::optional<QPointF> cursor) const {
  selection_.picture.paint(painter, frame);
  drag_.picture.paint(painter, frame);
  if (!hover_.isNull() && hoverFrame_ == frame) painter.drawImage(hoverPlace_.topLeft(), hover_);
  jig_.paint(painter, frame);
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
