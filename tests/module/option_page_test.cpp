// The page of the tables that the text dialogs offer, from the parameter file and back.
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/module/command_test.h"
#include "tests/module/sheet.h"

namespace kovra::test {
namespace {

constexpr int kLayers = 1926, kHeights = 1927, kRotations = 1929, kRatios = 3978;

class OptionPage : public CommandTest {
 protected:
  OptionPage() { project("12.0"); }

  void project(const std::string& version) {
    write("p/project.ini", "[Project]\nDataVersion=" + version + "\n");
  }
  void prm(const std::string& text) { write("p/KovrCad.prm", text); }
  std::string prm() const { return read("p/KovrCad.prm"); }

  /// `lines` begin in the dialog, which is shown and ended after them.
  void options(const std::string& lines, std::vector<std::string> arguments = {"-p", "p"}) {
    if (!exists("in.dxf")) write("in.dxf", sheet(""));
    arguments.push_back("in.dxf");
    result = runScript("KOVRA_OPTIONS\n" + lines + "@dialog\n@click 2\n", arguments);
    EXPECT_EQ(result.status, 0) << lines << result.err;
  }

  /// The texts of a grid in the last @dialog, as "ROW=TEXT ROW=TEXT".
  std::string cells(int grid) const {
    std::size_t at = result.out.rfind("\n  " + std::to_string(grid) + " grid ");
    if (at == std::string::npos) return "no grid";
    std::string all;
    at = result.out.find('\n', at + 1);
    while (result.out.compare(at, 5, "\n    ") == 0) {
      const std::size_t end = result.out.find('\n', at + 1);
      const std::string line = result.out.substr(at + 5, end - at - 5);
      const std::size_t quote = line.find('"');
      all += (all.empty() ? "" : " ") + line.substr(0, line.find(' ')) + '=' +
             line.substr(quote + 1, line.find('"', quote + 1) - quote - 1);
      at = end;
    }
    return all;
  }
  bool canApply() const { return shows(3933, " enabled "); }

  const std::string builtinHeights = "1=1.50 2=2.00 3=2.50 4=3.00 5=3.50 6=4.00 7=4.50 8=5.00";
};

TEST_F(OptionPage, ATableComesFromTheFileOrIsBuiltInAsAWhole) {
  const struct {
    const char* file;
    std::string layers;  ///< "": the built-in ones
    std::string heights;
  } cases[] = {
      {"[TEXT]\n", "", ""},
      {"[OTHER]\nLAYER_CNT=1\nLAYER1=X\n", "", ""},
      {"[TEXT]\nLAYER_CNT=2\nLAYER1=A\nLAYER2=B\nLAYER3=C\n", "1=A 2=B", ""},
      {"[text]\ntext_h_cnt=3\nTEXT_H1=1.6\nTEXT_H3=x\n", "", "1=1.6 3=x"},
      {"[TEXT]\nLAYER_CNT=0\nTEXT_H_CNT=none\nTEXT_H1=2\n", " ", " "},
      {"[TEXT]\nLAYER_CNT=2147483647\nLAYER2=B\nTEXT_H_CNT=-1\n", "2=B", " "},
  };
  for (const auto& each : cases) {
    prm(each.file);
    options("");
    const auto expected = [](const std::string& shown, const std::string& builtin) {
      return shown.empty() ? builtin : shown == " " ? std::string() : shown;
    };
    const std::string builtinLayers = "1=CMNT 2=JCMNT 3=ECMNT 4=NEWJIS 5=OLDJIS 6=SYMBOL 7=AUX";
    EXPECT_EQ(cells(kLayers), expected(each.layers, builtinLayers)) << each.file;
    EXPECT_EQ(cells(kHeights), expected(each.heights, builtinHeights)) << each.file;
    EXPECT_EQ(cells(kRotations), "1=0.00 2=90.00 3=-90.00 4=180.00");
    EXPECT_EQ(cells(kRatios), "1=1.0 2=1.2 3=1.5 4=1.6666 5=2.0");
    EXPECT_EQ(prm(), each.file);
  }
}

TEST_F(OptionPage, BelowTwelveThereAreFourTabsAndTheRatiosStay) {
  prm("[TEXT]\nTEXT_ROW_R1=9\n");
  for (const char* version : {"11.0", "9.0"}) {
    project(version);
    options("@cell 1926 1 1 " + std::string(version) + "\n@click 3933\n");
    EXPECT_TRUE(shows(1925, "#0 of \"Layers\" \"Heights\" \"Width factors\" \"Rotations\"\n") ||
                control(1925).ends_with("\"Rotations\""));
    EXPECT_EQ(cells(kRatios), "no grid");
    EXPECT_EQ(prm().substr(0, 25), "[TEXT]\nTEXT_ROW_R1=9\nLAYE");
    EXPECT_EQ(prm().find("TEXT_ROW_R_CNT"), std::string::npos);
    EXPECT_NE(prm().find("LAYER1=" + std::string(version)), std::string::npos);
  }
}

TEST_F(OptionPage, WhatIsSavedKeepsTheFileAndIsOfferedByTheTextDialog) {
  prm("; usual values\r\n[TEXT]\r\n  TEXT_H1 = 2.0\r\nTEXT_H2=3\r\nTEXT_H3=4 \r\nTEXT_H_CNT=3\r\n"
      "Own=1\r\n\r\n[Other]\r\nTEXT_H1=7\r\n");
  write("in.dxf", sheet(""));
  result = runScript(
      "KOVRA_OPTIONS\n@choose 1925 #1\n@cell 1927 2 1 \"\"\n@cell 1927 6 1 \" 5.125\"\n@click 1\n"
      "KOVRA_TEXT\n@dialog\n@close\n",
      {"-p", "p", "in.dxf"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_TRUE(shows(1987, "of \"2.0\" \"4\" \"5.13\"")) << control(1987);
  const std::string saved = prm();
  EXPECT_EQ(saved.find("; usual values\r\n[TEXT]\r\n  TEXT_H1 = 2.0\r\nTEXT_H2=4\r\n"
                       "TEXT_H3=5.13 \r\nTEXT_H_CNT=3\r\nOwn=1\r\nLAYER1=CMNT\r\n"),
            0U)
      << saved;
  EXPECT_TRUE(saved.ends_with("TEXT_ROW_R_CNT=5\r\n\r\n[Other]\r\nTEXT_H1=7\r\n")) << saved;
}

TEST_F(OptionPage, RowsMoveAndGoWithinTheTable) {
  const struct {
    const char* lines;
    const char* after;
    bool modified;
  } cases[] = {
      {"@click 1953\n", "1=A 2=B 3=C", false},
      {"@key 1926 Down\n@click 1953\n@click 1953\n", "1=B 2=A 3=C", true},
      {"@click 1954\n@click 1954\n@click 1954\n", "1=B 2=C 4=A", true},
      {"@click 1955\n", "1=B 2=C", true},
      {"@key 1926 Ctrl+Down\n@click 1955\n@click 1955\n", "1=A 2=B", true},
      {"@cells 1926 500 1 500 1\n@click 1954\n", "1=A 2=B 3=C", false},
      {"@cells 1926 500 1 500 1\n@click 1955\n", "1=A 2=B 3=C", true},
      {"@key 1926 F2\n@keys \"x\"\n", "1=A 2=B 3=C", true},
  };
  prm("[TEXT]\nLAYER_CNT=3\nLAYER1=A\nLAYER2=B\nLAYER3=C\n");
  for (const auto& each : cases) {
    options(each.lines);
    EXPECT_EQ(cells(kLayers), each.after) << each.lines;
    EXPECT_EQ(canApply(), each.modified) << each.lines;
  }
}

TEST_F(OptionPage, ApplyStoresResetShowsWhatIsStoredCancelLeavesIt) {
  prm("[TEXT]\nLAYER_CNT=2\nLAYER1=A\nLAYER2=B\n");
  options("@cell 1926 1 1 X\n@click 3933\n@dialog\n@cell 1926 3 1 Y\n");
  EXPECT_TRUE(canApply());  // the edit behind Apply is told again
  EXPECT_EQ(cells(kLayers), "1=X 2=B 3=Y");
  options("@cell 1926 1 1 Z\n@cell 1926 9 1 Z\n@click 3934\n");
  EXPECT_FALSE(canApply());
  EXPECT_EQ(cells(kLayers), "1=X 2=B");
  const std::string before = prm();
  options("@dialog\n@click 1\nKOVRA_OPTIONS\n");  // OK without a change writes nothing
  EXPECT_EQ(prm(), before);
  options("@cells 1926 -1 1 -1 1\n@key 1926 Delete\n@click 1\nKOVRA_OPTIONS\n");
  EXPECT_EQ(cells(kLayers), "");
  EXPECT_NE(prm().find("LAYER_CNT=0\nLAYER1=X\nLAYER2=B\n"), std::string::npos) << prm();
}

TEST_F(OptionPage, WhatCannotBeStoredIsSaidAndStays) {
  const std::string damaged("[TEXT]\n\0", 8);
  prm(damaged);
  options("@cell 1926 1 1 X\n@click 1\n");
  EXPECT_TRUE(said("The tables couldn't be saved")) << result.out;
  EXPECT_EQ(cells(kLayers).substr(0, 9), "1=X 2=JCM");
  EXPECT_TRUE(canApply());
  EXPECT_EQ(prm(), damaged);
  options("@cell 1926 1 1 X\n@click 3933\n", {});
  EXPECT_TRUE(said("No project is open.") && said("The tables couldn't be saved")) << result.out;
  std::filesystem::remove(path("p/KovrCad.prm"));
  options("@cell 1926 1 1 X\n@click 1\nKOVRA_OPTIONS\n");  // a missing file is made
  EXPECT_EQ(prm().substr(0, 16), "[TEXT]\nLAYER1=X\n");
}

TEST_F(OptionPage, TheGridsFollowTheDialogsSizeAndTheModuleCannotGoMeanwhile) {
  options(
      "@refused @reload\n@place 10 10 800 600\n@cells 1926 27 1 27 1\n@picture tall.svg dialog\n"
      "@click 2\n@reload\nKOVRA_OPTIONS\n@picture new.svg dialog\n");
  EXPECT_EQ(cells(kHeights), builtinHeights);
  const auto lines = [this](const char* picture) {
    const std::string svg = read(picture);
    std::size_t count = 0;
    for (std::size_t at = 0; (at = svg.find("<path", at)) != std::string::npos; ++at) ++count;
    return count;
  };
  EXPECT_GT(lines("tall.svg"), lines("new.svg"));
}

}  // namespace
}  // namespace kovra::test
