// Picks, selections, drags and the commands on them.
#include <gtest/gtest.h>

#include <cmath>

#include "platform/arx/editor/documents/sysvars.h"
#include "platform/arx/editor/editor.h"
#include "platform/arx/editor/host/message_hooks.h"
#include "platform/arx/editor/picks/hit_test.h"
#include "platform/arx/lists/entity_lists.h"
#include "platform/win/base/messages.h"
#include "platform/win/base/wide_text.h"
#include "tests/arx/editor_user.h"
#include "tests/arx/test_drawing.h"

namespace kovra::arx::test {
namespace {

std::vector<std::string> given;

std::string handleOf(const ads_name name) {
  AcDbObjectId id;
  if (acdbGetObjectId(id, name) != Acad::eOk) return "?";
  wchar_t text[20];
  id.handle().getIntoAsciiBuffer(text);
  return win::toUtf8(text);
}

std::string members(const ads_name set) {
  std::string text;
  Adesk::Int32 length = 0;
  if (acedSSLength(set, &length) != RTNORM) return "no set";
  for (Adesk::Int32 i = 0; i < length; ++i) {
    ads_name name;
    if (acedSSName(set, i, name) == RTNORM) text += (i > 0 ? " " : "") + handleOf(name);
  }
  return text;
}

int errnoValue() {
  resbuf value{};
  acedGetVar(L"ERRNO", &value);
  return value.resval.rint;
}

std::string outcome(int status) {
  if (status == RTNORM) return "ok";
  if (status == RTCAN) return "cancel";
  return status == RTERROR ? "error " + std::to_string(errnoValue()) : std::to_string(status);
}

void entitySelection() {
  ads_name name;
  ads_point point;
  const int status = acedEntSel(L"Pick: ", name, point);
  given.push_back(status == RTNORM ? handleOf(name) : outcome(status));
}

void nestedSelection() {
  ads_name name;
  ads_point point;
  ads_matrix matrix;
  resbuf* containers = nullptr;
  const int status = acedNEntSelP(L"Pick: ", name, point, 0, matrix, &containers);
  std::string text = status == RTNORM ? handleOf(name) : outcome(status);
  for (const resbuf* at = containers; at != nullptr; at = at->rbnext)
    text += " in " + handleOf(at->resval.rlname);
  if (status == RTNORM)
    text += " at " + std::to_string(std::lround(matrix[0][3])) + "," +
            std::to_string(std::lround(matrix[1][3]));
  acutRelRb(containers);
  given.push_back(text);
}

void textSelection() {
  resbuf* filter = acutBuildList(RTDXF0, L"TEXT,LINE", 8, L"W*", 0);
  ads_name set;
  int status = acedSSGet(L"_I", nullptr, nullptr, filter, set);
  const bool implied = status == RTNORM;
  if (!implied) status = acedSSGet(nullptr, nullptr, nullptr, filter, set);
  acutRelRb(filter);
  given.push_back((implied ? "implied " : "") +
                  (status == RTNORM ? members(set) : outcome(status)));
  if (status == RTNORM) acedSSFree(set);
}

ads_point dragStart;

int dragTransform(ads_point cursor, ads_matrix matrix) {
  for (int i = 0; i < 3; ++i) matrix[i][3] = cursor[i] - dragStart[i];
  given.push_back("drag " + std::to_string(std::lround(cursor[0])) + "," +
                  std::to_string(std::lround(cursor[1])));
  return RTNORM;
}

void dragAll() {
  ads_name set;
  ads_point point{};
  if (acedSSGet(L"X", nullptr, nullptr, nullptr, set) != RTNORM) return;
  const int status = acedDragGen(set, L"Drag: ", 0, dragTransform, point);
  given.push_back(outcome(status) + " " + std::to_string(std::lround(point[0])) + "," +
                  std::to_string(std::lround(point[1])));
  acedSSFree(set);
}

/// An attribute elsewhere than where textEntity puts it.
std::string attributeAt(int handle, const std::string& x, const std::string& y) {
  std::string entity = textEntity(TextKind::kAttribute, 1015, handle, {});
  entity.replace(entity.find("100.0"), 5, x);
  return entity.replace(entity.find("50.0"), 4, y);
}

/// A wire, a text, a symbol with an attribute, a line on the locked layer FRAME, one on HIDDEN.
std::string sheet() {
  return lineEntity(0x40, 0, 0, 100, 0, "WIRES") + textEntity(TextKind::kText, 1015, 0x50, {}) +
         attributeAt(0x61, "30.0", "80.0") + lineEntity(0x70, 0, 100, 100, 100, "FRAME") +
         lineEntity(0x71, 0, 90, 100, 90, "HIDDEN");
}

class EditorPicks : public testing::Test {
 protected:
  void SetUp() override {
    given.clear();
    host::bindCommand(L"PICKONE", entitySelection);
    host::bindCommand(L"PICKIN", nestedSelection);
    host::bindCommand(L"CHOOSE", textSelection);
    host::bindCommand(L"DRAG", dragAll);
  }
  void TearDown() override {
    for (const wchar_t* name : {L"PICKONE", L"PICKIN", L"CHOOSE", L"DRAG"})
      host::unbindCommand(name);
  }
};

TEST_F(EditorPicks, GiveWhatTheUserPoints) {
  struct Case {
    std::vector<Step> steps;
    std::vector<std::string> expected;
  };
  const Case cases[] = {
      {{"PICKONE", pick(0x40)}, {"40"}},
      {{"PICKONE", click(50, 0)}, {"40"}},
      {{"PICKONE 50,0"}, {"40"}},
      {{"PICKONE", click(101, 51)}, {"50"}},
      {{"PICKONE", click(50, 60)}, {"error 7"}},
      {{"PICKONE", enter()}, {"error 52"}},
      {{"PICKONE", escape()}, {"cancel"}},
      {{"PICKONE", pick(0x61)}, {"60"}},
      {{"PICKIN", pick(0x61)}, {"61 in 60 at 0,0"}},
      {{"PICKIN", pick(0x70)}, {"70 at 0,0"}},
      {{"PICKONE", pick(0x71), enter()}, {"error 52"}},
      {{"PICKONE", pick(0x999), enter()}, {"error 52"}},
      {{"CHOOSE", selectBox(-5, -5, 200, 200), enter()}, {"40 50"}},
      {{"CHOOSE", selectBox(-5, -5, 50, 200), enter()}, {"error 0"}},
      {{"CHOOSE", selectBox(50, 200, -5, -5), enter()}, {"40"}},
      {{"UCS Z 180", "CHOOSE", selectBox(5, 5, -50, -200), enter()}, {"error 0"}},
      {{"CHOOSE", select({0x50, 0x40, 0x50}), enter()}, {"50 40"}},
      {{"CHOOSE", "all", enter()}, {"40 50"}},
      {{"CHOOSE", "all", "r", click(50, 0), enter()}, {"50"}},
      {{"CHOOSE", "w", "-5,-5", "200,200", enter()}, {"40 50"}},
      {{"CHOOSE", click(150, 150), click(-5, -5), enter()}, {"40 50"}},
      {{"CHOOSE", select({0x40}), "u", select({0x50}), enter()}, {"50"}},
      {{"CHOOSE", select({0x40}), escape()}, {"cancel"}},
      {{"CHOOSE", select({0x40}), enter(), "CHOOSE", "p", enter()}, {"40", "40"}},
      {{preselect({0x50, 0x70}), "CHOOSE", "CHOOSE", enter()}, {"implied 50", "error 0"}},
      {{preselect({0x40}), "REGEN", "CHOOSE", enter()}, {"error 0"}},
  };
  for (const Case& one : cases) {
    EditorUser user(sheet());
    given.clear();
    SCOPED_TRACE(user.run(one.steps));
    EXPECT_EQ(given, one.expected);
  }
}

TEST_F(EditorPicks, DragFollowsTheCursorAndIgnoresOrtho) {
  EditorUser user(sheet());
  user.run({"ORTHOMODE 1", "UCS O 10,0", "DRAG", moveTo(1, 2), moveTo(3, 4), click(5, 6)});
  EXPECT_EQ(given, (std::vector<std::string>{"drag 1,2", "drag 3,4", "drag 5,6", "ok 5,6"}));
  given.clear();
  user.run({"DRAG", moveTo(1, 2), escape(), "DRAG 7,8", "DRAG", enter()});
  EXPECT_EQ(given, (std::vector<std::string>{"drag 1,2", "cancel 0,0", "drag 7,8", "ok 7,8",
                                             std::to_string(RTNONE) + " 0,0"}));
}

TEST_F(EditorPicks, MoveAndEraseLeaveLockedLayersAlone) {
  EditorUser user(sheet());
  const std::string before = user.bytes();
  std::string shown = user.run({"MOVE", select({0x40, 0x70}), enter(), "0,0", "@10<90"});
  EXPECT_NE(shown.find("2 found\n1 was on a locked layer.\n"), std::string::npos) << shown;
  EXPECT_EQ(groupDiff(before, user.bytes()),
            (std::vector<std::string>{"-20=0.000000", "+20=10.0", "-21=0.000000", "+21=10.0"}));
  user.run({"MOVE", select({0x60}), enter(), "5,0", enter(), "U", "U"});
  EXPECT_EQ(user.bytes(), before);
  user.run({preselect({0x50, 0x70}), "ERASE"});
  EXPECT_TRUE(user.find(0x50).isErased());
  EXPECT_FALSE(user.find(0x70).isErased());
  user.run({"U"});
  EXPECT_EQ(user.bytes(), before);
}

TEST_F(EditorPicks, SelectionSetsAsTheCommandsUseThem) {
  EditorUser user(sheet());
  ads_name set;
  ads_name name;
  ASSERT_EQ(acedSSAdd(nullptr, nullptr, set), RTNORM);
  EXPECT_EQ(members(set), "");
  for (const std::uint64_t handle : {0x50U, 0x40U, 0x50U}) {
    acdbGetAdsName(name, user.find(handle));
    EXPECT_EQ(acedSSAdd(name, set, set), RTNORM);
  }
  EXPECT_EQ(members(set), "50 40");
  EXPECT_EQ(acedSSMemb(name, set), RTNORM);
  EXPECT_EQ(acedSSDel(name, set), RTNORM);
  EXPECT_EQ(acedSSMemb(name, set), RTERROR);
  EXPECT_EQ(acedSSName(set, 1, name), RTERROR);
  EXPECT_EQ(acedSSFree(set), RTNORM);
  EXPECT_EQ(acedSSFree(set), RTERROR);
  EXPECT_EQ(members(set), "no set");
}

TEST_F(EditorPicks, Filters) {
  struct Case {
    std::vector<std::pair<int, std::wstring>> groups;
    const char* expected;
  };
  const Case cases[] = {
      {{{0, L"line"}}, "40 70 71"},
      {{{0, L"~LINE"}}, "50 60"},
      {{{8, L"FRAME,HIDDEN"}}, "70 71"},
      {{{-4, L"<OR"}, {0, L"TEXT"}, {8, L"FRAME"}, {-4, L"OR>"}}, "50 70"},
      {{{-4, L"<NOT"}, {0, L"LINE"}, {-4, L"NOT>"}}, "50 60"},
      {{{-4, L"<NOT"}, {0, L"LINE"}}, "-5001"},
      {{{2, L"SY?"}}, "60"},
      {{{6, L"bylayer"}, {0, L"TEXT"}}, "50"},
  };
  EditorUser user(sheet());
  for (const Case& one : cases) {
    resbuf* list = nullptr;
    resbuf** tail = &list;
    for (const auto& [code, text] : one.groups) {
      *tail = acutNewRb(code);
      acutNewString(text.c_str(), (*tail)->resval.rstring);
      tail = &(*tail)->rbnext;
    }
    ads_name set;
    const int status = acedSSGet(L"X", nullptr, nullptr, list, set);
    EXPECT_EQ(status == RTNORM ? members(set) : std::to_string(status), one.expected);
    acutRelRb(list);
    if (status == RTNORM) acedSSFree(set);
  }
}

std::vector<std::string> seen;

BOOL swallowClicks(MSG* message) {
  return message->message == WM_LBUTTONDOWN ? TRUE : FALSE;
}

void watch(const MSG* message) {
  if (message->message != WM_MOUSEMOVE) return;
  ads_point world;
  const POINT pixel{static_cast<SHORT>(LOWORD(message->lParam)),
                    static_cast<SHORT>(HIWORD(message->lParam))};
  acedCoordFromPixelToWorld(acedGetWinNum(pixel.x, pixel.y), pixel, world);
  seen.push_back(std::to_string(world[0]) + "," + std::to_string(world[1]));
}

TEST_F(EditorPicks, HooksSeeThePointerAndMaySwallowIt) {
  EditorUser user(sheet());
  seen.clear();
  ASSERT_TRUE(acedRegisterWatchWinMsg(watch));
  EXPECT_FALSE(acedRegisterWatchWinMsg(watch));
  ASSERT_TRUE(acedRegisterFilterWinMsg(swallowClicks));
  user.run({"PICKONE", moveTo(12.345678, 0.1), click(50, 0), enter()});
  EXPECT_EQ(given, std::vector<std::string>{"error 52"});
  EXPECT_EQ(seen, (std::vector<std::string>{"12.345678,0.100000", "50.000000,0.000000"}));
  EXPECT_TRUE(acedRemoveFilterWinMsg(swallowClicks));
  EXPECT_TRUE(acedRemoveWatchWinMsg(watch));
  EXPECT_FALSE(acedRemoveWatchWinMsg(watch));
}

TEST(EditorHitTest, PlaneGeometry) {
  EXPECT_EQ(distanceToSegment({0, 3, 9}, {-5, 0, 0}, {5, 0, 0}), 3);
  EXPECT_EQ(distanceToSegment({9, 3, 0}, {-5, 0, 0}, {5, 0, 0}), 5);
  EXPECT_EQ(distanceToSegment({3, 4, 0}, {0, 0, 0}, {0, 0, 0}), 5);
  const std::vector<AcGePoint3d> square = {{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {0, 4, 0}, {0, 0, 0}};
  EXPECT_TRUE(insidePolygon({1, 2, 0}, square));
  EXPECT_FALSE(insidePolygon({5, 2, 0}, square));
}

}  // namespace
}  // namespace kovra::arx::test
