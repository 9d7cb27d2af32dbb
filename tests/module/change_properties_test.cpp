// The change-properties command as a user drives it: what the dialog shows, which groups change,
// where the texts come to stand, what is picked, and what a refusal leaves.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/module/command_test.h"
#include "tests/module/sheet.h"

namespace kovra::test {
namespace {

using Lines = std::vector<std::string>;

const std::string kStart = "@preselect all\nKOVRA_TEXT_PROPERTIES\n";
const std::string kOk = "@click 1";

/// The sheet with one text style more.
std::string sheetWithStyles(const std::string& entities) {
  std::string drawing = sheet(entities);
  const std::size_t place = drawing.find("  0\nENDTAB", drawing.find("STYLE\n"));
  return drawing.insert(place,
                        groups("0 STYLE|2 TALL|70 0|40 0.0|41 1.0|50 0.0|71 0|42 2.5|3 txt|4"));
}

std::string onLayer(std::string entity, const std::string& layer) {
  return entity.replace(entity.find("\n0\n", 3) + 1, 1, layer);
}

class ChangeProperties : public CommandTest {
 protected:
  ChangeProperties() { project("12.0"); }
  void project(const std::string& version) const {
    write("p/project.ini", "[Project]\nDataVersion=" + version + "\n");
  }
  void change(const std::string& entities, const std::string& lines) {
    runOn(sheetWithStyles(entities), kStart + lines, {"-p", "p"});
  }
  /// What changed in the entities; of lines that came in addition only these.
  Lines changes() const {
    const auto entities = [this](const char* file) {
      const std::string drawing = read(file);
      return drawing.substr(drawing.find("ENTITIES\n"));
    };
    const std::string before = entities("in.dxf");
    const std::string after = entities("out.dxf");
    const auto lines = [](const std::string& text) {
      return std::count(text.begin(), text.end(), '\n');
    };
    if (lines(before) == lines(after)) return changedLines(before, after);
    const auto same = std::mismatch(before.begin(), before.end(), after.begin()).first;
    const std::size_t from =
        before.rfind('\n', static_cast<std::size_t>(same - before.begin())) + 1;
    std::istringstream added(after.substr(from, after.size() - before.size()));
    Lines all;
    for (std::string line; std::getline(added, line);) all.push_back('+' + line);
    return all;
  }

  /// The points of group 10 of all texts, one after another.
  std::vector<double> positions(const std::string& file) const {
    std::istringstream lines(read(file));
    std::vector<double> numbers;
    bool inText = false;
    for (std::string code, value; std::getline(lines, code) && std::getline(lines, value);) {
      if (code == "  0") inText = value == "TEXT";
      if (inText && (code == " 10" || code == " 20")) numbers.push_back(std::stod(value));
    }
    return numbers;
  }
};

TEST_F(ChangeProperties, EveryRowOfTheGroups) {
  const std::string layer = "@check 1967 on\n@choose 1978 ";
  const std::string style = "@check 1968 on\n@type 1979 ";
  const std::string height = "@check 1969 on\n@type 1980 ";
  const std::string width = "@check 1970 on\n@type 1981 ";
  const std::string rotation = "@check 1971 on\n@type 1982 ";
  const std::string alignment = "@check 1972 on\n@choose 1983 ";
  const struct {
    std::string further;
    std::string lines;
    Lines changed;
    bool counts = false;  // as changed, though the file is the same
  } cases[] = {
      {"", layer + "KEPT", {"-0", "+KEPT"}},
      {"", layer + "\"<Current layer>\"", {}},
      {"", "@check 1967 on\n@type 1978 NEW-ONE", {"-0", "+NEW-ONE"}},
      {"7 standard", style + "Standard", {}},
      {"7 STANDARD", style + "TALL", {"-STANDARD", "+TALL"}},
      {"7 TALL", style + "STANDARD", {"-TALL", "+STANDARD"}},
      {"", style + "standard", {}},
      {"", style + "TALL", {"+  7", "+TALL"}},
      {"", style + "NOSUCH", {}},
      {"", height + "3.5", {"-2.0", "+3.5"}},
      {"", height + "2.00009", {}},
      {"", height + "2.0002", {"-2.0", "+2.0002"}},
      {"", height + "0", {}},
      {"", height + "tall", {}},
      {"41 0.7", width + "1", {"-0.7", "+1.0"}},
      {"", width + "1.00009", {}},
      {"", width + "0.8", {"+ 41", "+0.8"}},
      {"50 30.0", rotation + "30.005", {}},
      {"50 30.0", rotation + "0", {"-30.0", "+0.0"}},
      {"", rotation + "0.005", {}},
      {"", rotation + "90", {"+ 50", "+90.0"}},
      // The drawing keeps angles from 0 to a full turn.
      {"50 270.0", rotation + "-90", {}, true},
      {"", alignment + "Left", {}, true},
      {"72 0|73 0", alignment + "Left", {}},
      {"72 1|11 9.0|21 8.0|31 0.0|73 2", alignment + "\"Middle center\"", {}},
      // A ticked field without a text leaves its property alone.
      {"50 30.0", height + "\"\"\n" + rotation + "\"\"\n" + layer + "KEPT", {"-0", "+KEPT"}},
  };
  for (const auto& each : cases) {
    change(text("A", 1, 2, each.further), each.lines + '\n' + kOk);
    EXPECT_EQ(changes(), each.changed) << each.further << '\n' << each.lines;
    EXPECT_EQ(said("Regenerating"), each.counts || !each.changed.empty()) << each.lines;
  }
}

TEST_F(ChangeProperties, ATextKeepsItsPlaceInEveryAlignment) {
  const std::string point = "|11 30.0|21 40.0|31 0.0";
  const std::string old = text("LEFT", 1, 2, "50 30.0") + text("TOP", 20, 38, "72 2|73 3" + point) +
                          text("FIT", 5, 6, "72 5" + point) + text("ALIGNED", 5, 9, "72 3" + point);
  const char* const names[] = {"L",  "C",  "R",  "M",  "TL", "TC", "TR",
                               "ML", "MC", "MR", "BL", "BC", "BR"};
  for (int i = 0; i < 13; ++i) {
    const std::string lines = "@check 1972 on\n@choose 1983 #" + std::to_string(i) + '\n';
    change(old, lines + "@check 1969 on\n@type 1980 3\n" + kOk);
    const std::vector<double> before = positions("in.dxf");
    const std::vector<double> after = positions("out.dxf");
    ASSERT_EQ(before.size(), after.size());
    for (std::size_t n = 0; n < before.size(); ++n) {
      EXPECT_NEAR(before[n], after[n], 1e-9) << names[i] << ' ' << n;
    }
    const std::string name = std::string("3,") + names[i];
    EXPECT_EQ(texts({7, 10}), name + ' ' + name + ' ' + name + ' ' + name);
    change(old, lines + kOk + "\nU");
    EXPECT_TRUE(isUnchanged()) << names[i];
  }
}

TEST_F(ChangeProperties, OneStepOfUndo) {
  std::string many;
  for (int i = 0; i < 1000; ++i) many += text("T", i % 40, i, i % 2 == 0 ? "" : "50 90.0");
  change(
      many,
      "@check 1967 on\n@choose 1978 KEPT\n@check 1969 on\n@choose 1980 3.0\n@check 1971 on\n@type "
      "1982 45\n@check 1972 on\n@choose 1983 Center\n@click 1\n@save done.dxf\nU\n@save "
      "undone.dxf\nREDO");
  EXPECT_TRUE(read("undone.dxf") == read("in.dxf"));
  EXPECT_TRUE(read("out.dxf") == read("done.dxf"));
  EXPECT_EQ(texts({5, 7, 9, 10}).find("0,2"), std::string::npos);
}

TEST_F(ChangeProperties, WhatTheTextsHaveInCommon) {
  const std::string stored = "@check 1967 on\n@check 1969 on\n@check 1971 on\n@check 1972 on\n";
  const struct {
    std::string entities;
    const char* values;
    const char* ticks;  // of what is stored
  } cases[] = {
      {text("A", 0, 0, "50 270.0|41 0.70") + text("B", 0, 9, "41 0.7|50 270.0"),
       R"("0""STANDARD""2.0""0.7""-90.0""Left")", "1 1 11"},
      {text("A", 0, 0, "7 standard|72 3|11 9.0|21 0.0|31 0.0") + text("B", 0, 9, "50 180.0"),
       R"("0""STANDARD""2.0""1.0""""Left")", "1 1  1"},
      {text("A", 0, 0, "72 4|11 9.0|21 0.0|31 0.0|73 3|50 181.0"),
       R"("0""STANDARD""2.0""1.0""-179""Middle center")", "1 1 11"},
      {text("A", 0, 0) +
           onLayer(text("B", 0, 9, "7 TALL|41 2.0|72 2|11 9.0|21 0.0|31 0.0"), "KEPT"),
       R"("""""2.0""""0.0""")", "  1 1 "},
  };
  for (const auto& each : cases) {
    change(text("A", 0, 0), stored + "@click 2");
    change(each.entities, "@dialog\n@click 2");
    EXPECT_EQ(shownTexts(1978, 1983), each.values) << each.entities;
    std::string ticks;
    for (int id = 1967; id <= 1972; ++id) {
      ticks += shows(id, " on ") ? '1' : ' ';
      EXPECT_EQ(shows(id + 11, "disabled"), ticks.back() == ' ') << control(id + 11);
      EXPECT_EQ(shows(id - 14, "disabled"), ticks.back() == ' ') << control(id - 14);
    }
    EXPECT_EQ(ticks, each.ticks);
  }
  EXPECT_TRUE(shows(1978, R"(of "0" "FRAME" "KEPT" "LOCKED" "<Current layer>")")) << control(1978);
}

TEST_F(ChangeProperties, OkNeedsSomethingToDoAndAnOpenLayer) {
  const struct {
    std::string lines;
    bool enabled;
  } cases[] = {
      {"", false},
      {"@check 1969 on\n", true},
      {"@check 1969 on\n@type 1980 \"  \"\n", false},
      {"@check 1969 on\n@check 1969 off\n", false},
      {"@check 1967 on\n@choose 1978 LOCKED\n", false},
      {"@check 1967 on\n@type 1978 \"locked \"\n", false},
      {"@check 1969 on\n@check 1967 on\n@choose 1978 LOCKED\n", false},
      {"@check 1969 on\n@check 1967 on\n@choose 1978 LOCKED\n@check 1967 off\n", true},
      {"@check 1967 on\n@choose 1978 \"<Current layer>\"\n", true},
  };
  for (const auto& each : cases) {
    std::error_code ignored;
    std::filesystem::remove(path(".state"), ignored);
    change(text("A", 0, 0), each.lines + "@dialog\n@click 2");
    EXPECT_EQ(!shows(1, "disabled"), each.enabled) << each.lines;
  }
  runOn(sheet(text("A", 0, 0)),
        "CLAYER\nLOCKED\n" + kStart + "@check 1967 on\n@choose 1978 #4\n@dialog\n@click 2",
        {"-p", "p"});
  EXPECT_TRUE(shows(1, "disabled"));
}

TEST_F(ChangeProperties, ValuesPickedFromTheDrawing) {
  const std::string model = onLayer(
      text("M", 50, 50, "7 TALL|41 0.75|50 270.0|72 2|11 50.0|21 50.0|31 0.0|73 1"), "KEPT");
  const std::string others =
      onLayer(text("L", 80, 80), "LOCKED") +
      blockReference(groups("0 ATTRIB|8 KEPT|10 20.0|20 90.0|30 0.0|40 4.0|1 M1|2 TAG|70 0|72 2|11 "
                            "22.0|21 90.0|31 0.0|74 3")) +
      groups("0 LINE|8 0|10 70.0|20 70.0|30 0.0|11 80.0|21 70.0|31 0.0");
  const std::string before = R"("0""STANDARD""2.0""1.0""0.0""Left")";
  const std::string all = R"("KEPT""TALL""2.0""0.75""-90.0""Bottom right")";
  const struct {
    std::string lines;
    std::string values;
    const char* said;
  } cases[] = {
      {"@click 1959\n@pick 51,50.5", all, "take all properties from"},
      {"@check 1967 on\n@click 1953\n@pick 51,50.5", R"("KEPT""STANDARD""2.0""1.0""0.0""Left")",
       "take the layer from"},
      {"@check 1968 on\n@click 1954\n@pick 51,50.5", R"("0""TALL""2.0""1.0""0.0""Left")",
       "take the text style from"},
      {"@check 1969 on\n@click 1955\n@pick 20.5,88", R"("0""STANDARD""4.0""1.0""0.0""Left")",
       "take the height from"},
      {"@check 1970 on\n@click 1956\n@pick 51,50.5", R"("0""STANDARD""2.0""0.75""0.0""Left")",
       "take the width factor from"},
      {"@check 1971 on\n@click 1957\n@pick 51,50.5", R"("0""STANDARD""2.0""1.0""-90.0""Left")",
       "take the rotation from"},
      {"@check 1972 on\n@click 1958\n@pick 20.5,88", R"("0""STANDARD""2.0""1.0""0.0""Top right")",
       "take the justification from"},
      // A miss asks again; other entities, Enter and Esc leave everything.
      {"@click 1959\n@point 60,60\n@pick 51,50.5", all, ""},
      {"@click 1959\n@pick 75,70", before, ""},
      {"@click 1959\n@enter", before, ""},
      {"@click 1959\n@point 60,60\n@esc", before, ""},
      {"@check 1967 on\n@click 1959\n@pick 80.5,81", before, R"(Layer "LOCKED" is locked.)"},
      {"@click 1959\n@pick 80.5,81", before, ""},
  };
  for (const auto& each : cases) {
    std::error_code ignored;
    std::filesystem::remove(path(".state"), ignored);
    runOn(sheetWithStyles(text("A", 0, 0) + model + others),
          "SNAPMODE\n1\n@preselect -1,-1 9,9\nKOVRA_TEXT_PROPERTIES\n" + each.lines +
              "\n@dialog\n@click 2\n@show SNAPMODE",
          {"-p", "p"});
    EXPECT_EQ(shownTexts(1978, 1983), each.values) << each.lines;
    EXPECT_TRUE(said(each.said) && said("SNAPMODE=1")) << result.out;
    EXPECT_EQ(said("is locked"), each.lines.find("1967 on\n@click 1959") != std::string::npos);
    EXPECT_TRUE(isUnchanged()) << each.lines;
  }
}

TEST_F(ChangeProperties, TextsThatCantBeChangedAreCountedAndLeft) {
  const std::string entities =
      text("A", 0, 0) + onLayer(text("B", 0, 9), "LOCKED") + attribute("N");
  const std::string all = "@check 1969 on\n@type 1980 3\n@check 1972 on\n@choose 1983 Center\n";
  change(entities, all + kOk);
  EXPECT_EQ(texts({4, 7, 10}).substr(0, 15), "A,3,C B,2,L M1,") << texts({4, 7, 10});
  EXPECT_TRUE(said("couldn't be changed: 1\n") && said("Regenerating")) << result.out;
  EXPECT_FALSE(said("_.move"));
  change(text("A", 0, 0), "@check 1969 on\n@type 1980 -2\n" + kOk);
  EXPECT_TRUE(isUnchanged() && said("couldn't be changed: 1\n") && !said("Regenerating"));
}

TEST_F(ChangeProperties, WhatEndsItBeforeTheDialog) {
  const std::string drawing = sheet(text("A", 0, 0));
  runOn(drawing, kStart);
  EXPECT_TRUE(said("data version of the project doesn't allow"));
  project("6.9");
  runOn(drawing, kStart, {"-p", "p"});
  EXPECT_TRUE(said("data version of the project doesn't allow"));
  project("7.00");
  for (const char* lines : {"KOVRA_TEXT_PROPERTIES\n@enter", "KOVRA_TEXT_PROPERTIES\n@esc"}) {
    runOn(drawing, lines, {"-p", "p"});
    EXPECT_TRUE(said("Select texts: ") && !said("template 525"));
  }
  // Lines and attributes are no texts: with nothing else selected the prompt comes.
  runOn(sheet(blockReference(attribute("N"))), kStart + "@enter", {"-p", "p"});
  EXPECT_TRUE(said("Select texts: ") && isUnchanged());
}

TEST_F(ChangeProperties, WhatTheDialogRemembers) {
  change(text("A", 0, 0), "@check 1968 on\n@check 1971 on\n@place 40 50\n@close");
  change(text("A", 0, 0), "@dialog\n@click 2");
  for (int id = 1967; id <= 1972; ++id) {
    EXPECT_EQ(shows(id, " on "), id == 1968 || id == 1971) << control(id);
  }
  EXPECT_TRUE(said("at 40 50")) << result.out;
}

}  // namespace
}  // namespace kovra::test
