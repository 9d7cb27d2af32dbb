// The drawing view under a real mouse and keyboard: the idle host runs, each step comes when
// everything is at rest.
#include <gtest/gtest.h>

#include <QTest>
#include <QTimer>
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>

#include "desktop/loop/input_queue.h"
#include "desktop/view/crossings.h"
#include "desktop/view/drawing_view.h"
#include "platform/arx/editor/editor.h"
#include "platform/arx/editor/host/prompt_view.h"
#include "platform/arx/editor/host_api.h"
#include "platform/arx/lists/entity_lists.h"

namespace kovra::desktop {
namespace {

namespace host = arx::host;
using Step = std::function<void()>;

/// Two lines that cross at (50, 50), a text, a circle apart from them.
constexpr const char* kDrawing =
    "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n70\n1\n"
    "0\nLAYER\n2\n0\n70\n0\n62\n7\n6\nCONTINUOUS\n0\nENDTAB\n0\nENDSEC\n"
    "0\nSECTION\n2\nENTITIES\n"
    "0\nLINE\n5\n21\n8\n0\n10\n0\n20\n0\n11\n100\n21\n100\n"
    "0\nLINE\n5\n22\n8\n0\n10\n0\n20\n100\n11\n100\n21\n0\n"
    "0\nTEXT\n5\n23\n8\n0\n10\n120\n20\n40\n40\n10\n1\nABC\n"
    "0\nCIRCLE\n5\n24\n8\n0\n62\n1\n10\n200\n20\n50\n40\n20\n"
    "0\nENDSEC\n0\nEOF\n";

int dragTransform(ads_point cursor, ads_matrix transform) {
  for (int axis = 0; axis < 3; ++axis) transform[axis][3] = cursor[axis];
  return RTNORM;
}

class ViewTest : public ::testing::Test {
 protected:
  void SetUp() override {
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "view_test.dxf";
    std::ofstream(file) << kDrawing;
    ASSERT_TRUE(host::openDrawing(file));
    view_ = std::make_unique<DrawingView>(nullptr);
    view_->resize(800, 500);
    view_->show();
    host::bindCommand(L"ASK", [this] { status_ = acedGetPoint(nullptr, L"Point: ", point_); });
    host::bindCommand(L"PICK", [this] { status_ = acedEntSel(L"Object: ", entity_, point_); });
    host::bindCommand(L"SELECT", [this] {
      ads_name set;
      selected_ = 0;
      if (acedSSGet(nullptr, nullptr, nullptr, nullptr, set) != RTNORM) return;
      acedSSLength(set, &selected_);
      acedSSFree(set);
    });
    host::bindCommand(L"DRAG", [this] {
      ads_name set;
      if (acedSSGet(L"X", nullptr, nullptr, nullptr, set) != RTNORM) return;
      status_ = acedDragGen(set, L"Drag: ", 0, dragTransform, point_);
      acedSSFree(set);
    });
  }

  void TearDown() override {
    active_ = nullptr;
    static_cast<void>(host::closeDrawing(host::currentDrawing()));
    view_.reset();
  }

  /// Carries the steps out one after another and returns when they are done.
  void run(std::vector<Step> steps) {
    steps.insert(steps.begin(), [this] { view_->zoomTo({-20, -20, 300, 180}); });
    steps_ = std::move(steps);
    next_ = 0;
    active_ = this;
    static const bool registered = [] {
      inputQueue().beforeWaiting([] {
        if (active_ != nullptr) active_->rest();
      });
      return true;
    }();
    static_cast<void>(registered);
    host::runIdle([this] { return next_ > steps_.size(); });
    active_ = nullptr;
  }

  void rest() {
    view_->refresh();
    if (view_->complete() && inputQueue().pending() == 0) {
      if (next_ < steps_.size()) steps_[next_]();
      ++next_;
    }
    QTimer::singleShot(0, [] {});
  }

  QPoint at(double x, double y) const { return view_->frame().toPixel({x, y}).toPoint(); }
  Step type(std::wstring text) {
    return [text] { static_cast<void>(host::typeText(text)); };
  }
  Step click(double x, double y) {
    return [=, this] { QTest::mouseClick(view_.get(), Qt::LeftButton, {}, at(x, y)); };
  }
  Step key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    return [=, this] { QTest::keyClick(view_.get(), key, modifiers); };
  }
  Step drag(double x1, double y1, double x2, double y2) {
    return [=, this] {
      QTest::mousePress(view_.get(), Qt::LeftButton, {}, at(x1, y1));
      const QPointF to = at(x2, y2);
      QMouseEvent moved(QEvent::MouseMove, to, view_->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                        {});
      QCoreApplication::sendEvent(view_.get(), &moved);
      QTest::mouseRelease(view_.get(), Qt::LeftButton, {}, at(x2, y2));
    };
  }
  /// How much of the pixels round a place isn't ground.
  int ink(double x, double y) {
    const QImage image = view_->grab().toImage();
    const QPoint middle = at(x, y) * image.devicePixelRatio();
    int count = 0;
    for (int dy = -2; dy <= 2; ++dy)
      for (int dx = -2; dx <= 2; ++dx)
        if (image.pixel(middle + QPoint(dx, dy)) != kGround) ++count;
    return count;
  }
  std::size_t selected() { return host::promptView().selected.size(); }

  std::unique_ptr<DrawingView> view_;
  std::vector<Step> steps_;
  std::size_t next_ = 0;
  int status_ = RTERROR;
  ads_point point_{};
  ads_name entity_{};
  Adesk::Int32 selected_ = 0;
  inline static ViewTest* active_ = nullptr;
};

TEST(CrossingsTest, LinesCirclesArcsAndEllipses) {
  constexpr double kTurn = 6.283185307179586;
  const auto circle = [](double x, double y, double radius, double sweep) {
    return ArcPiece{{x, y}, {radius, 0}, {0, radius}, sweep};
  };
  const ArcPiece ellipse{{0, 0}, {10, 0}, {0, 5}, kTurn};
  const LinePiece level{{-20, 3}, {20, 3}};
  const auto crossings = [](const auto& a, const auto& b) {
    std::vector<Spot> places;
    appendCrossings(a, b, places);
    std::ranges::sort(places, [](Spot p, Spot q) { return p.x + 2 * p.y < q.x + 2 * q.y; });
    return places;
  };
  const struct {
    const char* what;
    std::vector<Spot> found;
    std::vector<Spot> expected;
  } cases[] = {
      {"lines", crossings(LinePiece{{0, 0}, {10, 10}}, LinePiece{{0, 6}, {6, 0}}), {{3, 3}}},
      {"lines that end before",
       crossings(LinePiece{{0, 0}, {2, 2}}, LinePiece{{0, 6}, {6, 0}}),
       {}},
      {"line and circle", crossings(level, circle(0, 0, 5, kTurn)), {{-4, 3}, {4, 3}}},
      {"line and arc", crossings(level, circle(0, 0, 5, 1)), {{4, 3}}},
      {"line and arc clockwise", crossings(level, circle(0, 0, 5, -1)), {}},
      {"tangent", crossings(level, circle(0, 0, 3, kTurn)), {{0, 3}}},
      {"line and ellipse", crossings(level, ellipse), {{-8, 3}, {8, 3}}},
      {"circles", crossings(circle(0, 0, 5, kTurn), circle(6, 0, 5, kTurn)), {{3, -4}, {3, 4}}},
      {"arcs", crossings(circle(0, 0, 5, 1), circle(6, 0, 5, kTurn)), {{3, 4}}},
      {"circles that touch", crossings(circle(0, 0, 5, kTurn), circle(8, 0, 3, kTurn)), {{5, 0}}},
      {"one inside the other", crossings(circle(0, 0, 5, kTurn), circle(1, 0, 2, kTurn)), {}},
      {"circle and ellipse",
       crossings(circle(0, 0, std::sqrt(52.0), kTurn), ellipse),
       {{-6, -4}, {6, -4}, {-6, 4}, {6, 4}}},
  };
  for (const auto& one : cases) {
    SCOPED_TRACE(one.what);
    ASSERT_EQ(one.found.size(), one.expected.size());
    for (std::size_t i = 0; i < one.found.size(); ++i) {
      EXPECT_NEAR(one.found[i].x, one.expected[i].x, 1e-9);
      EXPECT_NEAR(one.found[i].y, one.expected[i].y, 1e-9);
    }
  }
}

TEST_F(ViewTest, ClicksGiveTheirPointsAndSnapsThoseOfObjects) {
  const double unit = 320.0 / 800;  // to a pixel
  const auto expect = [this](double x, double y, double tolerance) {
    return [=, this] {
      EXPECT_EQ(status_, RTNORM);
      EXPECT_NEAR(point_[0], x, tolerance);
      EXPECT_NEAR(point_[1], y, tolerance);
      status_ = RTERROR;
    };
  };
  run({type(L"ASK\n"),
       click(250, 120),
       expect(250, 120, unit),
       type(L"ASK\n"),
       click(99, 99),
       expect(100, 100, 0),
       type(L"ASK\n"),
       click(51, 49),
       expect(50, 50, 1e-9),
       type(L"ASK\n"),
       click(119, 41),
       expect(120, 40, 0),
       key(Qt::Key_F3),
       type(L"ASK\n"),
       click(98, 99),
       expect(98, 99, unit),
       key(Qt::Key_F3),
       [this] { view_->zoomBy(8, at(98, 99)); },
       type(L"ASK\n"),
       click(97, 99),
       expect(97, 99, unit / 8),
       key(Qt::Key_Right, Qt::ControlModifier),
       key(Qt::Key_Home),
       type(L"ASK\n"),
       click(101, 100),
       expect(100, 100, 0)});
}

TEST_F(ViewTest, ObjectsArePickedAndSelected) {
  const auto expect = [this](std::size_t count) {
    return [=, this] { EXPECT_EQ(selected(), count); };
  };
  run({type(L"PICK\n"),
       click(25, 25),
       [this] { EXPECT_EQ(status_, RTNORM); },
       click(25, 25),
       expect(1),
       click(220, 50),
       expect(2),
       key(Qt::Key_Escape),
       expect(0),
       drag(110, 120, 230, 20),
       expect(2),  // a window: the text and the circle
       key(Qt::Key_Escape),
       drag(230, 120, 90, 20),
       expect(3),  // a crossing: a line, too
       key(Qt::Key_Escape),
       click(150, 140),
       click(115, 10),
       expect(1),  // two clicks; crossing
       key(Qt::Key_Escape),
       type(L"SELECT\n"),
       drag(110, 120, 230, 20),
       expect(2),
       click(25, 25),
       expect(3),
       [this] { QTest::mouseClick(view_.get(), Qt::RightButton, {}, at(280, 150)); },
       [this] { EXPECT_EQ(selected_, 3); }});
}

TEST_F(ViewTest, WhatAClickWouldTakeIsShown) {
  const auto point = [this](double x, double y) {
    return [=, this] { QTest::mouseMove(view_.get(), at(x, y)); };
  };
  const auto expect = [=, this](bool shown) {
    return [=, this] {
      const QImage image = view_->grab().toImage();
      const QPoint top = (QPointF(at(200, 70)) * image.devicePixelRatio()).toPoint();
      bool lit = false;  // the circle is red
      for (int dy = -3; dy <= 3; ++dy) lit = lit || qBlue(image.pixel(top + QPoint(0, dy))) > 150;
      EXPECT_EQ(lit, shown);
    };
  };
  run({point(280, 150), expect(false), point(220, 50), expect(true), type(L"ASK\n"), expect(false),
       key(Qt::Key_Escape), type(L"PICK\n"), expect(true), point(230, 60), expect(false),
       key(Qt::Key_Escape)});
}

TEST_F(ViewTest, AChangePaintsWhereItWas) {
  std::size_t before = 0;
  run({[&] {
         EXPECT_GT(ink(25, 25), 0);
         EXPECT_GT(ink(220, 50), 0);
         EXPECT_EQ(ink(200, 50), 0);
         before = view_->paintedPixels();
       },
       type(L"ERASE\n"), click(220, 50), type(L"\n"),
       [&] {
         EXPECT_EQ(ink(220, 50), 0);
         const std::size_t painted = view_->paintedPixels() - before;
         EXPECT_GT(painted, 0U);
         const double ratio = view_->devicePixelRatioF();
         EXPECT_LT(static_cast<double>(painted), 800 * 500 / 10 * ratio * ratio);
       },
       type(L"U\n"), [&] { EXPECT_GT(ink(220, 50), 0); }, type(L"-LAYER\nOFF\n0\nY\n\n"),
       [&] { EXPECT_EQ(ink(25, 25), 0); }});
}

TEST_F(ViewTest, ADragShowsWhatMoves) {
  run({type(L"DRAG\n"), [this] { QTest::mouseMove(view_.get(), at(30, 60)); },
       [this] {
         EXPECT_GT(ink(250, 110), 0);  // the circle's right side, moved by (30, 60)
         EXPECT_GT(ink(220, 50), 0);
       },
       key(Qt::Key_Escape),
       [this] {
         EXPECT_EQ(status_, RTCAN);
         EXPECT_EQ(ink(250, 110), 0);
       }});
}

/// Copies wait far off until they are dragged. Many of them are painted in slices and then moved.
TEST_F(ViewTest, ManyThatLieOutOfSightShowWhereTheyAreDragged) {
  const auto point = [this](double x, double y) {
    return [=, this] { QTest::mouseMove(view_.get(), at(x, y)); };
  };
  host::bindCommand(L"MANY", [this] {
    constexpr double kAway = 9999;
    constexpr int kMany = 2000;
    ads_name set;
    ads_name last;
    acedSSAdd(nullptr, nullptr, set);
    for (int i = 0; i < kMany; ++i) {
      const ads_point from = {-kAway, i % 50 - kAway, 0};
      const ads_point to = {5 - kAway, i % 50 - kAway, 0};
      resbuf* line = acutBuildList(RTDXF0, L"LINE", 10, from, 11, to, RTNONE);
      acdbEntMake(line);
      acutRelRb(line);
      acdbEntLast(last);
      acedSSAdd(last, set, set);
    }
    const auto back = [](ads_point cursor, ads_matrix transform) {
      for (int axis = 0; axis < 2; ++axis) transform[axis][3] = cursor[axis] + kAway;
      return RTNORM;
    };
    status_ = acedDragGen(set, L"Drag: ", 0, back, point_);
    acedSSFree(set);
  });
  run({type(L"MANY\n"), point(250, 100),
       [this] {
         EXPECT_GT(ink(252, 101), 0);
         EXPECT_GT(ink(252, 148), 0);
         EXPECT_EQ(ink(242, 110), 0);
       },
       point(150, 100),
       [this] {
         EXPECT_EQ(ink(252, 120), 0);
         EXPECT_GT(ink(152, 120), 0);
       },
       key(Qt::Key_Escape)});
}

}  // namespace
}  // namespace kovra::desktop
