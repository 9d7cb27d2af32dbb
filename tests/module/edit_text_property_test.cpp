// Sets of text properties: the dialog, the project's file of named sets, and what they do to texts.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <sstream>

#include "module/propedit/mtext_attachment.h"
#include "tests/module/command_test.h"
#include "tests/module/sheet.h"

namespace kovra::test {
namespace {

const std::string kCommand = "KOVRA_TEXT_EDITPROP\n";
const std::string kApplyToAll = "@click 1\n@select all\n@enter\n@enter\n";
const std::string kSetFile = "p/EditTextProperty.ini";

std::string paragraph(const std::string& further) {
  return groups("0 MTEXT|8 0|10 10.0|20 20.0|30 0.0|40 2.0|41 0.0|1 AB\\PC|" + further);
}

class EditTextProperty : public CommandTest {
 protected:
  EditTextProperty() { write("p/project.ini", "[Project]\nDataVersion=12.0\n"); }

  /// `lines` begin in the dialog.
  void edit(const std::string& entities, const std::string& lines, double dimensionScale = 1) {
    runOn(sheet(entities, dimensionScale), kCommand + lines, {"-p", "p"});
  }
  void inDialog(const std::string& lines) { edit("", lines + "@dialog\n@click 2"); }

  bool isEnabled(int id) const { return shows(id, " enabled "); }

  /// Group 10 and 20 of the first entity.
  static std::pair<double, double> position(const std::string& drawing) {
    const std::size_t start = drawing.find("\nENTITIES\n");
    const auto value = [&](const char* group) {
      return std::atof(drawing.c_str() + drawing.find(group, start) + 5);
    };
    return {value("\n 10\n"), value("\n 20\n")};
  }
};

TEST(MTextAttachment, RowsColumnsAndModes) {
  for (int from = 1; from <= 9; ++from) {
    int horizontal = -1;
    int vertical = -1;
    ASSERT_TRUE(ModesOfMTextAttachment(from, horizontal, vertical));
    EXPECT_EQ(MTextAttachmentOf(horizontal, vertical), from);
  }
  const int expected[4][4] = {{0, 7, 4, 1}, {0, 8, 5, 2}, {0, 9, 6, 3}, {0, 0, 0, 0}};
  for (int horizontal = 0; horizontal < 4; ++horizontal) {
    for (int vertical = 0; vertical < 4; ++vertical) {
      EXPECT_EQ(MTextAttachmentOf(horizontal, vertical), expected[horizontal][vertical]);
    }
  }
  EXPECT_EQ(MTextAttachmentOf(4, 0), 5);
  EXPECT_EQ(MTextAttachmentOf(4, 3), 5);
  AttachmentShift shift;
  ASSERT_TRUE(FindAttachmentShift(1, 9, shift));
  EXPECT_EQ(std::pair(shift.across, shift.down), std::pair(1.0, 1.0));
  ASSERT_TRUE(FindAttachmentShift(6, 4, shift));
  EXPECT_EQ(std::pair(shift.across, shift.down), std::pair(-1.0, 0.0));
  ASSERT_TRUE(FindAttachmentShift(8, 2, shift));
  EXPECT_EQ(std::pair(shift.across, shift.down), std::pair(0.0, -1.0));
  int mode = 7;
  for (const int none : {-1, 0, 10}) {
    EXPECT_FALSE(FindAttachmentShift(1, none, shift) || FindAttachmentShift(none, 1, shift));
    EXPECT_FALSE(ModesOfMTextAttachment(none, mode, mode));
  }
  EXPECT_EQ(mode, 7);
}

TEST_F(EditTextProperty, WhatTheControlsEnable) {
  inDialog("");
  EXPECT_FALSE(isEnabled(1) || isEnabled(1960) || isEnabled(1961) || isEnabled(1962));
  EXPECT_TRUE(isEnabled(1958) && isEnabled(2014));
  const struct {
    int check, value, pick;
  } rows[] = {{1967, 1978, 1953},
              {1968, 1932, 1954},
              {1969, 1933, 1955},
              {1970, 1934, 1956},
              {1971, 1982, 1957}};
  for (const auto& ticked : rows) {
    inDialog("@check " + std::to_string(ticked.check) + " on\n");
    EXPECT_TRUE(isEnabled(1)) << ticked.check;
    for (const auto& row : rows) {
      EXPECT_EQ(isEnabled(row.value), &row == &ticked) << row.value;
      EXPECT_EQ(isEnabled(row.pick), &row == &ticked) << row.pick;
    }
    inDialog("@check " + std::to_string(ticked.check) + " off\n");
    EXPECT_FALSE(isEnabled(1)) << ticked.check;
  }
  write(kSetFile, "[Settings\\b]\n[Foreign]\n[settings\\A]\n[Settings\\]\n[Settings\\c]\n");
  const struct {
    const char* lines;
    bool load, save;
  } names[] = {{"@type 4440 x\n", false, true},
               {"@type 4440 B\n", true, true},
               {"@type 4440 \"\"\n", false, false},
               {"@choose 4440 c\n", true, true}};
  for (const auto& row : names) {
    inDialog(row.lines);
    EXPECT_TRUE(isEnabled(1960) == row.load && isEnabled(1962) == row.load) << row.lines;
    EXPECT_EQ(isEnabled(1961), row.save) << row.lines;
  }
  EXPECT_TRUE(shows(4440, R"("c" #2 of "A" "b" "c")")) << control(4440);
}

TEST_F(EditTextProperty, NamedSets) {
  const std::string others = "\xEF\xBB\xBF; by hand\r\n[Foreign]\r\nHeight=1\r\n\r\n# kept\r\n\r\n";
  const std::string longest(247, 'n');
  const struct {
    std::string name;
    bool stored;
  } names[] = {
      {"wire", true},    {"配線", true},  {"the \"best\"", true}, {"a[b", true},
      {"a\\b=;c", true}, {longest, true}, {longest + "n", false}, {std::string(300, 'n'), false},
      {"a]b [c]", true}, {"a ", false}};
  for (const auto& each : names) {
    std::string quoted;
    for (const char c : each.name)
      quoted += (c == '"' || c == '\\' ? "\\" : "") + std::string(1, c);
    write(kSetFile, others);
    inDialog(
        "@check 1968 on\n@type 1932 3.50\n@check 1971 on\n@choose 1982 \"Middle (M)\"\n"
        "@check 2014 off\n@type 4440 \"" +
        quoted + "\"\n@click 1961\n");
    const std::string section = "[Settings\\" + each.name +
                                "]\r\nLayer=0\r\nTextStyle=Standard\r\nHeight=3.50\r\n"
                                "WidthFactor=1.0\r\nRotation=0\r\nHorizontalMode=4\r\n"
                                "VerticalMode=0\r\nRefScale=0\r\nMask=36\r\n";
    EXPECT_EQ(read(kSetFile), each.stored ? others + section : others);
    EXPECT_EQ(result.out.find("couldn't be saved") == std::string::npos, each.stored) << each.name;
    EXPECT_EQ(isEnabled(1960), each.stored) << each.name;
    if (!each.stored) continue;
    inDialog("@type 1932 9\n@check 1968 off\n@choose 1982 Left\n@click 1960\n");
    EXPECT_TRUE(shows(1932, "\"3.50\"") && shows(1982, "\"Middle (M)\"") && shows(1968, " on "));
    inDialog("@answer no\n@click 1962\n");
    EXPECT_EQ(read(kSetFile), others + section);
    inDialog("@answer yes\n@click 1962\n");
    EXPECT_EQ(read(kSetFile), others) << each.name;
    EXPECT_TRUE(shows(4440, "\"\"") && !isEnabled(1961)) << control(4440);
  }
}

TEST_F(EditTextProperty, ReplacingAsksFirst) {
  const std::string before = "[Settings\\Wire]\n; note\nHeight=2\nMask=4\n\n[Settings\\Z]\n";
  write(kSetFile, before);
  inDialog("@check 1968 on\n@type 1932 4\n@type 4440 WIRE\n@answer no\n@click 1961\n");
  EXPECT_EQ(read(kSetFile), before);
  EXPECT_NE(result.out.find("The text properties \"WIRE\" exist already"), std::string::npos);
  inDialog("@check 1968 on\n@type 1932 4\n@type 4440 WIRE\n@answer yes\n@click 1961\n");
  EXPECT_EQ(read(kSetFile),
            "[Settings\\Wire]\n; note\nHeight=4\nMask=4\nLayer=0\nTextStyle=Standard\n"
            "WidthFactor=1.0\nRotation=0\nHorizontalMode=0\nVerticalMode=0\nRefScale=1\n\n"
            "[Settings\\Z]\n");
}

TEST_F(EditTextProperty, FilesThatCanNotBeUsed) {
  const auto save = [this] { inDialog("@type 4440 x\n@click 1961\n"); };
  const auto wasRefused = [this] {
    return result.out.find("couldn't be saved") != std::string::npos;
  };
  save();
  EXPECT_FALSE(wasRefused());
  EXPECT_EQ(read(kSetFile).find("[Settings\\x]\nLayer=0\n"), 0u) << "a missing file is made";
  const std::string damaged("\xFF\xFE[\0", 4);
  write(kSetFile, damaged);
  save();
  EXPECT_TRUE(wasRefused());
  EXPECT_EQ(read(kSetFile), damaged);
  std::filesystem::remove(path(kSetFile));
  std::filesystem::create_directory(path(kSetFile));
  save();
  EXPECT_TRUE(wasRefused());
  runOn(sheet(""), kCommand + "@type 4440 x\n@click 1961\n@click 2");
  EXPECT_TRUE(wasRefused()) << "there is no project";
}

TEST_F(EditTextProperty, KeysThatAreMissingOrWrongLeaveTheirFields) {
  write(kSetFile,
        "[Settings\\odd]\nLayer=NOSUCH\nHeight=abc\nHorizontalMode=3\nVerticalMode=4\n"
        "RefScale=-1\nMask=251\n");
  inDialog(
      "@check 1971 on\n@choose 1982 \"Top right\"\n@check 1967 on\n@choose 1978 KEPT\n"
      "@check 2014 off\n@choose 4440 odd\n@click 1960\n");
  EXPECT_TRUE(shows(1978, "\"KEPT\"") && shows(1932, "\"abc\"") && shows(1933, "\"1.0\""));
  EXPECT_TRUE(shows(1982, "\"Top right\"") && shows(2014, " on ")) << control(1982);
  for (const int check : {1967, 1969, 1970, 1971}) EXPECT_TRUE(shows(check, " on ")) << check;
  EXPECT_TRUE(shows(1968, " off "));
}

TEST_F(EditTextProperty, EachPropertyOfEachKind) {
  const std::string entities = text("A", 5, 6) + paragraph("71 1");
  const struct {
    std::string lines;
    std::string text, paragraph;  // layer, height, width factor, rotation, alignment
  } cases[] = {
      {"@check 1967 on\n@choose 1978 KEPT\n", "KEPT,2,1,0,L", "KEPT,2,,0,TL"},
      {"@check 1968 on\n@type 1932 2.5\n", "0,25,1,0,L", "0,25,,0,TL"},
      {"@check 1968 on\n@type 1932 2.5\n@check 2014 off\n", "0,2.5,1,0,L", "0,2.5,,0,TL"},
      {"@check 1969 on\n@type 1933 0.7\n", "0,2,0.7,0,L", "0,2,,0,TL"},
      {"@check 1970 on\n@type 1934 -90\n", "0,2,1,270,L", "0,2,,270,TL"},
      {"@check 1971 on\n@choose 1982 \"Bottom right\"\n", "0,2,1,0,BR", "0,2,,0,BR"},
      {"@check 1971 on\n@choose 1982 \"Middle (M)\"\n", "0,2,1,0,M", "0,2,,0,MC"},
      {"@check 1971 on\n@choose 1982 Right\n", "0,2,1,0,R", "0,2,,0,TL"},
      // What is refused ends there: neither the height nor anything behind it.
      {"@check 1968 on\n@type 1932 x\n@check 1970 on\n@type 1934 9\n", "0,2,1,0,L", "0,2,,0,TL"},
  };
  for (const auto& each : cases) {
    std::filesystem::remove(path(".state"));
    edit(entities, each.lines + kApplyToAll + "@save done.dxf\nU\n@save undone.dxf\nREDO", 10);
    EXPECT_EQ(texts({5, 7, 8, 9, 10}), each.text + ' ' + each.paragraph) << each.lines;
    EXPECT_EQ(read("undone.dxf"), read("in.dxf")) << each.lines;
    EXPECT_EQ(read("done.dxf"), read("out.dxf")) << each.lines;
  }
}

TEST_F(EditTextProperty, TextsKeepTheirPosition) {
  std::string lines = "@check 1971 on\n@click 2\n";
  std::vector<std::string> saved;
  for (const int stride : {1, 5, 9}) {
    for (int row = 0; row < 13; ++row) {
      saved.push_back("s" + std::to_string(saved.size()) + ".dxf");
      lines += kCommand + "@choose 1982 #" + std::to_string(row * stride % 13) + '\n' +
               kApplyToAll + "@save " + saved.back() + '\n';
    }
  }
  edit(text("Ag", 5, 6, "50 30.0"), lines);
  for (const std::string& file : saved) {
    const auto [x, y] = position(read(file));
    EXPECT_NEAR(x, 5, 1e-9) << file;
    EXPECT_NEAR(y, 6, 1e-9) << file;
  }
}

TEST_F(EditTextProperty, ParagraphsKeepTheirPlace) {
  const auto moved = [this](const std::string& further) {
    edit(paragraph(further), "@check 1971 on\n@choose 1982 \"Bottom right\"\n" + kApplyToAll +
                                 "@save there.dxf\n" + kCommand + "@choose 1982 \"Top left\"\n" +
                                 kApplyToAll);
    const auto [x, y] = position(read("out.dxf"));
    EXPECT_NEAR(x, 10, 1e-9);
    EXPECT_NEAR(y, 20, 1e-9);
    const auto [thereX, thereY] = position(read("there.dxf"));
    return std::pair(thereX - 10, thereY - 20);
  };
  const auto [width, height] = moved("71 1");
  EXPECT_TRUE(width > 1 && height < -4) << width << ' ' << height;
  const auto [turnedX, turnedY] = moved("71 1|50 90.0");
  EXPECT_NEAR(turnedX, -height, 1e-9);
  EXPECT_NEAR(turnedY, width, 1e-9);
}

TEST_F(EditTextProperty, LockedLayersAreReachedAndComeBack) {
  const std::string lines = "-LAYER\nF\nFRAME\nOFF\nKEPT\n\n@save before.dxf\n" + kCommand +
                            "@check 1968 on\n@type 1932 7\n" + kApplyToAll;
  std::string locked = text("L", 0, 40);
  locked.replace(locked.find("\n0\n", 3) + 1, 1, "LOCKED");
  runOn(sheet(locked), lines, {"-p", "p"});
  EXPECT_EQ(changedLines(read("before.dxf"), read("out.dxf")),
            (std::vector<std::string>{"-2.0", "+7.0"}));
}

TEST_F(EditTextProperty, ALayerThatTheDrawingLacksSetsNothing) {
  write(kSetFile, "[Settings\\s]\nLayer=NOSUCH\nHeight=9\nMask=5\n");
  // The combo box has no item of the name, so the set's layer is what it showed before.
  edit(text("A", 0, 0), "@choose 4440 s\n@click 1960\n" + kApplyToAll);
  EXPECT_EQ(texts({5, 7}), "0,9");
}

TEST_F(EditTextProperty, SelectionAfterSelection) {
  edit(text("A", 0, 0) + text("B", 50, 0) + text("C", 100, 0),
       "@check 1968 on\n@type 1932 5\n@click 1\n@select -1,-1 9,9\n@enter\n@select 99,-1 120,9\n"
       "@enter\n@esc");
  EXPECT_EQ(texts({4, 7}), "A,5 B,2 C,5");
  edit(text("A", 0, 0), "@click 1958\n@closedrawing\n@open in.dxf\n" + kCommand +
                            "@check 1968 on\n@click 1\n@select all\n@closedrawing\n@open in.dxf");
  EXPECT_TRUE(isUnchanged());
}

TEST_F(EditTextProperty, ValuesPickedFromTheDrawing) {
  const std::string model = groups(
      "0 TEXT|8 KEPT|10 50.0|20 50.0|30 0.0|40 4.0|41 0.7|1 M|50 90.0|72 2|11 50.0|21 50.0|31 0.0|"
      "73 1");
  const std::string fitted =
      groups("0 TEXT|8 KEPT|10 70.0|20 50.0|30 0.0|40 4.0|41 0.7|1 M|72 5|11 74.0|21 50.0|31 0.0");
  const std::string all = model + fitted + paragraph("71 8|50 45.0") +
                          groups("0 LINE|8 0|10 70.0|20 70.0|30 0.0|11 80.0|21 70.0|31 0.0");
  const std::string ticks =
      "@check 1967 on\n@check 1968 on\n@check 1969 on\n@check 1970 on\n@check 1971 on\n"
      "@type 4440 mine\n";
  const std::string before = R"("0""2.5""1.0""0""Left")";
  const struct {
    std::string lines;
    std::string values;
  } cases[] = {
      {"@click 1958\n@pick 48,49", R"("KEPT""4.0000""0.7000""90.0000""Bottom right")"},
      {"@click 1953\n@pick 48,49", R"("KEPT""2.5""1.0""0""Left")"},
      {"@click 1954\n@point 60,60\n@pick 75,70\n@pick 48,49", R"("0""4.0000""1.0""0""Left")"},
      {"@click 1955\n@pick 48,49", R"("0""2.5""0.7000""0""Left")"},
      {"@click 1956\n@pick 48,49", R"("0""2.5""1.0""90.0000""Left")"},
      {"@click 1957\n@pick 48,49", R"("0""2.5""1.0""0""Bottom right")"},
      // Fit isn't offered; a multi-line text has no width factor.
      {"@choose 1982 \"Top right\"\n@click 1957\n@pick 72,51", R"("0""2.5""1.0""0""Right")"},
      {"@click 1958\n@pick 9.3,20.7", R"("0""2.0000""1.0""45.0000""Bottom center")"},
      {"@click 1958\n@enter", before},
      {"@click 1958\n@point 60,60\n@esc", before},
  };
  for (const auto& each : cases) {
    std::filesystem::remove(path(".state"));
    edit(all, ticks + each.lines + "\n@dialog\n@click 2");
    std::string values;
    for (const int id : {1978, 1932, 1933, 1934, 1982}) {
      const std::string line = control(id);
      const std::size_t from = line.find('"');
      values += line.substr(from, line.find('"', from + 1) - from + 1);
    }
    EXPECT_EQ(values, each.values) << each.lines;
    EXPECT_TRUE(shows(4440, "\"mine\"")) << each.lines;
    EXPECT_TRUE(isUnchanged()) << each.lines;
  }
  EXPECT_EQ(result.out.find("wrong kind"), std::string::npos);
}

TEST_F(EditTextProperty, WhatTheDialogRemembers) {
  inDialog(
      "@check 1968 on\n@type 1932 7\n@check 1967 on\n@choose 1978 KEPT\n@check 2014 off\n"
      "@type 4440 note\n@place 40 50 700 900\n");
  EXPECT_NE(result.out.find("at 40 50 size 700 414"), std::string::npos) << result.out;
  inDialog("");
  EXPECT_NE(result.out.find("at 40 50 size 700 414"), std::string::npos) << result.out;
  EXPECT_TRUE(shows(1932, "\"7\"") && shows(1978, "\"KEPT\"") && shows(4440, "\"note\""));
  EXPECT_TRUE(shows(1967, " on ") && shows(2014, " off ") && shows(1969, " off ") && isEnabled(1));
  inDialog("@place 1 1 10 10\n");
  EXPECT_NE(result.out.find("at 1 1 size 397 414"), std::string::npos) << result.out;
}

}  // namespace
}  // namespace kovra::test
