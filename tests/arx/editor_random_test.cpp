// Long runs of reproducible random input: nothing crashes or hangs, the editor comes back to idle,
// and the drawing can be written and read again.
#include <gtest/gtest.h>

#include <random>

#include "platform/arx/editor/editor.h"
#include "platform/arx/editor/picks/jig.h"
#include "platform/dxf/record_store.h"
#include "tests/arx/editor_user.h"
#include "tests/arx/test_drawing.h"

namespace kovra::arx::test {
namespace {

std::string sheet() {
  std::string entities;
  for (int i = 0; i < 6; ++i)
    entities += lineEntity(0x100 + i, 10.0 * i, 0, 10.0 * i, 40, i % 2 == 0 ? "WIRES" : "FRAME");
  entities += textEntity(TextKind::kText, 1015, 0x200, {});
  return entities + textEntity(TextKind::kAttribute, 1015, 0x211, {});
}

void dragSomething() {
  ads_name set;
  ads_point point;
  if (acedSSGet(nullptr, nullptr, nullptr, nullptr, set) != RTNORM) return;
  acedDragGen(
      set, L"Drag: ", 0, [](ads_point, ads_matrix) { return RTNORM; }, point);
  acedCommandS(RTSTR, L"MOVE", RTPICKS, set, RTSTR, L"", RTPOINT, point, RTSTR, L"5,5", RTNONE);
  acedSSFree(set);
}

void jigSomething() {
  AcEdJig jig;
  jig.setDispPrompt(L"Place: ");
  jig.drag();
}

class RandomSteps {
 public:
  RandomSteps(EditorUser& user, unsigned seed) : user_(user), random_(seed) {}

  Step next() {
    static const char* const kLines[] = {
        "-LAYER", "N",      "NEW,OTHER", "LO",    "*",          "U",     "F",           "ON",
        "-STYLE", "Gothic", "txt",       "2.5",   "MOVE",       "ERASE", "all",         "r",
        "p",      "UNDO",   "BE",        "E",     "M",          "B",     "3",           "REDO",
        "U",      "UCS",    "Z 30",      "W",     "O 5,5",      "10,10", "@5<45",       "*1,2",
        "CLAYER", "WIRES",  "SETVAR",    "?",     "TEXTSIZE",   "0",     "ORTHOMODE 1", "",
        "DRAGIT", "JIGIT",  "nonsense",  "\"a b", "SNAPMODE 1", "REGEN", "y",           "non"};
    switch (pick(12)) {
      case 0:
        return click(pick(60), pick(60));
      case 1:
        return moveTo(pick(60), pick(60));
      case 2:
        return selectBox(pick(60), pick(60), pick(60), pick(60));
      case 3:
        return test::pick(0x100U + static_cast<unsigned>(pick(7)));
      case 4:
        return escape();
      case 5:
        return keys(std::wstring(static_cast<size_t>(pick(5)), L"\x08 aL,"[pick(5)]));
      case 6:
        return document();
      default:
        return kLines[pick(std::size(kLines))];
    }
  }

 private:
  int pick(size_t count) { return static_cast<int>(random_() % count); }

  /// Activates, opens or closes a drawing.
  Step document() {
    return Step([this] {
      const std::vector<host::DrawingInfo> open = host::drawings();
      const host::DrawingId id = open.empty() ? 0 : open[random_() % open.size()].id;
      if (open.size() < 2) {
        user_.open(sheet());
      } else if (pick(4) == 0) {
        static_cast<void>(host::closeDrawing(id).ok());
      } else {
        static_cast<void>(host::activateDrawing(id).ok());
      }
    });
  }

  EditorUser& user_;
  std::mt19937 random_;
};

TEST(EditorRandom, ComesBackToIdleAndSaves) {
  host::bindCommand(L"DRAGIT", dragSomething);
  host::bindCommand(L"JIGIT", jigSomething);
  for (unsigned seed = 1; seed <= 40; ++seed) {
    SCOPED_TRACE(seed);
    EditorUser user(sheet());
    RandomSteps random(user, seed);
    std::vector<Step> steps;
    for (int i = 0; i < 150; ++i) steps.push_back(random.next());
    const std::string shown = user.run(std::move(steps));
    EXPECT_EQ(host::topWait().kind, host::WaitKind::kNone);
    for (const host::DrawingInfo& drawing : host::drawings()) {
      ASSERT_TRUE(host::activateDrawing(drawing.id).ok()) << shown;
      EXPECT_TRUE(acDocManagerPtr()->curDocument()->isQuiescent());
      EXPECT_TRUE(dxf::RecordStore::fromBytes(user.bytes()).ok());
    }
  }
  host::unbindCommand(L"DRAGIT");
  host::unbindCommand(L"JIGIT");
}

}  // namespace
}  // namespace kovra::arx::test
