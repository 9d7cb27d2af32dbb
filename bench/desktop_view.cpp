// How fast the drawing view is: desktop_view DRAWING. Without a screen (QT_QPA_PLATFORM=offscreen).
//
// Prints one line for each figure: opening, the first picture, everything built and painted; the
// median and the longest of frames of panning, zooming, hovering and of drags of 10,000 entities,
// near and with everything in sight, and of 10,000 texts that a jig shows.

#include <QApplication>
#include <QMouseEvent>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <functional>
#include <vector>

#include "desktop/loop/input_queue.h"
#include "desktop/view/drawing_view.h"
#include "platform/arx/editor/editor.h"
#include "platform/arx/editor/host_api.h"
#include "platform/arx/editor/picks/jig.h"
#include "platform/arx/entities/text.h"
#include "platform/arx/lists/entity_lists.h"

namespace {

using namespace kovra;
using Clock = std::chrono::steady_clock;

double milliseconds(Clock::duration time) {
  return std::chrono::duration<double, std::milli>(time).count();
}

void print(const char* what, std::vector<double> frames) {
  std::ranges::sort(frames);
  std::printf("%-30s median %8.2f ms   9 of 10 %8.2f ms   longest %8.2f ms\n", what,
              frames[frames.size() / 2], frames[frames.size() * 9 / 10], frames.back());
}

void print(const char* what, double time, double opening) {
  std::printf("%-30s %8.1f ms   %6.2f times opening\n", what, time, time / opening);
}

constexpr int kFrames = 60;

/// Drags of so many entities, as commands have them.
constexpr int kDragged = 10000;
int followCursor(ads_point cursor, ads_matrix transform) {
  for (int axis = 0; axis < 3; ++axis) transform[axis][3] = cursor[axis];
  return RTNORM;
}

void dragCommand() {
  ads_name all;
  ads_name dragged;
  ads_name entity;
  ads_point place;
  if (acedSSGet(L"X", nullptr, nullptr, nullptr, all) != RTNORM) return;
  acedSSAdd(nullptr, nullptr, dragged);
  for (Adesk::Int32 i = 0; i < kDragged && acedSSName(all, i, entity) == RTNORM; ++i)
    acedSSAdd(entity, dragged, dragged);
  acedSSFree(all);
  acedDragGen(dragged, L"Drag: ", 0, followCursor, place);
  acedSSFree(dragged);
}

/// As many texts that aren't the drawing's, in rows.
class ManyTexts : public AcDbEntity {
 public:
  ManyTexts() : texts_(kDragged) {
    for (AcDbText& text : texts_) text.setTextString(L"CR1234");
    moveTo(AcGePoint3d());
  }
  void moveTo(const AcGePoint3d& to) {
    constexpr int kRow = 100;
    for (int i = 0; i < kDragged; ++i)
      texts_[static_cast<std::size_t>(i)].setPosition(
          AcGePoint3d(to.x + 50.0 * (i % kRow), to.y + 15.0 * (i / kRow), 0));
  }

 protected:
  Adesk::Boolean subWorldDraw(AcGiWorldDraw* context) override {
    for (AcDbText& text : texts_) context->geometry().draw(&text);
    return true;
  }

 private:
  std::vector<AcDbText> texts_;
};

class ManyTextsJig : public AcEdJig {
 public:
  DragStatus sampler() override { return acquirePoint(point_); }
  Adesk::Boolean update() override {
    texts_.moveTo(point_);
    return true;
  }
  AcDbEntity* entity() const override { return &texts_; }

 private:
  mutable ManyTexts texts_;
  AcGePoint3d point_;
};

void jigCommand() {
  ManyTextsJig().drag();
}

/// One act after another: the next one when everything is at rest.
class Measuring {
 public:
  Measuring(desktop::DrawingView& view, double opening) : view_(view), opening_(opening) {
    desktop::inputQueue().beforeWaiting([this] { rest(); });
  }

 private:
  void rest();
  void views();
  void drag(const char* what);
  void frame(const std::function<void()>& act);
  void mouse(int x, int y) {
    const QPointF at(x, y);
    QMouseEvent event(QEvent::MouseMove, at, view_.mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&view_, &event);
  }

  desktop::DrawingView& view_;
  double opening_;
  int step_ = 0;
  Clock::time_point begin_ = Clock::now();
  std::vector<double> frames_;
  std::vector<double> refreshes_;
};

/// From the user's act to the picture that follows it.
void Measuring::frame(const std::function<void()>& act) {
  const Clock::time_point begin = Clock::now();
  act();
  while (desktop::inputQueue().pending() > 0) {
    // The acts are the queue's; one dispatch carries out one of them.
    desktop::inputQueue().dispatchOne();
  }
  view_.refresh();
  view_.repaint();
  frames_.push_back(milliseconds(Clock::now() - begin));
}

void Measuring::drag(const char* what) {
  for (int i = 0; i < kFrames; ++i) frame([&] { mouse(300 + 7 * i, 500 - 3 * i); });
  print(what, std::exchange(frames_, {}));
  static_cast<void>(arx::host::answerCancel());
}

void Measuring::views() {
  for (int i = 0; i < kFrames; ++i) frame([&] { view_.panBy({7, 3}); });
  print("panning, everything in sight", std::exchange(frames_, {}));
  for (int i = 0; i < kFrames; ++i)
    frame([&] { view_.zoomBy(i < kFrames / 2 ? 1.2 : 1 / 1.2, {700, 400}); });
  print("zooming", std::exchange(frames_, {}));
  for (int i = 0; i < 16; ++i) view_.zoomBy(1.25, {700, 400});
  while (!view_.complete()) view_.refresh();
  for (int i = 0; i < kFrames; ++i) frame([&] { view_.panBy({7, 3}); });
  print("panning, near", std::exchange(frames_, {}));
  for (int i = 0; i < kFrames; ++i) frame([&] { mouse(200 + 13 * i, 300 + 5 * i); });
  print("hovering", std::exchange(frames_, {}));
}

void Measuring::rest() {
  const Clock::time_point begin = Clock::now();
  view_.refresh();
  refreshes_.push_back(milliseconds(Clock::now() - begin));
  view_.repaint();
  if (step_ == 0 && view_.paintedPixels() > 0) {
    print("first picture", opening_ + milliseconds(Clock::now() - begin_), opening_);
    step_ = 1;
  }
  if (!view_.complete()) return;
  const bool drags = arx::host::topWait().kind == arx::host::WaitKind::kDrag;
  if (step_ > 1 && !drags) return;
  switch (step_++) {
    case 1:
      print("all built and painted", milliseconds(Clock::now() - begin_), opening_);
      print("slices of building", refreshes_);
      views();
      static_cast<void>(arx::host::typeText(L"DRAGALL\n"));
      return;
    case 2:
      drag("dragging 10,000, near");
      view_.zoomToExtents();
      static_cast<void>(arx::host::typeText(L"DRAGALL\n"));
      return;
    case 3:
      drag("dragging 10,000, all in sight");
      static_cast<void>(arx::host::typeText(L"JIGALL\n"));
      return;
    default:
      drag("a jig of 10,000 texts");
      desktop::inputQueue().end();
  }
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  if (argc != 2) {
    std::fprintf(stderr, "Usage: desktop_view DRAWING\n");
    return 2;
  }
  arx::host::bindCommand(L"DRAGALL", dragCommand);
  arx::host::bindCommand(L"JIGALL", jigCommand);
  const Clock::time_point begin = Clock::now();
  if (const auto opened = arx::host::openDrawing(argv[1]); !opened) {
    std::fprintf(stderr, "%s\n", opened.error().message.c_str());
    return 1;
  }
  const double opening = milliseconds(Clock::now() - begin);
  print("opening", opening, opening);
  desktop::DrawingView view(nullptr);
  view.resize(1600, 1000);
  view.show();
  const Measuring measuring(view, opening);
  arx::host::runIdle();
  return 0;
}
