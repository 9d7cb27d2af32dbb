// The native widget that shows the current drawing and takes clicks and keys for it.
#pragma once
#include <QWidget>
#include <functional>
#include <memory>

#include "desktop/view/snaps.h"
#include "desktop/view/view_frame.h"

namespace kovra::desktop {

/// Shows the editor's current drawing. What the user does with it goes through the input queue to
/// host_api.h; the view that the user sees is the one that the editor knows.
///
/// Mouse: the left button clicks, or drags a box that selects; the right one is Enter; the wheel
/// zooms at the cursor; the middle one pans, twice it shows everything. Keys: the arrows with
/// Control pan, + and - with it zoom, Home shows everything, F3 switches snaps to objects, F8
/// ORTHOMODE, F9 SNAPMODE, Esc cancels. Others go to the key handler.
class DrawingView : public QWidget {
 public:
  explicit DrawingView(QWidget* parent);
  ~DrawingView() override;

  /// Brings the picture up to date with the drawing; before each wait, by the input queue.
  void refresh();
  void zoomToExtents();
  /// At a place of the widget.
  void zoomBy(double factor, QPointF at);
  /// In pixels of the widget.
  void panBy(QPoint way);
  void zoomTo(const Box& box);
  /// The next drag with the left button, or two clicks, give a box to zoom to.
  void startZoomWindow();

  /// Gets the keys that the view has no use for; true for those that it takes.
  void setKeyHandler(std::function<bool(QKeyEvent*)> handler);
  /// Told where the cursor is, in the UCS, from the input queue.
  void setCursorWatcher(std::function<void(const AcGePoint3d&)> watcher);
  bool snapsToObjects() const;
  void setSnapsToObjects(bool on);
  /// The snap that is marked now.
  const std::optional<Snap>& snap() const;

  /// The part of the world that is seen, in pixels of the widget.
  const ViewFrame& frame() const;
  /// The point, in the UCS, that a click on a pixel gives without a snap; none without a drawing.
  std::optional<AcGePoint3d> pointAt(QPoint at) const;
  /// Nothing left to build or to paint.
  bool complete() const;
  /// Pixels of the screen that were painted anew so far.
  std::size_t paintedPixels() const;

  QSize sizeHint() const override { return {1280, 800}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  class Shown;
  std::unique_ptr<Shown> shown_;
};

}  // namespace kovra::desktop
