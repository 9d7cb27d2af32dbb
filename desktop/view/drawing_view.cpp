#include "desktop/view/drawing_view.h"

#include <QPainter>

namespace kovra::desktop {

class DrawingView::Shown {};

DrawingView::DrawingView(QWidget* parent) : QWidget(parent), shown_(std::make_unique<Shown>()) {
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
}

DrawingView::~DrawingView() = default;

void DrawingView::refresh() {}

void DrawingView::zoomToExtents() {}

void DrawingView::paintEvent(QPaintEvent* /*event*/) {
  QPainter(this).fillRect(rect(), Qt::black);
}

}  // namespace kovra::desktop
