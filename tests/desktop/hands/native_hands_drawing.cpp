// The mouse in the drawing. A pixel gives the point that it shows; lines that name a point between
// pixels go to the platform.
#include "desktop/frame/main_window.h"
#include "desktop/view/drawing_view.h"
#include "tests/desktop/hands/native_hands.h"
#include "tests/desktop/hands/native_input.h"

namespace kovra::test {
namespace {

using arx::host::PickPoint;
using arx::host::WaitKind;

}  // namespace

/// The pixel of the view that gives exactly this point.
std::optional<QPoint> NativeHands::pixelOf(PickPoint point) {
  seeThrough();
  showAll();
  desktop::DrawingView& view = window_->view();
  if (point.z != 0 || !isUsable(&view) || !view.isVisible()) return std::nullopt;
  const QPoint pixel = view.frame().toPixel({point.x, point.y}).toPoint();
  if (!view.rect().contains(pixel) || pixel.isNull()) return std::nullopt;
  const std::optional<AcGePoint3d> given = view.pointAt(pixel);
  if (!given || given->x != point.x || given->y != point.y) return std::nullopt;
  return pixel;
}

Result<void> NativeHands::clickPoint(PickPoint point) {
  const WaitKind kind = arx::host::topWait().kind;
  const bool asked = kind == WaitKind::kPoint || kind == WaitKind::kDrag ||
                     kind == WaitKind::kPick || kind == WaitKind::kSelection;
  const std::optional<QPoint> pixel = asked ? pixelOf(point) : std::nullopt;
  if (!pixel) {
    note("(point)");
    return UserHands::clickPoint(point);
  }
  clickWidget(&window_->view(), *pixel);
  if (const auto result = played("point"); !result)
    return Error{ErrorKind::kInvalidInput, result.error};
  return {};
}

Result<void> NativeHands::moveCursor(PickPoint point) {
  const std::optional<QPoint> pixel = pixelOf(point);
  if (!pixel || arx::host::topWait().modalOnTop) {
    note("(move)");
    return UserHands::moveCursor(point);
  }
  moveOverWidget(&window_->view(), *pixel);
  played("move");
  return {};
}

}  // namespace kovra::test
