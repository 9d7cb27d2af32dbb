// Small drawings that stand for more than anybody can draw: what is done with them ends soon, what
// is beside them stays complete, and what was left out is said.
// Not under the sanitizers, which make a bounded run of a second one of minutes.
#ifndef __SANITIZE_ADDRESS__
#include "tests/host/drawings.h"
#include "tests/host/program.h"

namespace kovra::test {
namespace {

std::string insert(const std::string& block, double x, const std::string& groups = {}) {
  return "0\nINSERT\n8\n0\n2\n" + block + "\n10\n" + std::to_string(x) + "\n20\n0\n" + groups;
}

std::string array(const std::string& block, int columns, int rows) {
  return insert(
      block, 0,
      "70\n" + std::to_string(columns) + "\n71\n" + std::to_string(rows) + "\n44\n20\n45\n10\n");
}

/// Blocks B0, B1 ..., each with the next one so many times and a line; the groups turn or scale.
std::string chain(int blocks, int times, const std::string& groups) {
  std::string all = blockOf("B" + std::to_string(blocks), lineAt(0, "8\n0\n"));
  for (int i = 0; i < blocks; ++i) {
    std::string next;
    for (int n = 0; n < times; ++n) next += insert("B" + std::to_string(i + 1), n, groups);
    all += blockOf("B" + std::to_string(i), next + lineAt(0, "8\n0\n"));
  }
  return all;
}

/// Twelve blocks that each hold all of them.
std::string clique() {
  std::string inserts;
  for (int i = 0; i < 12; ++i) inserts += insert("B" + std::to_string(i), 1);
  std::string all;
  for (int i = 0; i < 12; ++i)
    all += blockOf("B" + std::to_string(i), inserts + lineAt(0, "8\n0\n"));
  return all;
}

class HeavyDrawingTest : public ProgramTest {
 protected:
  HeavyDrawingTest() {
    // Without bounds these runs take minutes to ages.
    limitTime(15);
  }
};

TEST_F(HeavyDrawingTest, EndsSoonAndSaysWhatIsLeftOut) {
  const std::string line = blockOf("LINE", lineAt(0, "8\n0\n"));
  std::string arrays;
  for (int i = 0; i < 500; ++i) arrays += array("LINE", 3000, 3000);
  const struct {
    const char* name;
    std::string blocks;
    std::string entities;
    int inPart;
  } cases[] = {
      {"each holds the next one twice", chain(41, 2, ""), insert("B0", 0), 1},
      {"the same turned", chain(41, 2, "50\n30\n"), insert("B0", 0), 1},
      {"the same, deep", chain(1000, 2, "50\n1\n"), insert("B0", 0), 1},
      {"one in another, deep", chain(1000, 1, ""), insert("B0", 0), 1},
      {"all in all", clique(), insert("B0", 0), 1},
      {"a block in itself", blockOf("B0", insert("B0", 1) + lineAt(0, "8\n0\n")), insert("B0", 0),
       0},
      {"the largest array", line, array("LINE", 32767, 32767), 1},
      {"an array of arrays", line + blockOf("B", array("LINE", 32767, 32767)),
       array("B", 32767, 32767), 1},
      {"many arrays", line, arrays, 500},
      {"a large array that a person might draw", line, array("LINE", 300, 100), 0},
  };
  for (const auto& one : cases) {
    SCOPED_TRACE(one.name);
    write("a.dxf", drawing(one.entities + lineAt(-50, "8\n0\n"), one.blocks));
    const ProgramRun plot = run({"plot", "a.dxf", "-o", "a.svg"});
    EXPECT_EQ(plot.status, 0) << plot.err;
    const std::string said = "drawn in part: " + std::to_string(one.inPart) + " INSERT: too many";
    EXPECT_EQ(plot.out.find(said) == 0, one.inPart > 0) << plot.out;
    EXPECT_EQ(plot.out.empty(), one.inPart == 0) << plot.out;
    const ProgramRun picks = runScript(
        "MOVE\n@pick 5,-50\n@pick 5,0\n@select 2000,-60 -10,60\n@select 2,-55 4,-45\n@esc\n",
        {"a.dxf"});
    EXPECT_EQ(picks.status, 0) << picks.err;
    EXPECT_NE(picks.out.find("1 found"), std::string::npos) << picks.out;
  }
}

// Where there is more than can be drawn, what lies under the pointer is found all the same.
TEST_F(HeavyDrawingTest, APickInOneOfThousandLargePartsFindsItsLines) {
  std::string lines;
  for (int i = 0; i < 2000; ++i) lines += lineAt(i * 0.005, "8\n0\n");
  std::string parts;
  for (int i = 0; i < 3000; ++i) parts += insert("PART", i * 20.0);
  write("a.dxf", drawing(parts, blockOf("PART", lines)));
  const ProgramRun picks = runScript("MOVE\n@select 20009,12 20008,-2\n@esc\n", {"a.dxf"});
  EXPECT_NE(picks.out.find("1 found"), std::string::npos) << picks.out;
  EXPECT_EQ(picks.out.find("in part"), std::string::npos) << picks.out;
}

// The copies of an array are looked for where the pointer is, its box follows from its corners.
TEST_F(HeavyDrawingTest, TheFarCornerOfAnArrayIsFoundAndShown) {
  write("a.dxf", drawing(array("LINE", 32767, 32767), blockOf("LINE", lineAt(0, "8\n0\n"))));
  const ProgramRun picks =
      runScript("SETVAR PICKBOX 0\nMOVE\n@pick 655325,327660\n@enter\n@esc\n", {"a.dxf"});
  EXPECT_EQ(picks.status, 0) << picks.err;
  EXPECT_NE(picks.out.find("1 found"), std::string::npos) << picks.out;
  EXPECT_EQ(picks.out.find("in part"), std::string::npos) << picks.out;
  EXPECT_EQ(run({"plot", "a.dxf", "-o", "a.svg"}).status, 0);
  // 655,330 by 327,660 units with a margin of 2 % of the longer side all round.
  EXPECT_NE(read("a.svg").find("width=\"1600\" height=\"831\""), std::string::npos);
}

}  // namespace
}  // namespace kovra::test
#endif
