// The Text command below data version 7.00: texts one after another, with the dialog beside the
// drawing.
#include <cctype>

#include "tests/host/text7_run.h"

namespace kovra::test {
namespace {

/// The prompts that were shown, by the numbers of their states; a prompt that comes again counts
/// again.
std::string prompts(const std::string& out) {
  static const struct {
    const char* prompt;
    char state;
  } kStates[] = {{"Enter text:", '1'},         {"Specify insertion", '2'},
                 {"take the text style", '3'}, {"take the height", '4'},
                 {"the width factor", '5'},    {"take the rotation", '6'},
                 {"justification", '7'},       {"take all properties", '8'}};
  std::string shown;
  std::istringstream lines(out);
  for (std::string line; std::getline(lines, line);) {
    for (const auto& [prompt, state] : kStates) {
      if (line.find(prompt) != std::string::npos) shown += state;
    }
  }
  return shown;
}

/// A drawing with texts of many kinds and a block reference of scale 2, turned by 30 degrees.
std::string sheet() {
  std::string drawing = textDrawing();
  const auto text = [](const char* handle, const char* point, const char* value,
                       const std::string& groups, const char* vertical = "0") {
    return std::string("  0\nTEXT\n  5\n") + handle +
           "\n330\n1F\n100\nAcDbEntity\n  8\n0\n100\nAcDbText\n 10\n" + point + "\n 20\n" + point +
           "\n 30\n0.0\n 40\n3.0\n  1\n" + value + "\n 41\n0.8\n 50\n15.0\n  7\nFIX\n" + groups +
           " 11\n" + point + "\n 21\n" + point + "\n 31\n0.0\n100\nAcDbText\n 73\n" + vertical +
           "\n";
  };
  const std::string texts = text("62", "100.0", "ML", " 72\n0\n", "2") +
                            text("63", "120.0", "ALIGNED", " 72\n3\n") +
                            text("64", "140.0", "MIDDLE", " 72\n4\n");
  drawing.insert(drawing.rfind("  0\nENDSEC"), texts);
  const std::string reference =
      "  0\nINSERT\n  5\n70\n330\n1F\n100\nAcDbEntity\n  8\n0\n100\n"
      "AcDbBlockReference\n  2\nMOTOR\n 10\n200.0\n 20\n0.0\n 30\n0.0\n"
      " 41\n2.0\n 42\n2.0\n 43\n2.0\n 50\n30.0\n";
  drawing.insert(drawing.rfind("  0\nENDSEC"), reference);
  const std::string nested =
      "  0\nTEXT\n  5\n71\n330\n30\n100\nAcDbEntity\n  8\n0\n100\nAcDbText\n 10\n20.0\n 20\n20.0\n"
      " 30\n0.0\n 40\n1.5\n  1\nNESTED\n100\nAcDbText\n";
  drawing.insert(drawing.find("  0\nENDBLK\n  5\n45"), nested);
  const std::string style =
      "  0\nSTYLE\n  5\n22\n330\n3\n100\nAcDbSymbolTableRecord\n100\n"
      "AcDbTextStyleTableRecord\n  2\nFIX\n 70\n0\n 40\n0.0\n 41\n1.0\n 50\n"
      "0.0\n 71\n0\n 42\n2.5\n  3\ntxt\n  4\n\n";
  return drawing.insert(drawing.find("  0\nENDTAB", drawing.find("  3\ntxt")), style);
}

class TextCommandTest : public Text7Run {
 protected:
  TextCommandTest() { project("6.0"); }
};

TEST_F(TextCommandTest, StatesFollowTheInput) {
  const struct {
    std::string lines;
    std::string prompts;
    std::string placed = {};
  } cases[] = {
      // From the value.
      {"@esc\n", "1"},
      {"\n\n@esc\n", "111"},
      {"K1\n@esc\n@esc\n", "121"},
      {"_. .0\n", "1"},
      {"_. .\n", "1"},
      {"_. .-1\n", "1"},
      {"_. .7\n@esc\n", "11"},
      {"_. .-2\n@esc\n", "11"},
      {"_. x\n1,1\n@esc\n", "121", "_. x@1,1"},
      {"_.  .3\n1,1\n@esc\n", "121", "_.  .3@1,1"},
      {"_._\n1,1\n@esc\n", "121", "_._@1,1"},
      // From the point.
      {"K1\n3,4\nK 2\n@point 5,6\n@esc\n", "12121", "K1@3,4 K 2@5,6"},
      {"K1\n\nother\n_. 3\n7,8\n@esc\n", "122221", "K1@7,8"},
      {"K1\n_. .0\n@esc\n", "121"},
      {"K1\n_. .-1\n", "12"},
      {"K1\n_. .9\n1,2\n@esc\n", "1221", "K1@1,2"},
      // From a pick.
      {"_. .1\n@esc\n@esc\n", "131"},
      {"_. .1\n_. .0\n@esc\n", "131"},
      {"_. .1\n\n@esc\n", "131"},
      {"_. .1\nother\n@esc\n", "131"},
      {"_. .1\n_. 2\n@esc\n", "131"},
      {"_. .1\n@point 500,500\n@pick 50,50\n@esc\n@esc\n", "13331"},
      {"_. .1\n_. .-1\n", "13"},
      {"K1\n_. .2\n_. .6\n_. .5\n@esc\n1,2\n@esc\n",
       "124872"
       "1",
       "K1@1,2"},
      {"K1\n_. .3\n_. .9\n@esc\n@esc\n", "12521"},
      {"K1\n_. .3\n_. .4\n_. .-1\n", "1256"},
  };
  write("a.dxf", sheet());
  for (const auto& row : cases) {
    const std::string out = text(row.lines + "@refused @dialog\n");
    EXPECT_EQ(prompts(out), row.prompts) << row.lines << out;
    EXPECT_EQ(placed(), row.placed) << row.lines;
  }
}

TEST_F(TextCommandTest, ButtonsAskAsTheRequestLineDoes) {
  const struct {
    std::string button;
    char state;
  } buttons[] = {{"1986", '3'}, {"1988", '4'}, {"1990", '5'},
                 {"1992", '6'}, {"1994", '7'}, {"1995", '8'}};
  for (const auto& [button, state] : buttons) {
    const std::string click = "@click " + button + "\n";
    // What was typed and not accepted is dropped.
    const std::string out = text("@keys \"half\"\n" + click + "@esc\nK1\n" + click + click +
                                 "@click 2000\n@click 2000\n@click 2000\n@refused @dialog\n");
    EXPECT_EQ(prompts(out), std::string("1") + state + "12" + state + state + "21") << out;
    EXPECT_EQ(placed(), "");
  }
  for (const std::string before : {"", "K1\n", "_. .1\n"}) {
    EXPECT_NE(prompts(text(before + "@close\n@refused @dialog\n")), "");
  }
}

}  // namespace
}  // namespace kovra::test
