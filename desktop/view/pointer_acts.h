// What the user does with mouse and keys in the drawing, as acts for the editor.
#pragma once
#include <QPoint>
#include <functional>
#include <optional>
#include <string>

#include "desktop/view/shown_drawings.h"
#include "desktop/view/snaps.h"
#include "desktop/view/view_frame.h"
#include "platform/arx/editor/documents/view.h"
#include "platform/arx/editor/host_api.h"

namespace kovra::desktop {

/// Every function lays an act into the input queue; what it does is decided there, by what waits
/// then. Frames and places are in pixels of the widget.
class PointerActs {
 public:
  explicit PointerActs(ShownDrawings& drawings) : drawings_(drawings) {}

  /// The cursor is there; of several that wait only the last one counts.
  void move(const ViewFrame& frame, QPoint at);
  /// The cursor is nowhere in the drawing.
  void leave();
  /// The point, in the UCS, that a click there gives without a snap; none without a drawing.
  std::optional<AcGePoint3d> pointAt(const ViewFrame& frame, QPoint at) const;
  /// A click; `missed` gets its place when it began a box for a selection without a command.
  void click(const ViewFrame& frame, QPoint at, std::function<void(Spot)> missed);
  /// A box was drawn: to the right a window, to the left a crossing.
  void box(Spot from, Spot to);
  void enter();
  void cancel();
  /// Switches a system variable between 0 and 1.
  void toggle(std::wstring variable);
  /// The window that the module knows gets this size.
  void resizeWindow(arx::WindowSize size);

  /// What waits, as of now. To be called with everything at rest.
  void refresh();
  /// Whether a box selects.
  bool selects() const;
  /// Pixels from the middle of the pick box to its sides.
  int pickBox() const { return pickBox_; }

  bool snapsOn() const { return snapsOn_; }
  void setSnapsOn(bool on);
  const std::optional<Snap>& snap() const { return snap_; }
  /// Whether the mark moved since this was asked last.
  bool takeSnapChanged() { return std::exchange(snapChanged_, false); }
  void setCursorWatcher(std::function<void(const AcGePoint3d&)> watcher) {
    watcher_ = std::move(watcher);
  }

 private:
  struct Move {
    ViewFrame frame;
    QPoint at;
  };
  void carryOutMove(const Move& move);
  void carryOutClick(const Move& click, const std::function<void(Spot)>& missed);
  std::optional<Snap> findSnap(const Move& move);
  void mark(std::optional<Snap> snap);

  ShownDrawings& drawings_;
  std::optional<Move> pendingMove_;
  arx::host::WaitKind kind_ = arx::host::WaitKind::kNone;
  int pickBox_ = 3;
  bool snapsOn_ = true;
  std::optional<Snap> snap_;
  bool snapChanged_ = false;
  std::function<void(const AcGePoint3d&)> watcher_;
};

}  // namespace kovra::desktop
