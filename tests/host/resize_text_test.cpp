// Resize text: each pass of its dialog, and that nothing is left of what is cancelled.
#include "tests/host/drawings.h"
#include "tests/host/text7_run.h"

namespace kovra::test {
namespace {

/// A TEXT record behind those of textDrawing(), in the world's plane unless `further` says
/// otherwise. Points as "X Y", with the other one only where there is one.
std::string textRecord(const std::string& handle, const std::string& position,
                       const std::string& modes, const std::string& alignment = {},
                       const std::string& further = {}) {
  const auto point = [](int code, const std::string& at) {
    const std::size_t blank = at.find(' ');
    return " " + std::to_string(code) + "\n" + at.substr(0, blank) + "\n " +
           std::to_string(code + 10) + "\n" + at.substr(blank + 1) + "\n " +
           std::to_string(code + 20) + "\n0.0\n";
  };
  return "  0\nTEXT\n  5\n" + handle + "\n330\n1F\n100\nAcDbEntity\n  8\n0\n100\nAcDbText\n" +
         point(10, position) + " 40\n2.5\n  1\nABC\n 72\n" + modes.substr(0, 1) + "\n" +
         (alignment.empty() ? "" : point(11, alignment)) + further + "100\nAcDbText\n 73\n" +
         modes.substr(2) + "\n";
}

/// Two attributes of a reference that is turned and scaled, 100 left on the base line, 101 middle
/// centre with the position of another program; X001 (60) and A-9 (61); 70 top right; 71 fitted and
/// 72 aligned, both with what another font gave; 73 seen from below.
std::string sheet() {
  std::string drawing = textDrawing();
  const std::string attributes =
      "  0\nINSERT\n  5\n80\n330\n1F\n100\nAcDbEntity\n  8\n0\n100\nAcDbBlockReference\n 66\n1\n"
      "  2\nMOTOR\n 10\n50.0\n 20\n50.0\n 30\n0.0\n 41\n2.0\n 42\n2.0\n 50\n30.0\n"
      "  0\nATTRIB\n  5\n100\n330\n80\n100\nAcDbEntity\n  8\nWIRENO\n100\nAcDbText\n"
      " 10\n50.125\n 20\n60.0\n 30\n0.0\n 40\n5.0\n  1\nM1\n 50\n30.0\n100\nAcDbAttribute\n"
      "  2\nNAME\n 70\n0\n"
      "  0\nATTRIB\n  5\n101\n330\n80\n100\nAcDbEntity\n  8\n0\n100\nAcDbText\n"
      " 10\n56.9\n 20\n69.3\n 30\n0.0\n 40\n5.0\n  1\n101\n 50\n30.0\n 72\n1\n 11\n60.0\n 21\n"
      "72.0\n 31\n0.0\n100\nAcDbAttribute\n  2\nTAG2\n 70\n0\n 74\n2\n"
      "  0\nSEQEND\n  5\n82\n330\n80\n100\nAcDbEntity\n  8\n0\n";
  const std::string texts =
      textRecord("70", "91.7 37.2", "2 3", "100.0 40.0") +
      textRecord("71", "10.0 80.0", "5 0", "40.0 80.0", " 41\n2.71\n") +
      textRecord("72", "10.0 90.0", "3 0", "40.0 95.0", " 50\n9.46\n") +
      textRecord("73", "-70.1 10.3", "0 0", {}, "210\n0.1\n220\n0.2\n230\n-0.97\n") +
      textRecord("74", "10.0 30.0", "0 0", {}, " 67\n0\n");
  return drawing.insert(drawing.rfind("  0\nENDSEC"), attributes + texts);
}

class ResizeTextTest : public Text7Run {
 protected:
  ResizeTextTest() { write("a.dxf", sheet()); }

  /// A session on a.dxf that saves b.dxf; its transcript.
  std::string resize(const std::string& lines, int status = 0) const {
    std::error_code ignored;
    std::filesystem::remove(path("b.dxf"), ignored);
    const ProgramRun result = runScript(lines, {"a.dxf", "-p", "p", "-o", "b.dxf"});
    EXPECT_EQ(result.status, status) << lines << result.err;
    return result.out;
  }
  bool isUnchanged() const { return read("a.dxf") == read("b.dxf"); }
  /// What of the text's row in the list is another: "height x,y", nothing for the same.
  std::string changed() const { return placed({0, 7, 11, 12}); }
};

constexpr const char* kOpen60 = "@preselect 60\nKOVRA_TEXT_RESIZEH\n";

TEST_F(ResizeTextTest, TheHeightFollowsTheArrowsAndTheField) {
  const struct {
    std::string lines;
    std::string height;  ///< of the field at the end
    std::string changed;
    std::string said;
  } cases[] = {
      {"@spin 1930 1\n", "3.0", "60,3,10,10", ""},
      {"@spin 1930 -2\n", "1.5", "60,1.5,10,10", ""},
      {"@type 1932 0.25\n@spin 1930 1\n", "2.7", "60,2.7,10,10", ""},
      {"@key 1931 Up\n@key 1931 Down\n@key 1931 Down\n", "2.0", "60,2,10,10", ""},
      // To the ceiling, and to nothing at all.
      {"@type 1932 5000\n@spin 1930 2\n", "3276.7", "60,3276.7,10,10", ""},
      {"@type 1931 0.1\n@spin 1930 -1\n", "0.1", "", ""},
      {"@type 1932 99\n@spin 1930 -3\n", "2.5", "", ""},
      // Steps that are none.
      {"@type 1932 0.09\n@spin 1930 1\n", "2.5", "", "The step must be 0.1 or more."},
      {"@type 1932 \"\"\n@spin 1930 1\n", "2.5", "", "The step must be 0.1 or more."},
      // OK takes the field; what is no height leaves the dialog open.
      {"@type 1931 \" 7 \"\n@click 1\nKOVRA_TEXT_RESIZEH\n@pick 60\n", "7", "60,7,10,10", ""},
      {"@type 1931 1.2.3\n@click 1\n", "1.2.3", "", "The text height must be a number above 0."},
      {"@type 1931 1e1\n@click 1\n", "1e1", "", "The text height must be a number above 0."},
      {"@type 1931 3mm\n@click 1\n", "3mm", "", "The text height must be a number above 0."},
      {"@type 1931 0.0001\n@refused @click 1\n", "0.0001", "", ""},
      {"@type 1931 -3\n@refused @click 1\n", "-3", "", ""},
      // Nothing in the field is new.
      {"@click 1\nKOVRA_TEXT_RESIZEH\n@pick 60\n", "2.5", "", ""},
  };
  for (const auto& row : cases) {
    forget();
    const std::string out = resize(kOpen60 + row.lines + "@dialog\n");
    EXPECT_EQ(shown(out, 1931), quoted(row.height)) << row.lines;
    EXPECT_EQ(changed(), row.changed) << row.lines;
    EXPECT_EQ(isUnchanged(), row.changed.empty()) << row.lines;
    if (!row.said.empty()) {
      EXPECT_NE(out.find(row.said), std::string::npos) << row.lines << out;
    }
  }
}

TEST_F(ResizeTextTest, EveryWayToAText) {
  const std::string prompt = "Select text: ";
  const std::string locked = "The selected text is on a locked layer.";
  const struct {
    std::string lines;
    std::string said;
    std::string unsaid;
    std::string changed;  ///< by one step up
  } cases[] = {
      {"@preselect 60\nKOVRA_TEXT_RESIZEH\n", "", prompt, "60,3,10,10"},
      {"@preselect 60 61\nKOVRA_TEXT_RESIZEH\n@pick 61\n", prompt, "", "61,3,10,20"},
      {"@preselect 80\nKOVRA_TEXT_RESIZEH\n@pick 60\n", prompt, "", "60,3,10,10"},
      // A miss and a wrong kind ask again.
      {"KOVRA_TEXT_RESIZEH\n@point 900,900\n@pick 101\n", prompt, locked, "101,5.5,60,72"},
      {"-LAYER\nLO\nWIRENO\n\nKOVRA_TEXT_RESIZEH\n@pick 100\n@pick 70\n", locked, "",
       "70,3,100,40"},
      {"-LAYER\nLO\n0\n\n@preselect 60\nKOVRA_TEXT_RESIZEH\n@pick 60\n@pick 100\n", locked, "",
       "100,5.5,50.125,60"},
      // Another one, from the dialog.
      {kOpen60 + std::string("@click 1953\n@pick 61\n"), prompt, locked, "61,3,10,20"},
  };
  for (const auto& row : cases) {
    forget();
    const std::string out = resize(row.lines + "@spin 1930 1\n");
    EXPECT_EQ(changed(), row.changed) << row.lines;
    EXPECT_NE(out.find(row.said), std::string::npos) << row.lines << out;
    if (!row.unsaid.empty()) {
      EXPECT_EQ(out.find(row.unsaid), std::string::npos) << row.lines << out;
    }
  }
  for (const char* end : {"@esc\n", "@enter\n", "@point 900,900\n@enter\n"}) {
    resize(std::string("KOVRA_TEXT_RESIZEH\n") + end + "@refused @dialog\n");
    EXPECT_TRUE(isUnchanged()) << end;
  }
}

TEST_F(ResizeTextTest, TextsAndAttributesMoveByWhatFixesThem) {
  const struct {
    std::string name;
    std::string before;
    std::string drag;
    std::string changed;
  } cases[] = {
      {"60", "", "@move 3,3\n@point 20,30\n", "60,2.5,20,30"},
      {"70", "", "@point 20,30\n", "70,2.5,20,30"},
      {"100", "", "@move 3,3\n@point 20,30\n", "100,5,20,30"},
      {"101", "", "@point 20,30\n", "101,5,20,30"},
      // In its own plane: 20,30 along (-2, 1) and upward from there.
      {"73", "", "@point 20,30\n", "73,2.5,-4.4721359549995725,34.86276310748397"},
      {"60", "", "@point 10,10\n", ""},
      {"60", "", "@move 3,3\n@esc\n", ""},
      {"100", "", "@move 3,3\n@esc\n", ""},
      {"101", "", "@enter\n", ""},
      // In the system of the user.
      {"60", "UCS\nZ\n90\n", "@point 20,-5\n", "60,2.5,5,20"},
      {"101", "UCS\nZ\n90\n", "@point 20,-5\n", "101,5,5,20"},
      // Along the larger way, and along Y when both are the same.
      {"60", "ORTHOMODE\n1\n", "@point 13,-2\n", "60,2.5,10,-2"},
      {"60", "ORTHOMODE\n1\n", "@point -3,12\n", "60,2.5,-3,10"},
      {"60", "ORTHOMODE\n1\n", "@point 15,15\n", "60,2.5,10,15"},
      {"101", "ORTHOMODE\n1\n", "@point 90,75\n", "101,5,90,72"},
      {"100", "-LAYER\nLO\nWIRENO\n\n", "", ""},
  };
  for (const auto& row : cases) {
    forget();
    const std::string dialog = "KOVRA_TEXT_RESIZEH\n@pick " + row.name + "\n";
    const bool meanwhile = row.drag.empty();
    resize((meanwhile ? dialog + row.before : row.before + dialog) + "@click 1954\n" + row.drag +
           "@click 1\n");
    if (!meanwhile) {
      EXPECT_EQ(changed(), row.changed) << row.name << row.drag;
    }
  }
}

TEST_F(ResizeTextTest, NothingIsLeftOfWhatIsCancelledOrUndone) {
  const std::string work =
      "@spin 1930 3\n@click 1954\n@move 3,3\n@point 200,300\n@spin 1930 -7\n@type 1931 44\n"
      "@click 1954\n@esc\n@spin 1930 2\n";
  for (const char* name : {"60", "70", "71", "72", "73", "74", "100", "101"}) {
    const std::string start = std::string("KOVRA_TEXT_RESIZEH\n@pick ") + name + "\n";
    for (const char* end : {"@click 2\n", "@key 1931 Esc\n", "@close\n", "@click 2\nU\nREDO\n"}) {
      resize(start + work + end + "@refused @dialog\n");
      EXPECT_TRUE(isUnchanged()) << name << end << changed();
    }
    std::string undo;
    for (int i = 0; i < 14; ++i) undo += "U\n";
    resize(start + work + undo);
    EXPECT_TRUE(isUnchanged()) << name << changed();
    resize(start + work + "@click 1\n" + undo);
    EXPECT_TRUE(isUnchanged()) << name << changed();
  }
}

TEST_F(ResizeTextTest, EachPassIsAStepOfItsOwn) {
  resize(kOpen60 + std::string("@spin 1930 3\nU\n"));
  EXPECT_EQ(changed(), "60,3.5,10,10");
  resize(kOpen60 + std::string("@spin 1930 1\n@click 1954\n@point 0,0\n@spin 1930 1\nU\nU\n"));
  EXPECT_EQ(changed(), "60,3,10,10");
  resize(kOpen60 + std::string("@spin 1930 1\n@click 1954\n@point 0,0\nU\nREDO\n"));
  EXPECT_EQ(changed(), "60,3,0,0");
}

TEST_F(ResizeTextTest, WhateverHappensBesideTheDialog) {
  write("c.dxf", textDrawing());
  const std::string erase = "ERASE\n@select 60\n@enter\n";
  const struct {
    std::string lines;
    std::string changed;
  } cases[] = {
      // The text goes and comes back.
      {erase + "@spin 1930 1\n@click 1\n@dialog\n@click 2\n@refused @dialog\nU\n", ""},
      {erase + "@click 1954\n@dialog\n@click 2\nU\n", ""},
      {erase + "U\n@spin 1930 1\n", "60,3,10,10"},
      // Its layer is locked: OK stays, Cancel leaves it as it is.
      {"@spin 1930 1\n-LAYER\nLO\n0\n\n@click 1\n@dialog\n@click 2\n@refused @dialog\n-LAYER\nU\n"
       "0\n\n",
       "60,3,10,10"},
      // The command by its name does the last pass again, or shows the dialog.
      {"@spin 1930 1\nKOVRA_TEXT_RESIZEH\n@dialog\n", "60,3,10,10"},
      {"KOVRA_TEXT_RESIZEH\n@dialog\n@spin 1930 1\n", "60,3,10,10"},
      // No other drawing meanwhile, no other project either way.
      {"@refused @activate c.dxf\n@spin 1930 1\n@click 1\n@activate c.dxf\n@activate a.dxf\n",
       "60,3,10,10"},
      {"@project\n@spin 1930 1\n@click 1\nKOVRA_TEXT_RESIZEH\n@refused @dialog\n", "60,3,10,10"},
      // A drawing that is closed takes its dialog along, also from a prompt.
      {"@spin 1930 1\n@closedrawing\n@refused @dialog\n@open a.dxf\n", ""},
      {"@click 1953\n@closedrawing\n@refused @dialog\n@open a.dxf\n", ""},
      {"@click 1954\n@move 5,5\n@closedrawing\n@refused @dialog\n@open a.dxf\n", ""},
      {"@spin 1930 1\n@refused @reload\n@click 1\n@reload\nKOVRA_TEXT_RESIZEH\n@pick 60\n"
       "@spin 1930 -1\n@click 1\n@activate c.dxf\n@activate a.dxf\n",
       ""},
  };
  for (const auto& row : cases) {
    forget();
    const ProgramRun result =
        runScript(kOpen60 + row.lines, {"c.dxf", "a.dxf", "-p", "p", "-o", "b.dxf"});
    EXPECT_EQ(result.status, 0) << row.lines << result.err;
    EXPECT_EQ(changed(), row.changed) << row.lines;
    std::filesystem::remove(path("b.dxf"));
  }
}

TEST_F(ResizeTextTest, ThePlaceAndTheStepAreRemembered) {
  resize(kOpen60 + std::string("@type 1932 \" 0.75 \"\n@place 300 200\n@click 2\n"));
  std::string out = resize(kOpen60 + std::string("@dialog\n@type 1932 \"\"\n@close\n"));
  EXPECT_NE(out.find("template 524 at 300 200"), std::string::npos) << out;
  EXPECT_EQ(shown(out, 1932), quoted("0.75"));
  out = resize(kOpen60 + std::string("@dialog\n"));
  EXPECT_EQ(shown(out, 1932), quoted("0.75")) << "an empty step isn't kept";
  for (const char* version : {"6.99", ""}) {
    project(version);
    EXPECT_NE(resize(kOpen60 + std::string("@refused @dialog\n")).find("data version"),
              std::string::npos);
  }
  EXPECT_TRUE(isUnchanged());
}

}  // namespace
}  // namespace kovra::test
