#include "desktop/view/pointer_acts.h"

#include <cmath>

#include "desktop/loop/input_queue.h"
#include "platform/arx/editor/documents/sysvars.h"
#include "platform/arx/editor/documents/ucs.h"
#include "platform/arx/editor/host/drawing_window.h"
#include "platform/arx/editor/host/prompt_view.h"
#include "platform/win/windows/window_api.h"

namespace kovra::desktop {
namespace {

namespace host = arx::host;
using host::WaitKind;

/// How near the cursor a point of an object is taken, in pixels.
constexpr double kAperture = 10;

/// The number with no more digits than a pixel can show, and a few to spare.
double tidy(double value, double unitsPerPixel) {
  constexpr int kSpare = 3;
  const double digits = kSpare - std::floor(std::log10(unitsPerPixel));
  if (!(digits >= 0 && digits < 12)) return value;
  const double parts = std::pow(10.0, digits);
  return std::round(value * parts) / parts;
}

AcGePoint3d worldAt(const ViewFrame& frame, QPoint at) {
  const Spot spot = frame.toWorld(QPointF(at));
  return {tidy(spot.x, 1 / frame.scale), tidy(spot.y, 1 / frame.scale), 0};
}

host::PickPoint inUcs(const AcApDocument& document, const AcGePoint3d& world) {
  const AcGePoint3d point = arx::toUcs(document, world);
  return {point.x, point.y, point.z};
}

}  // namespace

void PointerActs::move(const ViewFrame& frame, QPoint at) {
  const bool waits = pendingMove_.has_value();
  pendingMove_ = Move{frame, at};
  if (waits) return;
  inputQueue().add([this] {
    const std::optional<Move> last = std::exchange(pendingMove_, std::nullopt);
    if (last) carryOutMove(*last);
  });
}

void PointerActs::leave() {
  inputQueue().add([this] { mark(std::nullopt); });
}

void PointerActs::mark(std::optional<Snap> snap) {
  const bool same = snap.has_value() == snap_.has_value() &&
                    (!snap || (snap->kind == snap_->kind && snap->place == snap_->place));
  snapChanged_ = snapChanged_ || !same;
  snap_ = std::move(snap);
}

std::optional<Snap> PointerActs::findSnap(const Move& move) {
  const host::PromptView prompt = host::promptView();
  const bool wanted = prompt.takesPoints && !prompt.corner && prompt.kind != WaitKind::kPick &&
                      prompt.kind != WaitKind::kSelection;
  const AcApDocument* document = drawings_.current();
  if (!snapsOn_ || !wanted || document == nullptr) return std::nullopt;
  return snapAt(*drawings_.currentList(), *document->database(),
                move.frame.toWorld(QPointF(move.at)), kAperture / move.frame.scale);
}

void PointerActs::carryOutMove(const Move& move) {
  const AcApDocument* document = drawings_.current();
  if (document == nullptr || host::topWait().modalOnTop) return;
  mark(findSnap(move));
  const AcGePoint3d world = snap_ ? snap_->place : worldAt(move.frame, move.at);
  const auto point = inUcs(*document, world);
  if (watcher_) watcher_({point.x, point.y, point.z});
  static_cast<void>(host::moveCursor(point, snap_ ? host::Aim::kExact : host::Aim::kByModes));
}

std::optional<AcGePoint3d> PointerActs::pointAt(const ViewFrame& frame, QPoint at) const {
  const AcApDocument* document = drawings_.current();
  if (document == nullptr) return std::nullopt;
  const auto point = inUcs(*document, worldAt(frame, at));
  return AcGePoint3d(point.x, point.y, point.z);
}

void PointerActs::click(const ViewFrame& frame, QPoint at, std::function<void(Spot)> missed) {
  inputQueue().add([this, click = Move{frame, at}, missed = std::move(missed)] {
    carryOutClick(click, missed);
  });
}

void PointerActs::carryOutClick(const Move& click, const std::function<void(Spot)>& missed) {
  const AcApDocument* document = drawings_.current();
  const host::Wait wait = host::topWait();
  if (document == nullptr || wait.modalOnTop) return;
  const AcGePoint3d world = worldAt(click.frame, click.at);
  if (wait.kind == WaitKind::kIdle) {
    const auto clicked = host::clickIdle(inUcs(*document, world));
    if (clicked && clicked.value() == host::IdleClick::kMissed) missed({world.x, world.y});
    return;
  }
  const std::optional<Snap> snap = findSnap(click);
  mark(std::nullopt);
  static_cast<void>(host::clickPoint(inUcs(*document, snap ? snap->place : world),
                                     snap ? host::Aim::kExact : host::Aim::kByModes));
}

void PointerActs::box(Spot from, Spot to) {
  inputQueue().add([this, from, to] {
    const AcApDocument* document = drawings_.current();
    if (document == nullptr) return;
    host::SelectionInput input;
    input.box = {inUcs(*document, {from.x, from.y, 0}), inUcs(*document, {to.x, to.y, 0})};
    input.adding = true;
    const WaitKind kind = host::topWait().kind;
    if (kind == WaitKind::kIdle) static_cast<void>(host::preselect(input));
    if (kind == WaitKind::kSelection) static_cast<void>(host::select(input));
  });
}

void PointerActs::enter() {
  inputQueue().add([] { static_cast<void>(host::typeText(L"\n")); });
}

void PointerActs::cancel() {
  inputQueue().add([this] {
    mark(std::nullopt);
    host::answerCancel();
  });
}

void PointerActs::toggle(std::wstring variable) {
  inputQueue().add([this, variable = std::move(variable)] {
    AcApDocument* document = drawings_.current();
    if (document == nullptr) return;
    Result<arx::VariableValue> value = arx::readVariable(*document, variable);
    if (!value) return;
    value.value().integer = value.value().integer == 0 ? 1 : 0;
    static_cast<void>(arx::writeVariable(*document, variable, value.value()));
  });
}

void PointerActs::resizeWindow(arx::WindowSize size) {
  const HWND window = arx::drawingWindow();
  SetWindowPos(window, nullptr, 0, 0, size.width, size.height,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void PointerActs::refresh() {
  kind_ = host::topWait().kind;
  AcApDocument* document = drawings_.current();
  if (document == nullptr) return;
  if (const auto pixels = arx::readVariable(*document, L"PICKBOX"); pixels)
    pickBox_ = pixels.value().integer;
}

bool PointerActs::selects() const {
  return kind_ == WaitKind::kIdle || kind_ == WaitKind::kSelection;
}

void PointerActs::setSnapsOn(bool on) {
  snapsOn_ = on;
  if (!on) mark(std::nullopt);
}

}  // namespace kovra::desktop
