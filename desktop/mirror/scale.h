// From the pixels of windows in memory to those of native widgets.
#pragma once
#include <QFont>
#include <QRect>
#include <QSize>

#include "platform/win/base/windows_types.h"

namespace kovra::desktop {

/// How much larger a native dialog is than its window in memory, so that the native font has as
/// much room as the font that the memory measures with.
struct Scale {
  double x = 1;
  double y = 1;

  QRect rect(const RECT& place) const;
  QSize size(SIZE size) const;
  /// Back from native pixels.
  SIZE sizeInMemory(QSize size) const;
};

/// The ratio of the font's base units (mean width of the letters A to Z and a to z, height of a
/// line) to those that the dialog was laid out with.
Scale scaleOf(const QFont& font, SIZE baseUnits);

/// Where a dialog stands on a native screen: in the middle or at an edge as it does on the screen
/// in memory. `outer` is its place in memory, `size` the native size with its frame.
QPoint placeOnScreen(const RECT& outer, QSize size, const QRect& screen);
/// In the middle of its owner, as far as the screen has room.
QPoint placeOverMiddle(const QRect& owner, QSize size, const QRect& screen);
/// The corner in memory of a native dialog whose frame stands at `corner`.
POINT placeInMemory(const RECT& outer, QSize size, const QRect& screen, QPoint corner);

}  // namespace kovra::desktop
