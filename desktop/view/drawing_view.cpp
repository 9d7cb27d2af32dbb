#include "desktop/view/drawing_view.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "desktop/loop/input_queue.h"
#include "desktop/view/drawing_picture.h"
#include "desktop/view/pointer_acts.h"
#include "desktop/view/prompt_overlay.h"
#include "desktop/view/shown_drawings.h"
#include "platform/arx/editor/documents/view.h"

namespace kovra::desktop {
namespace {

using std::chrono::milliseconds;

/// What a refresh takes at most, so that the user's next act comes soon.
constexpr milliseconds kSlice{8};
constexpr double kWheelStep = 1.25;
constexpr double kExtentsMargin = 1.04;
constexpr double kKeyPan = 0.125;  ///< share of the window
/// Pixels that a press may move and still be a click.
constexpr int kClickReach = 4;
constexpr double kSmallestScale = 1e-12;
constexpr double kLargestScale = 1e12;

}  // namespace

class DrawingView::Shown {
 public:
  explicit Shown(DrawingView& view)
      : view_(view),
        drawings_([this](const DisplayList& list) { forget(list); }),
        acts_(drawings_) {}

  void refresh();
  void setFrame(const ViewFrame& frame);
  void resized();
  void paint(QPainter& painter) const;

  ViewFrame frame;  ///< in pixels of the widget
  bool frameKnown = false;
  std::optional<QPoint> cursor;      ///< of the mouse
  std::optional<QPoint> pressedAt;   ///< the left button, or the first click of a box
  std::optional<QPoint> pannedFrom;  ///< the middle button
  std::optional<Spot> boxFrom;       ///< first corner of a box that is being drawn, in the world
  bool zoomWindow = false;
  std::function<bool(QKeyEvent*)> keyHandler;

  PointerActs& acts() { return acts_; }
  const DrawingPicture& picture() const { return picture_; }
  bool complete() const {
    return list_ == nullptr || (list_->complete() && picture_.complete() && overlay_.complete());
  }
  DisplayList* list() { return list_; }

 private:
  void forget(const DisplayList& list);
  void follow(const AcApDocument& document);
  double ratio() const { return view_.devicePixelRatioF(); }
  void wakeSoon();
  void paintCursor(QPainter& painter) const;

  DrawingView& view_;
  ShownDrawings drawings_;
  PointerActs acts_;
  GlyphMasks glyphs_;
  DrawingPicture picture_{glyphs_};
  PromptOverlay overlay_{glyphs_};
  DisplayList* list_ = nullptr;
  std::uint32_t shownSerial_ = 0;
};

/// Events may come before the next refresh, in a box that asks about another drawing.
void DrawingView::Shown::forget(const DisplayList& list) {
  if (list_ != &list) return;
  list_ = nullptr;
  shownSerial_ = 0;
  overlay_.forget();
  picture_.show(nullptr);
  view_.update();
}

/// The editor's view as the widget's frame, unless they are one already.
void DrawingView::Shown::follow(const AcApDocument& document) {
  const arx::View view = arx::currentView(document);
  const double scale = frame.height / view.height;
  const bool same = frameKnown && frame.center.x == view.center.x &&
                    frame.center.y == view.center.y &&
                    std::fabs(scale - frame.scale) <= 1e-12 * scale;
  if (same) return;
  frame.center = {view.center.x, view.center.y};
  frame.scale = scale;
  frameKnown = true;
}

void DrawingView::Shown::refresh() {
  acts_.refresh();
  if (!acts_.selects() && !zoomWindow) boxFrom.reset();
  AcApDocument* document = drawings_.current();
  const bool first = document != nullptr && document->serial() != shownSerial_;
  DisplayList* list = drawings_.currentList();
  if (document != nullptr) follow(*document);
  const ViewFrame pixels = frame.inPixels(ratio());
  bool changed = first || list != list_;
  if (changed) {
    list_ = list;
    shownSerial_ = document != nullptr ? document->serial() : 0;
    overlay_.forget();
    picture_.setFrame(pixels);
    picture_.show(list_);
  }
  picture_.setFrame(pixels);
  if (list_ != nullptr) {
    const DisplayList::Damage damage = list_->work(Clock::now() + kSlice);
    if (damage.any()) overlay_.forget();
    picture_.damage(damage);
    if (list_->listed()) changed = picture_.work(Clock::now() + kSlice) || changed;
  }
  const bool hovers = cursor && !boxFrom && !pannedFrom && !zoomWindow;
  changed = overlay_.refresh(list_, pixels, hovers, Clock::now() + kSlice) || changed;
  changed = acts_.takeSnapChanged() || changed;
  if (changed) view_.update();
  if (!complete()) wakeSoon();
}

/// Lets the event loop return, so that the next refresh goes on.
void DrawingView::Shown::wakeSoon() {
  QTimer::singleShot(0, &view_, [] {});
}

/// The user moves the view: it is seen at once, and the editor is told.
void DrawingView::Shown::setFrame(const ViewFrame& to) {
  if (!(to.scale > kSmallestScale && to.scale < kLargestScale)) return;
  frame = to;
  const arx::View view{{to.center.x, to.center.y, 0}, to.height / to.scale};
  inputQueue().add([this, view] {
    if (const AcApDocument* document = drawings_.current()) arx::setView(*document, view);
  });
  picture_.setFrame(frame.inPixels(ratio()));
  view_.update();
}

/// The scale stays, and the middle of the window.
void DrawingView::Shown::resized() {
  const double scale = frame.scale;
  frame.width = view_.width();
  frame.height = view_.height();
  const arx::WindowSize size{view_.width(), view_.height()};
  const bool known = frameKnown;
  inputQueue().add([this, size, scale, known] {
    AcApDocument* document = drawings_.current();
    arx::setWindowSize(size);
    acts_.resizeWindow(size);
    if (document == nullptr || !known) return;
    arx::View view = arx::currentView(*document);
    view.height = size.height / scale;
    arx::setView(*document, view);
  });
}

void DrawingView::Shown::paint(QPainter& painter) const {
  const double pixels = ratio();
  painter.scale(1 / pixels, 1 / pixels);
  picture_.paint(painter);
  std::optional<QPointF> end;
  const ViewFrame shown = frame.inPixels(pixels);
  const arx::host::PromptView& prompt = overlay_.prompt();
  if (prompt.cursorKnown) end = shown.toPixel({prompt.cursor.x, prompt.cursor.y});
  overlay_.paint(painter, shown, end);
  if (boxFrom && cursor) {
    const QRectF box(shown.toPixel(*boxFrom), QPointF(*cursor) * pixels);
    paintBox(painter, box, !zoomWindow && box.width() < 0);
  }
  if (const auto& snap = acts_.snap(); snap)
    paintSnap(painter, shown.toPixel({snap->place.x, snap->place.y}), snap->kind, pixels,
              QRectF(0, 0, shown.width, shown.height));
  paintCursor(painter);
}

/// Lines that cross at the cursor where a point is asked for, the pick box where objects are.
void DrawingView::Shown::paintCursor(QPainter& painter) const {
  using Kind = arx::host::WaitKind;
  if (!cursor || pannedFrom) return;
  const double pixels = ratio();
  const QPointF at = (QPointF(*cursor) + QPointF(0.5, 0.5)) * pixels;
  const Kind kind = overlay_.prompt().kind;
  const bool picks = kind == Kind::kPick || kind == Kind::kSelection || kind == Kind::kIdle;
  const bool points = kind == Kind::kPoint || kind == Kind::kDrag || kind == Kind::kIdle ||
                      kind == Kind::kNone || kind == Kind::kString;
  const double box = picks ? acts_.pickBox() * pixels : 0;
  constexpr double kLong = 40;
  painter.setPen(QPen(Qt::white, pixels));
  if (points) {
    const double length = kLong * pixels;
    painter.drawLine(at - QPointF(length, 0), at - QPointF(box, 0));
    painter.drawLine(at + QPointF(box, 0), at + QPointF(length, 0));
    painter.drawLine(at - QPointF(0, length), at - QPointF(0, box));
    painter.drawLine(at + QPointF(0, box), at + QPointF(0, length));
  }
  if (picks) painter.drawRect(QRectF(at - QPointF(box, box), at + QPointF(box, box)));
}

DrawingView::DrawingView(QWidget* parent)
    : QWidget(parent), shown_(std::make_unique<Shown>(*this)) {
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setCursor(Qt::BlankCursor);
  setMinimumSize(120, 80);
}

DrawingView::~DrawingView() = default;

void DrawingView::refresh() {
  shown_->refresh();
}

void DrawingView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  shown_->paint(painter);
}

void DrawingView::resizeEvent(QResizeEvent* /*event*/) {
  shown_->resized();
}

void DrawingView::zoomBy(double factor, QPointF at) {
  ViewFrame frame = shown_->frame;
  const Spot fixed = frame.toWorld(at);
  frame.scale *= factor;
  const Spot moved = frame.toWorld(at);
  frame.center.x += fixed.x - moved.x;
  frame.center.y += fixed.y - moved.y;
  shown_->setFrame(frame);
}

void DrawingView::panBy(QPoint way) {
  ViewFrame frame = shown_->frame;
  frame.center.x -= way.x() / frame.scale;
  frame.center.y += way.y() / frame.scale;
  shown_->setFrame(frame);
}

void DrawingView::zoomTo(const Box& box) {
  if (box.isEmpty()) return;
  ViewFrame frame = shown_->frame;
  frame.center = {(box.left + box.right) / 2, (box.bottom + box.top) / 2};
  const double across = frame.width / std::max(box.width(), 1e-9);
  const double along = frame.height / std::max(box.height(), 1e-9);
  if (box.width() > 0 || box.height() > 0) frame.scale = std::min(across, along);
  shown_->setFrame(frame);
}

void DrawingView::zoomToExtents() {
  if (shown_->list() == nullptr) return;
  const Box box = shown_->list()->extents();
  const double margin = (kExtentsMargin - 1) / 2 * std::max(box.width(), box.height());
  if (!box.isEmpty()) zoomTo(box.grownBy(margin));
}

void DrawingView::startZoomWindow() {
  shown_->zoomWindow = true;
}

void DrawingView::setKeyHandler(std::function<bool(QKeyEvent*)> handler) {
  shown_->keyHandler = std::move(handler);
}

void DrawingView::setCursorWatcher(std::function<void(const AcGePoint3d&)> watcher) {
  shown_->acts().setCursorWatcher(std::move(watcher));
}

bool DrawingView::snapsToObjects() const {
  return shown_->acts().snapsOn();
}

void DrawingView::setSnapsToObjects(bool on) {
  shown_->acts().setSnapsOn(on);
  update();
}

const std::optional<Snap>& DrawingView::snap() const {
  return shown_->acts().snap();
}

const ViewFrame& DrawingView::frame() const {
  return shown_->frame;
}

std::optional<AcGePoint3d> DrawingView::pointAt(QPoint at) const {
  return shown_->acts().pointAt(shown_->frame, at);
}

bool DrawingView::complete() const {
  return shown_->complete();
}

std::size_t DrawingView::paintedPixels() const {
  return shown_->picture().paintedPixels();
}

void DrawingView::mousePressEvent(QMouseEvent* event) {
  setFocus(Qt::MouseFocusReason);
  const QPoint at = event->position().toPoint();
  shown_->cursor = at;
  if (event->button() == Qt::MiddleButton) shown_->pannedFrom = at;
  if (event->button() == Qt::RightButton) shown_->acts().enter();
  if (event->button() == Qt::LeftButton) shown_->pressedAt = at;
  update();
}

void DrawingView::mouseMoveEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  shown_->cursor = at;
  update();
  if (shown_->pannedFrom) {
    panBy(at - *shown_->pannedFrom);
    shown_->pannedFrom = at;
    return;
  }
  const bool dragged = shown_->pressedAt && (event->buttons() & Qt::LeftButton) != 0 &&
                       (at - *shown_->pressedAt).manhattanLength() > kClickReach;
  if (dragged && !shown_->boxFrom && (shown_->zoomWindow || shown_->acts().selects()))
    shown_->boxFrom = shown_->frame.toWorld(QPointF(*shown_->pressedAt));
  shown_->acts().move(shown_->frame, at);
}

void DrawingView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::MiddleButton) shown_->pannedFrom.reset();
  update();
  if (event->button() != Qt::LeftButton || !shown_->pressedAt) return;
  const QPoint at = event->position().toPoint();
  const bool click = (at - *shown_->pressedAt).manhattanLength() <= kClickReach;
  const Spot place = shown_->frame.toWorld(QPointF(at));
  const QPoint pressed = *shown_->pressedAt;
  shown_->pressedAt.reset();
  if (shown_->boxFrom) {
    const Spot from = *shown_->boxFrom;
    shown_->boxFrom.reset();
    if (!shown_->zoomWindow) return shown_->acts().box(from, place);
    shown_->zoomWindow = false;
    Box box;
    box.add(from);
    box.add(place);
    return zoomTo(box);
  }
  if (shown_->zoomWindow) {
    shown_->boxFrom = place;
    return;
  }
  // Where the button was pressed counts: a hand trembles.
  shown_->acts().click(shown_->frame, click ? pressed : at,
                       [this](Spot missed) { shown_->boxFrom = missed; });
}

void DrawingView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::MiddleButton) return zoomToExtents();
  mousePressEvent(event);
}

void DrawingView::wheelEvent(QWheelEvent* event) {
  constexpr double kNotch = 120;
  const double notches = event->angleDelta().y() / kNotch;
  if (notches != 0) zoomBy(std::pow(kWheelStep, notches), event->position());
  event->accept();
}

void DrawingView::leaveEvent(QEvent* /*event*/) {
  shown_->cursor.reset();
  shown_->acts().leave();
  update();
}

/// Tab belongs to the drawing's user, not to the way between widgets.
bool DrawingView::focusNextPrevChild(bool /*next*/) {
  return false;
}

void DrawingView::keyPressEvent(QKeyEvent* event) {
  const bool control = (event->modifiers() & Qt::ControlModifier) != 0;
  const QPointF middle(width() / 2.0, height() / 2.0);
  const int across = static_cast<int>(width() * kKeyPan);
  const int along = static_cast<int>(height() * kKeyPan);
  switch (event->key()) {
    case Qt::Key_F3:
      return setSnapsToObjects(!snapsToObjects());
    case Qt::Key_F8:
      return shown_->acts().toggle(L"ORTHOMODE");
    case Qt::Key_F9:
      return shown_->acts().toggle(L"SNAPMODE");
    case Qt::Key_Home:
      return zoomToExtents();
    case Qt::Key_Escape:
      shown_->boxFrom.reset();
      shown_->zoomWindow = false;
      update();
      return shown_->acts().cancel();
    default:
      break;
  }
  if (control) switch (event->key()) {
      case Qt::Key_Left:
        return panBy({across, 0});
      case Qt::Key_Right:
        return panBy({-across, 0});
      case Qt::Key_Up:
        return panBy({0, along});
      case Qt::Key_Down:
        return panBy({0, -along});
      case Qt::Key_Plus:
      case Qt::Key_Equal:
        return zoomBy(kWheelStep, middle);
      case Qt::Key_Minus:
        return zoomBy(1 / kWheelStep, middle);
      default:
        break;
    }
  if (!shown_->keyHandler || !shown_->keyHandler(event)) QWidget::keyPressEvent(event);
}

}  // namespace kovra::desktop
