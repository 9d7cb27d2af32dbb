// The native widget that shows the current drawing and takes clicks and keys for it.
#pragma once
#include <QWidget>
#include <memory>

namespace kovra::desktop {

/// Shows the editor's current drawing. What the user does with it goes through the input queue to
/// host_api.h.
class DrawingView : public QWidget {
 public:
  explicit DrawingView(QWidget* parent);
  ~DrawingView() override;

  /// Brings the picture up to date with the drawing; before each wait, by the input queue.
  void refresh();
  void zoomToExtents();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  class Shown;
  std::unique_ptr<Shown> shown_;
};

}  // namespace kovra::desktop
