// A tab for each open drawing.
#pragma once
#include <QTabBar>
#include <functional>

#include "platform/arx/editor/host_api.h"

namespace kovra::desktop {

/// Follows the editor's drawings; a click makes one current, the close box or the middle button
/// asks to close it.
class DrawingTabs : public QTabBar {
 public:
  using Choose = std::function<void(arx::host::DrawingId)>;
  /// Both are called as acts of the input queue.
  DrawingTabs(QWidget* parent, Choose activate, Choose close);

  void refresh(const std::vector<arx::host::DrawingInfo>& drawings);

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  arx::host::DrawingId drawingAt(int tab) const;
  void askToClose(int tab);

  Choose activate_;
  Choose close_;
  bool following_ = false;
};

}  // namespace kovra::desktop
