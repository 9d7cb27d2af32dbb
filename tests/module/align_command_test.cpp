// The align command as a user drives it: what it selects, what the dialog shows and keeps, where
// the texts come to stand, and what a cancel leaves.
#include <gtest/gtest.h>

#include <sstream>

#include "tests/module/command_test.h"
#include "tests/module/sheet.h"

namespace kovra::test {
namespace {

// Selected from top to bottom, whatever their order in the drawing.
const std::string kColumn = text("B", 5, 20) + text("A", 0, 30) + text("C", 2, 10);

/// Groups that put a text at its alignment point.
std::string at(int x, int y, const std::string& modes) {
  return "11 " + std::to_string(x) + ".0|21 " + std::to_string(y) + ".0|31 0.0|" + modes;
}

class AlignCommand : public CommandTest {
 protected:
  /// Runs the command on a drawing with these entities; `lines` begin with the selection.
  void align(const std::string& entities, const std::string& lines) {
    runOn(sheet(entities), lines);
  }
  void alignAll(const std::string& entities, const std::string& lines) {
    align(entities, "@preselect all\nKOVRA_TEXT_ALIGN\n" + lines);
  }
};

TEST_F(AlignCommand, TheThreeWaysInBothSpacings) {
  const std::string drag = "@click 4658\n";
  const std::string copy = "@click 4662\n";
  const std::string base = "@click 4659\n";
  const std::string pitch = "@click 4656\n@type 4654 ";
  const std::string gap = "@click 4657\n@type 4655 ";
  const std::string click = "@click 1\n@move 7,7\n@point 100,100";
  const std::string rotate = "@check 4639 on\n@type 4652 ";
  const std::string around = "@click 1\n@pick 5.5,21";
  const struct {
    std::string lines;
    std::string texts;  // B, A, C, as the drawing has them, then copies
  } cases[] = {
      {drag + pitch + "10\n" + click, "B@100,90 A@100,100 C@100,80"},
      {drag + pitch + "0\n" + click, "B@100,100 A@100,100 C@100,100"},
      {drag + pitch + "-4\n" + click, "B@100,104 A@100,100 C@100,108"},
      {drag + pitch + "x\n" + click, "B@100,100 A@100,100 C@100,100"},
      {drag + gap + "1\n" + click, "B@100,97 A@100,100 C@100,94"},
      {drag + gap + "-0.5\n" + click, "B@100,98.5 A@100,100 C@100,97"},
      // The order is that of the rotation before, the direction that of the one given.
      {drag + rotate + "90\n" + pitch + "10\n" + click, "B@110,100 A@100,100 C@120,100"},
      {drag + rotate + "180\n" + pitch + "10\n" + click, "B@100,110 A@100,100 C@100,120"},
      {drag + rotate + "-90\n" + pitch + "10\n" + click, "B@90,100 A@100,100 C@80,100"},
      {drag + "@check 4637 on\n@type 4650 4\n" + gap + "1\n" + click,
       "B@100,95 A@100,100 C@100,90"},
      {drag + "@check 4640 on\n@choose 4653 \"Top left\"\n" + gap + "1\n" + click,
       "B@100,97 A@100,100 C@100,94"},
      {base + pitch + "10\n" + around, "B@5,20 A@5,30 C@5,10"},
      {base + gap + "1\n" + around, "B@5,20 A@5,23 C@5,17"},
      {base + rotate + "90\n" + gap + "1\n" + around, "B@5,20 A@2,20 C@8,20"},
      // It runs downward also where a dragged column would run up.
      {base + rotate + "180\n" + pitch + "10\n" + around, "B@5,20 A@5,30 C@5,10"},
      {base + pitch + "x\n@click 1\n@pick 100,100\n@enter\n@pick 2.5,11", "B@2,10 A@2,10 C@2,10"},
      {copy + pitch + "10\n" + click, "B@5,20 A@0,30 C@2,10 A@100,100 B@100,90 C@100,80"},
      {copy + rotate + "90\n" + gap + "1\n" + click,
       "B@5,20 A@0,30 C@2,10 A@100,100 B@103,100 C@106,100"},
  };
  for (const auto& each : cases) {
    alignAll(kColumn, each.lines);
    EXPECT_EQ(texts(), each.texts) << each.lines;
    EXPECT_EQ(read("out.dxf").find("\n 60\n"), std::string::npos) << "all are shown again";
  }
}

TEST_F(AlignCommand, RotatedTextsStackInEveryQuadrant) {
  const struct {
    const char* degrees;
    std::string texts;
  } cases[] = {{"0", "B@100,90 A@100,100"},           {"90", "B@110,100 A@100,100"},
               {"91", "B@100,100 A@109.998,100.175"}, {"180", "B@100,100 A@100,110"},
               {"270", "B@100,100 A@90,100"},         {"271", "B@90.0015,99.8255 A@100,100"}};
  for (const auto& each : cases) {
    const std::string turned = std::string("50 ") + each.degrees + ".0";
    alignAll(text("B", 0, 20, turned) + text("A", 0, 30, turned), "@click 1\n@point 100,100");
    std::istringstream found(texts({4, 11, 12}));
    std::istringstream expected(each.texts);
    for (std::string name, wanted; found >> name && expected >> wanted;) {
      std::string value;
      double x = 0, y = 0, wantedX = 0, wantedY = 0;
      ASSERT_EQ(std::sscanf(name.c_str(), "%*[^,],%lf,%lf", &x, &y), 2) << name;
      ASSERT_EQ(std::sscanf(wanted.c_str(), "%*[^@]@%lf,%lf", &wantedX, &wantedY), 2);
      EXPECT_NEAR(x, wantedX, 0.001) << each.degrees << ' ' << name;
      EXPECT_NEAR(y, wantedY, 0.001) << each.degrees << ' ' << name;
    }
  }
}

TEST_F(AlignCommand, EachPropertyAlone) {
  const struct {
    const char* lines;
    const char* fields;  // layer, style, height, width factor, rotation, alignment
  } cases[] = {
      {"", "0,Standard,2,1,0,L"},
      {"@check 4635 on\n@choose 4648 KEPT\n", "KEPT,Standard,2,1,0,L"},
      {"@check 4636 on\n@choose 4649 STANDARD\n", "0,Standard,2,1,0,L"},
      {"@check 4637 on\n@type 4650 3.5\n", "0,Standard,3.5,1,0,L"},
      {"@check 4637 on\n@type 4650 -1\n", "0,Standard,2,1,0,L"},
      {"@check 4638 on\n@choose 4651 0.8\n", "0,Standard,2,0.8,0,L"},
      {"@check 4639 on\n@choose 4652 -90.0\n", "0,Standard,2,1,270,L"},
      {"@check 4640 on\n@choose 4653 \"Middle right\"\n", "0,Standard,2,1,0,MR"},
  };
  for (const auto& each : cases) {
    alignAll(text("A", 0, 0), std::string(each.lines) + "@click 1\n@point 0,0");
    EXPECT_EQ(texts({5, 6, 7, 8, 9, 10}), each.fields) << each.lines;
    EXPECT_EQ(texts(), "A@0,0");
  }
}

TEST_F(AlignCommand, ACancelLeavesEveryByte) {
  const std::string all =
      "@check 4635 on\n@choose 4648 KEPT\n@check 4637 on\n@type 4650 9\n"
      "@check 4640 on\n@choose 4653 Center\n";
  for (const char* way : {"@click 4658\n", "@click 4662\n"}) {
    for (const char* end : {"@esc", "@enter", "@move 5,5\n@move 60,70\n@esc", "@move 9,9\n@enter",
                            "@move 9,9\n@refused @save half.dxf\n@esc"}) {
      alignAll(kColumn, all + way + "@click 1\n" + end);
      EXPECT_TRUE(isUnchanged()) << way << end;
    }
  }
  for (const char* lines : {"@click 2", "@close", "@click 4659\n@click 1\n@esc",
                            "@click 4659\n@click 1\n@pick 60,60\n@enter\n@esc"}) {
    alignAll(kColumn, all + lines);
    EXPECT_TRUE(isUnchanged()) << lines;
  }
  align(kColumn, "KOVRA_TEXT_ALIGN\n@esc");
  EXPECT_TRUE(isUnchanged());
  EXPECT_EQ(result.out.find("Align Texts"), std::string::npos);
}

TEST_F(AlignCommand, OneStepOfUndo) {
  const std::string change = "@check 4637 on\n@type 4650 3\n@check 4640 on\n@choose 4653 Center\n";
  for (const char* way :
       {"@click 4658\n@click 1\n@move 3,3\n@point 50,50",
        "@click 4662\n@click 1\n@move 3,3\n@point 50,50", "@click 4659\n@click 1\n@pick 5.5,21"}) {
    alignAll(kColumn, change + way + "\n@save placed.dxf\nU\n@save undone.dxf\nREDO");
    EXPECT_EQ(read("undone.dxf"), read("in.dxf")) << way;
    EXPECT_EQ(read("out.dxf"), read("placed.dxf")) << way;
    EXPECT_NE(read("placed.dxf"), read("in.dxf")) << way;
  }
}

TEST_F(AlignCommand, TextsOnLockedLayersAreLeftOut) {
  std::string locked = text("L", 0, 40);
  locked.replace(locked.find("\n0\n", 3) + 1, 1, "LOCKED");
  alignAll(locked + kColumn, "@dialog\n@click 1\n@point 100,100");
  EXPECT_EQ(texts(), "L@0,40 B@100,90 A@100,100 C@100,80");
  EXPECT_TRUE(shows(4665, "Texts selected: 3")) << control(4665);
  // None is left: the prompt comes up, again and again.
  const std::string again = "@preselect -1,39 9,50\nKOVRA_TEXT_ALIGN\n@select -1,39 9,50\n@enter\n";
  align(locked + kColumn, again + "@select -1,29 9,35\n@enter\n@click 1\n@point 100,100");
  EXPECT_EQ(texts(), "L@0,40 B@5,20 A@100,100 C@2,10");
  align(locked + kColumn, again + "@esc");
  EXPECT_TRUE(isUnchanged());
}

TEST_F(AlignCommand, WhatTheDialogShowsOfTheSelection) {
  alignAll(text("A", 0, 30, "50 270.0") + text("B", 0, 20, "50 270.0"),
           "@check 4637 on\n@check 4639 on\n@check 4640 on\n@click 1\n@point 1,1\n"
           "@preselect all\nKOVRA_TEXT_ALIGN\n@dialog\n@click 2");
  EXPECT_TRUE(shows(4652, "\"-90.0000\"")) << control(4652);
  EXPECT_TRUE(shows(4650, "\"2.0000\"")) << control(4650);
  EXPECT_TRUE(shows(4653, "\"Left\"")) << control(4653);
  EXPECT_TRUE(shows(4654, "\"10\"") && shows(4655, "\"10\""));
  for (const int id : {4637, 4639, 4640, 4650, 4652, 4653, 4654, 4656, 4658, 4663}) {
    EXPECT_FALSE(shows(id, "disabled")) << control(id);
  }
  for (const int id : {4648, 4649, 4651, 4641, 4642, 4644, 4655, 4664}) {
    EXPECT_TRUE(shows(id, "disabled")) << control(id);
  }
  // Stored ticks don't count where the texts differ.
  std::string other = text("B", 0, 20, "72 1|" + at(0, 20, "50 30.0"));
  other.replace(other.find("\n2.0\n") + 1, 3, "2.5");
  alignAll(text("A", 0, 30) + other, "@dialog\n@click 2");
  for (const int id : {4650, 4652, 4653, 4643, 4645, 4646}) {
    EXPECT_TRUE(shows(id, "disabled")) << control(id);
  }
  EXPECT_TRUE(shows(4650, "\"1.5\"") && shows(4652, "\"0.0\"") && shows(4653, "\"Left\""));
}

TEST_F(AlignCommand, LockedLayersAreNoTarget) {
  const auto ok = [this](const std::string& lines) {
    alignAll(kColumn, lines + "@dialog\n@click 2");
    return !shows(1, "disabled");
  };
  EXPECT_TRUE(ok(""));
  EXPECT_FALSE(ok("@check 4635 on\n@choose 4648 LOCKED\n"));
  EXPECT_TRUE(ok("@check 4635 on\n@choose 4648 LOCKED\n@choose 4648 KEPT\n"));
  EXPECT_TRUE(ok("@check 4635 on\n@choose 4648 LOCKED\n@check 4635 off\n"));
}

TEST_F(AlignCommand, ValuesPickedFromTheDrawing) {
  const std::string model = groups(
      "0 TEXT|8 KEPT|10 50.0|20 50.0|30 0.0|40 4.0|41 0.7|1 M|50 90.0|72 2|" + at(50, 50, "73 1"));
  const auto pick = [&](const std::string& lines) {
    align(
        kColumn + model + groups("0 LINE|8 0|10 70.0|20 70.0|30 0.0|11 80.0|21 70.0|31 0.0"),
        "@preselect -1,5 9,35\nKOVRA_TEXT_ALIGN\n@check 4637 on\n" + lines + "\n@dialog\n@click 2");
    return shownTexts(4648, 4653);
  };
  const std::string before = "\"0\"\"STANDARD\"\"2.0000\"\"1.0000\"\"0.0000\"\"Left\"";
  EXPECT_EQ(pick("@click 4647\n@pick 48,49"),
            "\"KEPT\"\"STANDARD\"\"4.0000\"\"0.7000\"\"90.0000\"\"Bottom right\"");
  EXPECT_NE(result.out.find("take all properties from"), std::string::npos);
  // A click on nothing and one on something else ask again.
  EXPECT_EQ(pick("@click 4643\n@point 60,60\n@pick 75,70\n@pick 48,49"),
            "\"0\"\"STANDARD\"\"4.0000\"\"1.0000\"\"0.0000\"\"Left\"");
  EXPECT_EQ(pick("@click 4643\n@enter"), before);
  EXPECT_EQ(pick("@click 4647\n@point 60,60\n@esc"), before);
}

TEST_F(AlignCommand, MeasuredSpacings) {
  const auto measure = [this](const std::string& lines) {
    alignAll(kColumn, lines + "\n@dialog\n@click 2");
    return control(4654) + control(4655);
  };
  EXPECT_NE(measure("@click 4656\n@click 4663\n@point 0,0\n@point 3,4").find("5.0000"),
            std::string::npos);
  EXPECT_EQ(measure("@click 4656\n@click 4663\n@point 0,0\n@esc").find("5.0000"),
            std::string::npos);
  measure("@click 4657\n@click 4664\n@point 0,0\n@point 6,8");
  EXPECT_TRUE(shows(4655, "10.0000") && shows(4654, "\"10\"")) << control(4655);
}

TEST_F(AlignCommand, WhatTheDialogRemembers) {
  alignAll(kColumn,
           "@check 4635 on\n@check 4639 on\n@click 4657\n@type 4655 2.5\n@click 4659\n@place 40 "
           "50\n@click 1\n@esc");
  // A cancel keeps the place alone.
  alignAll(kColumn,
           "@check 4635 off\n@click 4656\n@type 4654 7\n@click 4658\n@place 60 70\n@click 2");
  alignAll(kColumn, "@dialog\n@click 2");
  for (const int id : {4635, 4639, 4657, 4659}) EXPECT_TRUE(shows(id, "on")) << control(id);
  EXPECT_TRUE(shows(4655, "\"2.5\"") && shows(4654, "\"10\"")) << control(4655);
  EXPECT_NE(result.out.find("at 60 70"), std::string::npos) << result.out;
}

}  // namespace
}  // namespace kovra::test
