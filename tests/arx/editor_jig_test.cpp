// Drags that a jig steers.
#include <gtest/gtest.h>

#include <cmath>

#include "platform/arx/drawing/sketch.h"
#include "platform/arx/editor/editor.h"
#include "platform/arx/editor/picks/jig.h"
#include "platform/arx/entities/text.h"
#include "tests/arx/editor_user.h"

namespace kovra::arx::test {
namespace {

struct JigSetup {
  int controls = 0;
  const wchar_t* keywords = L"";
  bool neverChanges = false;
};

JigSetup setup;
std::vector<std::string> log;

std::string place(const AcGePoint3d& point) {
  return std::to_string(std::lround(point.x)) + "," + std::to_string(std::lround(point.y));
}

/// Notes its samples and updates; an equal point is no change.
class NotingJig : public AcEdJig {
 public:
  DragStatus sampler() override {
    setUserInputControls(static_cast<UserInputControls>(setup.controls));
    setKeywordList(setup.keywords);
    AcGePoint3d point;
    const DragStatus status = acquirePoint(point);
    if (status != kNormal) return status;
    log.push_back("sample " + place(point));
    if (setup.neverChanges || point.isEqualTo(point_)) return kNoChange;
    point_ = point;
    return status;
  }
  Adesk::Boolean update() override {
    log.push_back("update " + place(point_));
    return true;
  }

 private:
  AcGePoint3d point_;
};

TEST(EditorJig, StatusesOfADrag) {
  struct Case {
    JigSetup setup;
    std::vector<Step> steps;
    std::vector<std::string> expected;
  };
  const JigSetup nullOk{AcEdJig::kNullResponseAccepted};
  const JigSetup words{3810, L"_. Second"};
  const Case cases[] = {
      {{}, {"JIG", click(5, 6)}, {"sample 5,6", "update 5,6", "0"}},
      {{},
       {"JIG", moveTo(1, 1), moveTo(1, 1), moveTo(2, 2), click(2, 2)},
       {"sample 1,1", "update 1,1", "sample 1,1", "sample 2,2", "update 2,2", "sample 2,2", "0"}},
      {{}, {"UCS O 10,0", "JIG 5,6"}, {"sample 15,6", "update 15,6", "0"}},
      {{0, L"", true},
       {"JIG", moveTo(1, 1), click(2, 2)},
       {"sample 1,1", "sample 2,2", "update 0,0", "0"}},
      {nullOk, {"JIG", enter()}, {"-1"}},
      {{}, {"JIG", enter(), click(1, 1)}, {"sample 1,1", "update 1,1", "0"}},
      {{}, {"JIG", escape()}, {"-4"}},
      {{}, {"JIG"}, {"-4"}},
      {words, {"JIG", "_. .7"}, {"1", "rest .7"}},
      {words, {"JIG second"}, {"2"}},
      {words, {"JIG", "other"}, {"-3"}},
      {{}, {"JIG", "other", click(1, 1)}, {"sample 1,1", "update 1,1", "0"}},
      {{}, {"ORTHOMODE 1", "JIG", moveTo(9, 4), escape()}, {"sample 9,4", "update 9,4", "-4"}},
  };
  host::bindCommand(L"JIG", [] {
    NotingJig jig;
    jig.setDispPrompt(L"\n%s", L"Place: ");
    const AcEdJig::DragStatus status = jig.drag();
    log.push_back(std::to_string(status));
    wchar_t rest[20];
    if (status == AcEdJig::kKW1 && acedGetString(1, L"", rest) == RTNORM)
      log.push_back("rest " + std::string(rest, rest + std::wcslen(rest)));
  });
  for (const Case& one : cases) {
    EditorUser user;
    setup = one.setup;
    log.clear();
    const std::string shown = user.run(one.steps);
    SCOPED_TRACE(shown);
    EXPECT_EQ(log, one.expected);
    EXPECT_NE(shown.find("Place: "), std::string::npos);
  }
  host::unbindCommand(L"JIG");
}

/// A drawable of other drawables.
class Group : public AcDbEntity {
 public:
  explicit Group(std::vector<AcDbText*> texts) : texts_(std::move(texts)) {}

 protected:
  Adesk::Boolean subWorldDraw(AcGiWorldDraw* context) override {
    for (AcDbText* text : texts_) context->geometry().draw(text);
    return true;
  }

 private:
  std::vector<AcDbText*> texts_;
};

TEST(EditorJig, DrawsWhatItShows) {
  EditorUser user;
  AcDbText shown({1, 2, 0}, L"K1", AcDbObjectId::kNull, 2.5, std::acos(-1) / 2);
  AcDbText hidden({3, 4, 0}, L"K2", AcDbObjectId::kNull, 2.5);
  hidden.setVisibility(AcDb::kInvisible);
  Group group({&shown, &hidden});
  Sketch sketch;
  EXPECT_TRUE(group.worldDraw(&sketch));
  ASSERT_EQ(sketch.texts().size(), 1U);
  EXPECT_EQ(sketch.texts()[0].message, L"K1");
  EXPECT_EQ(sketch.texts()[0].height, 2.5);
  EXPECT_NEAR(sketch.texts()[0].direction.y, 1, 1e-9);
}

}  // namespace
}  // namespace kovra::arx::test
