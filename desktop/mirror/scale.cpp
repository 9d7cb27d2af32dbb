#include "desktop/mirror/scale.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

#include "platform/win/windows/system_metrics.h"

namespace kovra::desktop {
namespace {

constexpr int kLetters = 52;

/// What a dialog can move by on a screen: along one axis in memory, and natively.
struct Room {
  double inMemory;
  double native;
};

Room roomFor(LONG extent, LONG screenInMemory, int nativeExtent, int screen) {
  return {std::max(1.0, static_cast<double>(screenInMemory - extent)),
          std::max(1.0, static_cast<double>(screen - nativeExtent))};
}

SIZE workArea() {
  RECT work{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
  return {work.right - work.left, work.bottom - work.top};
}

int moved(LONG corner, const Room& room) {
  const double place = corner * room.native / room.inMemory;
  return static_cast<int>(std::lround(std::clamp(place, 0.0, room.native)));
}

LONG movedBack(int corner, const Room& room) {
  return static_cast<LONG>(std::lround(corner * room.inMemory / room.native));
}

}  // namespace

QRect Scale::rect(const RECT& place) const {
  const auto along = [](LONG pixel, double factor) {
    return static_cast<int>(std::lround(pixel * factor));
  };
  const QPoint corner(along(place.left, x), along(place.top, y));
  return {corner, QSize(along(place.right, x) - corner.x(), along(place.bottom, y) - corner.y())};
}

QSize Scale::size(SIZE size) const {
  return rect({0, 0, size.cx, size.cy}).size();
}

SIZE Scale::sizeInMemory(QSize size) const {
  return {static_cast<LONG>(std::lround(size.width() / x)),
          static_cast<LONG>(std::lround(size.height() / y))};
}

Scale scaleOf(const QFont& font, SIZE baseUnits) {
  const QFontMetricsF metrics(font);
  const double width = metrics.horizontalAdvance(
                           QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz")) /
                       kLetters;
  return {width / baseUnits.cx, metrics.height() / baseUnits.cy};
}

QPoint placeOnScreen(const RECT& outer, QSize size, const QRect& screen) {
  const SIZE work = workArea();
  return screen.topLeft() + QPoint(moved(outer.left, roomFor(outer.right - outer.left, work.cx,
                                                             size.width(), screen.width())),
                                   moved(outer.top, roomFor(outer.bottom - outer.top, work.cy,
                                                            size.height(), screen.height())));
}

QPoint placeOverMiddle(const QRect& owner, QSize size, const QRect& screen) {
  QRect place(QPoint(), size);
  place.moveCenter(owner.center());
  const int right = std::max(screen.left(), screen.right() + 1 - size.width());
  const int bottom = std::max(screen.top(), screen.bottom() + 1 - size.height());
  return {std::clamp(place.left(), screen.left(), right),
          std::clamp(place.top(), screen.top(), bottom)};
}

POINT placeInMemory(const RECT& outer, QSize size, const QRect& screen, QPoint corner) {
  const SIZE work = workArea();
  const QPoint offset = corner - screen.topLeft();
  return {movedBack(offset.x(),
                    roomFor(outer.right - outer.left, work.cx, size.width(), screen.width())),
          movedBack(offset.y(),
                    roomFor(outer.bottom - outer.top, work.cy, size.height(), screen.height()))};
}

}  // namespace kovra::desktop
