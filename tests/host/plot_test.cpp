// `kovra plot` and @picture, by what stands in the picture files.
#include <cmath>
#include <map>
#include <regex>

#include "tests/host/drawings.h"
#include "tests/host/program.h"

namespace kovra::test {
namespace {

struct Box {
  double left = 1e9, top = 1e9, right = -1e9, bottom = -1e9;

  void add(double x, double y) {
    left = std::min(left, x);
    right = std::max(right, x);
    top = std::min(top, y);
    bottom = std::max(bottom, y);
  }
};

std::vector<double> numbersIn(const std::string& text) {
  static const std::regex kNumber("-?[0-9]+\\.?[0-9]*");
  std::vector<double> numbers;
  for (std::sregex_iterator at(text.begin(), text.end(), kNumber), end; at != end; ++at)
    numbers.push_back(std::stod(at->str()));
  return numbers;
}

Box boxOf(const std::string& path) {
  Box box;
  const std::vector<double> numbers = numbersIn(path);
  for (size_t i = 0; i + 1 < numbers.size(); i += 2) box.add(numbers[i], numbers[i + 1]);
  return box;
}

/// What a picture file holds.
class Svg {
 public:
  explicit Svg(const std::string& file) : file_(file) {
    forEach("<path id=\"(\\w+)\" d=\"([^\"]*)\"",
            [this](const std::smatch& found) { outlines_[found[1]] = boxOf(found[2]); });
  }

  /// The color of a stroke that has this piece, "M0 0L10 0"; "none" without one.
  std::string strokeColor(const std::string& piece) const {
    std::string color = "none";
    forEach("<path stroke=\"(#\\w+)\"[^>]* d=\"([^\"]*)\"", [&](const std::smatch& found) {
      if ((found[2].str() + "M").find(piece + "M") != std::string::npos) color = found[1];
    });
    return color;
  }
  /// How many times the pattern is found.
  int count(const std::string& pattern) const {
    int found = 0;
    forEach(pattern, [&](const std::smatch&) { ++found; });
    return found;
  }
  /// Boxes of the ink of each text, in the order of the file; with its color and what it says.
  struct Text {
    std::string label;
    std::string color;
    Box ink;
  };
  std::vector<Text> texts() const {
    std::vector<Text> all;
    forEach("<g fill=\"(#\\w+)\" aria-label=\"([^\"]*)\" transform=\"([^\"]*)\">(.*)</g>",
            [&](const std::smatch& found) {
              all.push_back({found[2], found[1], inkOf(numbersIn(found[3]), found[4])});
            });
    return all;
  }

 private:
  template <class Take>
  void forEach(const std::string& pattern, Take take) const {
    const std::regex expression(pattern);
    for (std::sregex_iterator at(file_.begin(), file_.end(), expression), end; at != end; ++at)
      take(*at);
  }
  Box inkOf(const std::vector<double>& m, const std::string& uses) const {
    static const std::regex kUse("href=\"#(\\w+)\"(?: x=\"([^\"]*)\")?");
    Box ink;
    for (std::sregex_iterator at(uses.begin(), uses.end(), kUse), end; at != end; ++at) {
      const Box& cell = outlines_.at((*at)[1]);
      const double shift = (*at)[2].matched ? std::stod((*at)[2]) : 0;
      for (const double x : {cell.left + shift, cell.right + shift})
        for (const double y : {cell.top, cell.bottom})
          ink.add(m[0] * x + m[2] * y + m[4], m[1] * x + m[3] * y + m[5]);
    }
    return ink;
  }

  const std::string file_;
  std::map<std::string, Box> outlines_;
};

class PlotTest : public ProgramTest {
 protected:
  /// Plots 100 by 100 units on 1000 by 1000 pixels.
  Svg plot(const std::string& bytes, std::vector<std::string> more = {}) {
    write("a.dxf", bytes);
    std::vector<std::string> arguments = {"plot",     "a.dxf",       "-o",     "a.svg",
                                          "--window", "0,0,100,100", "--size", "1000"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    const ProgramRun result = run(arguments);
    EXPECT_EQ(result.status, 0) << result.err;
    said_ = result.out;
    return Svg(read("a.svg"));
  }

  std::string said_;
};

// Descenders, accents, brackets, Japanese, codes and a character that no font has.
TEST_F(PlotTest, TheInkOfATextLiesWithinItsExtents) {
  const struct {
    std::string text;
    int halves;
  } cases[] = {{"Wiring gjpqy", 12},
               {"\\U+00C5\\U+00DCg|_{}", 7},
               {"\\U+6F22\\U+5B57\\U+30AB", 6},
               {"%%c10 %%uab%%u", 6},
               {"1\\U+E123,;(@)Q", 8}};
  std::string entities;
  for (size_t i = 0; i < std::size(cases); ++i)
    entities += "0\nTEXT\n8\n0\n10\n10\n20\n" + std::to_string(10 + 15 * i) +
                "\n40\n4\n41\n0.8\n1\n" + cases[i].text + "\n";
  const std::vector<Svg::Text> texts = plot(drawing(entities)).texts();
  ASSERT_EQ(texts.size(), std::size(cases));
  for (size_t i = 0; i < std::size(cases); ++i) {
    SCOPED_TRACE(cases[i].text);
    const Box& ink = texts[i].ink;
    const double base = 1000 - 10 * (10 + 15.0 * static_cast<double>(i));
    const double width = cases[i].halves * 0.625 * 4 * 0.8 * 10;
    constexpr double kRounding = 0.1;
    EXPECT_GE(ink.left, 100 - kRounding);
    EXPECT_LE(ink.right, 100 + width + kRounding);
    EXPECT_LE(ink.bottom, base + kRounding);
    EXPECT_GE(ink.top, base - 40 - kRounding);
    EXPECT_GT(ink.right - ink.left, width * 0.7);
    EXPECT_GT(ink.bottom - ink.top, 40 * 0.7);
  }
}

TEST_F(PlotTest, ColorsComeFromEntityBlockAndLayer) {
  const auto layer = [](const char* name, int color, int flags) {
    return std::string("0\nLAYER\n2\n") + name + "\n70\n" + std::to_string(flags) + "\n62\n" +
           std::to_string(color) + "\n6\nCONTINUOUS\n";
  };
  const std::string tables = "0\nTABLE\n2\nLAYER\n70\n5\n" + layer("0", 7, 0) + layer("RED", 1, 0) +
                             layer("OFF", -3, 0) + layer("FROZEN", 3, 1) +
                             layer("TRUEWHITE", 3, 0) + "420\n16777215\n0\nENDTAB\n";
  const std::string blocks = blockOf("SYM", lineAt(0, "8\n0\n") + lineAt(1, "8\n0\n62\n0\n") +
                                                lineAt(2, "8\nRED\n62\n3\n") +
                                                lineAt(3, "8\nRED\n") + lineAt(4, "8\nOFF\n"));
  const std::string insert =
      "0\nINSERT\n66\n1\n8\nRED\n62\n5\n2\nSYM\n10\n0\n20\n50\n"
      "0\nATTRIB\n8\n0\n62\n0\n10\n0\n20\n60\n40\n2\n1\nSHOWN\n2\nA\n70\n0\n"
      "0\nATTRIB\n8\n0\n10\n0\n20\n65\n40\n2\n1\nHIDDEN\n2\nB\n70\n1\n0\nSEQEND\n8\n0\n";
  const std::string bytes =
      drawing(insert + lineAt(10, "8\n0\n") + lineAt(11, "8\nOFF\n") + lineAt(12, "8\nFROZEN\n") +
                  lineAt(13, "8\n0\n60\n1\n") + lineAt(14, "8\n0\n62\n30\n") +
                  lineAt(15, "8\n0\n420\n1193046\n") + lineAt(16, "8\nTRUEWHITE\n") +
                  lineAt(17, "8\n0\n420\n16777215\n") + lineAt(18, "8\n0\n420\n1315860\n") +
                  lineAt(19, "8\n0\n62\n2\n"),
              blocks, tables);
  const Svg white = plot(bytes);
  const std::map<double, std::string> expected = {
      {50, "#ff0000"}, {51, "#0000ff"}, {52, "#00ff00"}, {53, "#ff0000"}, {54, "none"},
      {10, "#000000"}, {11, "none"},    {12, "none"},    {13, "none"},    {14, "#ff7f00"},
      {15, "#123456"}, {16, "#000000"}, {17, "#000000"}, {18, "#141414"}, {19, "#ffff00"}};
  for (const auto& [y, color] : expected) {
    const std::string row = std::to_string(static_cast<int>(1000 - 10 * y));
    EXPECT_EQ(white.strokeColor("M0 " + row + "L100 " + row), color) << y;
  }
  ASSERT_EQ(white.texts().size(), 1U);
  EXPECT_EQ(white.texts()[0].label, "SHOWN");
  EXPECT_EQ(white.texts()[0].color, "#0000ff");
  const Svg dark = plot(bytes, {"--ground", "dark"});
  for (const auto& [row, color] :
       {std::pair{"900", "#ffffff"}, {"830", "#ffffff"}, {"820", "#ffffff"}, {"850", "#123456"}})
    EXPECT_EQ(dark.strokeColor(std::string("M0 ") + row + "L100 " + row), color) << row;
}

TEST_F(PlotTest, CurvesArraysAndFacesStandWhereTheyBelong) {
  const auto extentOf = [&](const std::string& entity, const std::string& blocks = {}) {
    Box box;
    std::smatch found;
    plot(drawing(entity, blocks));
    const std::string file = read("a.svg");
    const std::regex path("<path (?:stroke|fill-rule)=\"[^>]* d=\"([^\"]*)\"");
    for (std::sregex_iterator at(file.begin(), file.end(), path), end; at != end; ++at) {
      const Box own = boxOf((*at)[1]);
      box.add(own.left, own.top);
      box.add(own.right, own.bottom);
    }
    return box;
  };
  const std::string circle = "0\nCIRCLE\n8\n0\n10\n0\n20\n0\n40\n5\n";
  const std::string block =
      "0\nBLOCK\n8\n0\n2\nSYM\n70\n0\n10\n-5\n20\n0\n" + circle + "0\nENDBLK\n8\n0\n";
  const struct {
    const char* name;
    std::string entity;
    Box box;  ///< pixels
  } cases[] = {
      {"half circle by a bulge",
       "0\nPOLYLINE\n8\n0\n66\n1\n70\n0\n0\nVERTEX\n8\n0\n10\n20\n20\n50\n42\n1\n"
       "0\nVERTEX\n8\n0\n10\n40\n20\n50\n0\nSEQEND\n8\n0\n",
       {200, 500, 400, 600}},
      {"wide polyline",
       "0\nLWPOLYLINE\n8\n0\n90\n2\n43\n4\n10\n20\n20\n50\n10\n60\n20\n50\n",
       {200, 480, 600, 520}},
      {"arc of a circle seen from behind",
       "0\nARC\n8\n0\n10\n-50\n20\n50\n40\n10\n50\n90\n51\n270\n230\n-1\n210\n0\n220\n0\n",
       {500, 400, 600, 600}},
      {"circle in a reference: base point, two scales, a quarter turn",
       "0\nINSERT\n8\n0\n2\nSYM\n10\n50\n20\n50\n41\n2\n42\n1\n50\n90\n",
       {450, 300, 550, 500}},
      {"array of references",
       "0\nINSERT\n8\n0\n2\nSYM\n10\n10\n20\n10\n70\n3\n71\n2\n44\n30\n45\n40\n",
       {100, 450, 800, 950}},
      {"ellipse",
       "0\nELLIPSE\n8\n0\n10\n50\n20\n50\n11\n0\n21\n20\n40\n0.5\n41\n0\n42\n6.283185\n",
       {400, 300, 600, 700}},
      {"solid",
       "0\nSOLID\n8\n0\n10\n10\n20\n10\n11\n30\n21\n10\n12\n10\n22\n20\n13\n30\n23\n20\n",
       {100, 800, 300, 900}},
      {"curve through its controls' hull",
       "0\nSPLINE\n8\n0\n71\n2\n40\n0\n40\n0\n40\n0\n40\n1\n40\n1\n40\n1\n10\n10\n20\n10\n10\n50\n2"
       "0\n"
       "50\n10\n90\n20\n10\n",
       {100, 700, 900, 900}},
  };
  for (const auto& one : cases) {
    const Box box = extentOf(one.entity, block);
    SCOPED_TRACE(one.name);
    // Control points of a curve's pieces lie a little outside of it.
    constexpr double kNear = 5;
    EXPECT_NEAR(box.left, one.box.left, kNear);
    EXPECT_NEAR(box.top, one.box.top, kNear);
    EXPECT_NEAR(box.right, one.box.right, kNear);
    EXPECT_NEAR(box.bottom, one.box.bottom, kNear);
  }
}

TEST_F(PlotTest, LinesOfAMultiLineTextStandByTheirAttachment) {
  const Svg svg = plot(drawing(
      "0\nMTEXT\n8\n0\n10\n50\n20\n50\n40\n4\n41\n0\n71\n6\n1\n{\\fArial;long line}\\Pab\n"));
  const std::vector<Svg::Text> texts = svg.texts();
  ASSERT_EQ(texts.size(), 2U);
  EXPECT_EQ(texts[0].label, "long line");
  // Two lines, 4 high and 20/3 apart, their right ends and their middle at the point.
  EXPECT_NEAR(texts[1].ink.bottom, 500 + (4 + 20.0 / 3) * 10 / 2, 1);
  EXPECT_NEAR(texts[0].ink.right, 500, 8);
  EXPECT_NEAR(texts[1].ink.right, 500, 8);
}

// An embedded object's groups: type, count, heights of all columns and of single ones.
TEST_F(PlotTest, ColumnsOfAMultiLineTextStandBesideEachOther) {
  const struct {
    const char* name;
    const char* groups;
    const char* text;
    std::vector<std::pair<double, double>> places;  ///< left end and base line of each line
  } cases[] = {
      {"static, the last one takes what is left",
       "71\n1\n72\n2\n41\n10\n",
       "aaa bbb ccc ddd eee",
       {{0, 0}, {0, 5}, {30, 0}, {30, 5}, {30, 10}}},
      {"dynamic, as many as the text fills",
       "71\n2\n72\n0\n41\n10\n",
       "aaa bbb ccc ddd eee",
       {{0, 0}, {0, 5}, {30, 0}, {30, 5}, {60, 0}}},
      {"with heights of their own, right to left",
       "71\n2\n72\n3\n41\n0\n74\n1\n46\n4\n46\n9\n46\n0\n",
       "aaa bbb ccc ddd eee",
       {{60, 0}, {30, 0}, {30, 5}, {0, 0}, {0, 5}}},
      {"several blanks at a break hang",
       "71\n2\n72\n2\n41\n0\n46\n4\n46\n0\n",
       "aaa    bbb",
       {{0, 0}, {30, 0}}},
      {"a code ends a column", "71\n2\n72\n0\n41\n90\n", "aaa\\Nbbb", {{0, 0}, {30, 0}}},
      {"no columns", "71\n0\n", "aaa bbb", {{0, 0}}},
  };
  for (const auto& one : cases) {
    SCOPED_TRACE(one.name);
    const std::vector<Svg::Text> texts =
        plot(drawing(std::string("0\nMTEXT\n8\n0\n10\n0\n20\n100\n40\n3\n41\n50\n71\n1\n1\n") +
                     one.text + "\n101\nEmbedded Object\n70\n1\n44\n10\n45\n20\n" + one.groups))
            .texts();
    ASSERT_EQ(texts.size(), one.places.size());
    for (std::size_t i = 0; i < texts.size(); ++i) {
      EXPECT_NEAR(texts[i].ink.left, 10 * one.places[i].first, 10) << i;
      EXPECT_NEAR(texts[i].ink.bottom, 10 * (3 + one.places[i].second), 10) << i;
    }
  }
}

TEST_F(PlotTest, ALongTextIsDrawnAsFarAsAPictureCanShowIt) {
  std::string text;
  for (int i = 0; i < 200000; ++i) text += "abcdefgh" + std::to_string(i % 10) + " ";
  write("a.dxf", drawing("0\nTEXT\n8\n0\n10\n0\n20\n0\n40\n8\n1\n" + text + "\n"));
  const auto sizeOf = [&](const std::string& window) {
    EXPECT_EQ(run({"plot", "a.dxf", "-o", "a.svg", window}).status, 0);
    return read("a.svg").size();
  };
  EXPECT_LT(sizeOf("--size=1600"), 1000U);  // one stroke
  EXPECT_LT(sizeOf("--window=5000000,0,5000100,50"), 20000U);
  const std::vector<Svg::Text> texts = Svg(read("a.svg")).texts();
  ASSERT_EQ(texts.size(), 1U);
  // 5 units a character, the window's first one is the millionth.
  EXPECT_EQ(texts[0].label.substr(1, 20), "abcdefgh0 abcdefgh1 ");
  EXPECT_NEAR(texts[0].ink.left, 0, 100);
}

TEST_F(PlotTest, SaysWhatItDidNotDrawAndWhatIsWrong) {
  const std::string bytes =
      drawing(lineAt(0, "8\n0\n") + "0\nHATCH\n8\n0\n0\nHATCH\n8\n0\n0\nRAY\n8\n0\n");
  plot(bytes);
  EXPECT_EQ(said_, "not drawn: 2 HATCH, 1 RAY\n");
  const ProgramRun beside = run({"plot", "a.dxf", "-o", "b.svg", "--window", "50,50,60,60"});
  EXPECT_NE(beside.out.find("\nthe picture is empty"), std::string::npos) << beside.out;
  EXPECT_EQ(run({"plot", "a.dxf", "-o", "b.png", "--size", "64"}).status, 0);
  // The width stands behind the file's mark and the head of its first part.
  EXPECT_EQ(read("b.png").substr(1, 3), "PNG");
  EXPECT_EQ(read("b.png").substr(16, 4), std::string("\0\0\0\x40", 4));
  const struct {
    std::vector<std::string> arguments;
    int status;
    std::string says;
  } cases[] = {{{"a.dxf", "-o", "a.pdf"}, 2, "ends in .svg or .png"},
               {{"a.dxf"}, 2, "--output is required"},
               {{"a.dxf", "-o", "c.svg", "--window", "1,2,3"}, 2, "X1,Y1,X2,Y2"},
               {{"a.dxf", "-o", "c.svg", "--window", "1,2,1,9"}, 2, "empty"},
               {{"none.dxf", "-o", "c.svg"}, 3, "none.dxf"},
               {{"a.dxf", "-o", "none/c.svg"}, 3, "none"}};
  for (const auto& one : cases) {
    std::vector<std::string> arguments = one.arguments;
    arguments.insert(arguments.begin(), "plot");
    const ProgramRun result = run(arguments);
    EXPECT_EQ(result.status, one.status) << one.says;
    EXPECT_NE(result.err.find(one.says), std::string::npos) << result.err;
  }
  EXPECT_FALSE(exists("c.svg"));
}

TEST_F(PlotTest, AScriptPicturesTheScreenAndTheDialog) {
  write("a.dxf", drawing("0\nTEXT\n8\n0\n10\n0\n20\n0\n40\n10\n1\nX001\n"));
  std::filesystem::create_directory(path("panel"));
  write("panel/project.ini", "[Project]\nDataVersion=12.0\n");
  const ProgramRun result = runScript(
      "@refused @picture alone.svg dialog\n@preselect all\nKOVRA_TEXT_COUNTUP\n@check 1967 off\n"
      "@picture screen.svg\n@picture alone.svg dialog\n@refused @picture alone.pdf\n@click 2\n",
      {"-p", "panel", "a.dxf"});
  EXPECT_EQ(result.status, 0) << result.err;
  const auto textsOf = [this](const char* file) {
    std::map<std::string, std::string> colors;
    for (const Svg::Text& text : Svg(read(file)).texts()) colors[text.label] = text.color;
    return colors;
  };
  const auto screen = textsOf("screen.svg");
  const auto dialog = textsOf("alone.svg");
  EXPECT_EQ(screen.count("X001"), 1U);
  EXPECT_EQ(dialog.count("X001"), 0U);
  for (const auto& shown : {screen, dialog}) {
    EXPECT_EQ(shown.at("Cancel"), "#000000");
    EXPECT_NE(shown.at("Step:"), "#000000");
  }
}

}  // namespace
}  // namespace kovra::test
