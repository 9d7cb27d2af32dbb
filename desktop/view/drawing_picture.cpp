#include "desktop/view/drawing_picture.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "desktop/view/shape_painter.h"

namespace kovra::desktop {
namespace {

/// With more entities in sight lines have hard edges, which takes a fraction of the time.
constexpr std::size_t kMostSmooth = 8000;
/// Entities between two looks at the clock.
constexpr std::size_t kStride = 64;

/// Whether that many entities or more are in a box.
bool hasMany(const DisplayList& list, const Box& box, std::size_t many) {
  std::size_t count = 0;
  for (const Chunk& chunk : list.chunks()) {
    if (!chunk.box.touches(box)) continue;
    for (const Shown& shown : chunk.entities)
      if (shown.box.touches(box) && ++count >= many) return true;
  }
  return false;
}

bool sameScale(const ViewFrame& a, const ViewFrame& b) {
  constexpr double kShare = 1e-9;
  return std::fabs(a.scale - b.scale) <= kShare * a.scale &&
         std::lround(a.width) == std::lround(b.width) &&
         std::lround(a.height) == std::lround(b.height);
}

/// How far the world moves in the picture; nothing unless by whole pixels.
std::optional<QPoint> wholePixels(const ViewFrame& from, const ViewFrame& to) {
  constexpr double kBlur = 0.02;
  const double x = (from.center.x - to.center.x) * from.scale;
  const double y = (to.center.y - from.center.y) * from.scale;
  if (!(std::fabs(x) < from.width) || !(std::fabs(y) < from.height)) return std::nullopt;
  if (std::fabs(x - std::round(x)) > kBlur || std::fabs(y - std::round(y)) > kBlur)
    return std::nullopt;
  return QPoint(static_cast<int>(std::lround(x)), static_cast<int>(std::lround(y)));
}

}  // namespace

DrawingPicture::Task DrawingPicture::wholeTask(const QRect& clip) const {
  return {clip, 0, list_ != nullptr ? list_->chunks().size() : 0};
}

DrawingPicture::Layer DrawingPicture::newLayer(QImage image) const {
  Layer layer;
  layer.frame = frame_;
  const QSize size(std::max(1, static_cast<int>(std::lround(frame_.width))),
                   std::max(1, static_cast<int>(std::lround(frame_.height))));
  layer.image = image.size() == size ? std::move(image) : QImage(size, QImage::Format_RGB32);
  layer.smooth =
      list_ == nullptr || !hasMany(*list_, frame_.toWorld(QRectF(layer.image.rect())), kMostSmooth);
  layer.tasks.push_back(wholeTask(layer.image.rect()));
  return layer;
}

void DrawingPicture::show(const DisplayList* list) {
  list_ = list;
  front_ = newLayer(std::exchange(front_.image, {}));
  front_.image.fill(kGround);
  next_.reset();
}

void DrawingPicture::restart() {
  next_ = newLayer();
}

void DrawingPicture::setFrame(const ViewFrame& frame) {
  const ViewFrame before = frame_;
  frame_ = frame;
  if (front_.image.isNull()) return show(list_);
  const auto way = sameScale(before, frame) ? wholePixels(before, frame) : std::nullopt;
  if (way && way->isNull()) return;
  if (!way) return restart();
  if (next_) shift(*next_, frame);
  if (sameScale(front_.frame, frame)) shift(front_, frame);
}

/// Moves what is painted; the strips that come into sight are to be painted.
void DrawingPicture::shift(Layer& layer, const ViewFrame& to) const {
  const auto way = wholePixels(layer.frame, to);
  layer.frame = to;
  if (!way) {
    layer.tasks.assign(1, wholeTask(layer.image.rect()));
    return;
  }
  QImage moved(layer.image.size(), layer.image.format());
  moved.fill(kGround);
  QPainter painter(&moved);
  painter.setCompositionMode(QPainter::CompositionMode_Source);
  painter.drawImage(*way, layer.image);
  painter.end();
  layer.image = std::move(moved);
  const QRect all = layer.image.rect();
  for (Task& task : layer.tasks) task.clip = task.clip.translated(*way);
  // A task that began with the whole picture goes on with what has come into sight.
  const QRegion strips = QRegion(all) - QRegion(all.translated(*way));
  for (const QRect& strip : strips) layer.tasks.push_back(wholeTask(strip));
  std::erase_if(layer.tasks, [&](const Task& task) { return !task.clip.intersects(all); });
}

void DrawingPicture::addDamage(Layer& layer, const DisplayList::Damage& damage) const {
  for (const std::size_t chunk : damage.chunks) {
    Task task{layer.image.rect(), chunk, chunk + 1};
    task.clear = false;
    layer.tasks.push_back(task);
  }
  for (const Box& box : damage.boxes) {
    const QRectF pixels = layer.frame.toPixels(box).intersected(QRectF(layer.image.rect()));
    const QRect clip = pixels.toAlignedRect().adjusted(-2, -2, 2, 2) & layer.image.rect();
    if (!clip.isEmpty()) layer.tasks.push_back(wholeTask(clip));
  }
}

void DrawingPicture::damage(const DisplayList::Damage& damage) {
  if (damage.all) {
    if (next_ || paintedPixels_ > 0)
      restart();
    else
      show(list_);
    return;
  }
  addDamage(front_, damage);
  if (next_) addDamage(*next_, damage);
}

bool DrawingPicture::work(Clock::time_point deadline) {
  if (list_ == nullptr || complete()) return false;
  if (!next_) return paintTasks(front_, deadline);
  // What is seen stays up to date only as far as it can last.
  const bool painted = paintTasks(*next_, deadline);
  if (!next_->tasks.empty()) return false;
  front_ = std::move(*next_);
  next_.reset();
  return painted;
}

bool DrawingPicture::paintTasks(Layer& layer, Clock::time_point deadline) {
  bool painted = false;
  while (!layer.tasks.empty()) {
    painted = true;
    if (!paintTask(layer, layer.tasks.front(), deadline)) return true;
    layer.tasks.pop_front();
  }
  return painted;
}

/// False when the time was over before.
bool DrawingPicture::paintTask(Layer& layer, Task& task, Clock::time_point deadline) {
  const QRect clip = task.clip & layer.image.rect();
  const Box seen = layer.frame.toWorld(QRectF(clip).adjusted(-2, -2, 2, 2));
  if (!task.begun && task.clear) {
    QPainter(&layer.image).fillRect(clip, QColor::fromRgb(kGround));
    paintedPixels_ +=
        static_cast<std::size_t>(clip.width()) * static_cast<std::size_t>(clip.height());
  }
  ShapePainter::Style style;
  style.smooth = layer.smooth;
  ShapePainter painter(layer.image, layer.frame, glyphs_, clip, style);
  if (!task.begun && task.clear)
    for (const Shown& shown : list_->sample().entities)
      painter.paint(list_->sample().shapes, shown.range, shown.box);
  task.begun = true;
  const std::vector<Chunk>& chunks = list_->chunks();
  for (; task.chunk < std::min(task.endChunk, chunks.size()); ++task.chunk, task.entity = 0) {
    const Chunk& chunk = chunks[task.chunk];
    if (!chunk.box.touches(seen)) continue;
    while (task.entity < chunk.entities.size()) {
      const Shown& shown = chunk.entities[task.entity++];
      if (shown.box.touches(seen)) painter.paint(chunk.shapes, shown.range, shown.box);
      if (task.entity % kStride == 0 && Clock::now() >= deadline) return false;
    }
  }
  return true;
}

void DrawingPicture::paint(QPainter& painter) const {
  const QRectF all(0, 0, frame_.width, frame_.height);
  if (front_.image.isNull()) return painter.fillRect(all, QColor::fromRgb(kGround));
  const QRectF place = frame_.toPixels(front_.frame.toWorld(QRectF(front_.image.rect())));
  if (!place.contains(all)) painter.fillRect(all, QColor::fromRgb(kGround));
  if (sameScale(front_.frame, frame_))
    painter.drawImage(place.topLeft().toPoint(), front_.image);
  else
    painter.drawImage(place, front_.image, QRectF(front_.image.rect()));
}

}  // namespace kovra::desktop
