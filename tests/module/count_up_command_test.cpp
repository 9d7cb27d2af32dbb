#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <tuple>

#include "tests/host/program.h"
#include "tests/module/sheet.h"

namespace kovra::test {
namespace {

struct Text {
  std::string value;
  double x = 0;
  double y = 0;
  bool operator==(const Text&) const = default;
};

void PrintTo(const Text& text, std::ostream* out) {
  *out << text.value << " (" << text.x << ", " << text.y << ")";
}

/// The texts of a drawing in file order.
std::vector<Text> textsOf(const std::string& dxf) {
  std::vector<Text> texts;
  std::istringstream lines(dxf);
  bool inText = false;
  for (std::string code, value; std::getline(lines, code) && std::getline(lines, value);) {
    const int group = std::stoi(code);
    if (group == 0) inText = value == "TEXT";
    if (group == 0 && inText) texts.emplace_back();
    if (!inText) continue;
    if (group == 1) texts.back().value = value;
    if (group == 10) texts.back().x = std::stod(value);
    if (group == 20) texts.back().y = std::stod(value);
  }
  return texts;
}

class CountUpCommand : public ProgramTest {
 protected:
  /// Selects all texts of a drawing, runs the command with these lines and gives what was saved.
  std::vector<Text> count(const std::string& drawing, const std::string& lines,
                          const std::string& version = "10.0", const std::string& further = "") {
    write("project/project.ini", "[Project]\nDataVersion=" + version + "\n" + further);
    write("in.dxf", drawing);
    result = runScript("@preselect all\nKOVRA_TEXT_COUNTUP\n" + lines,
                       {"-p", "project", "-o", "out.dxf", "in.dxf"});
    EXPECT_EQ(result.status, 0) << result.err << result.out;
    return textsOf(read("out.dxf"));
  }

  bool shown(const std::string& text) const { return result.out.find(text) != std::string::npos; }

  ProgramRun result;
};

const std::string kTerminals = text("X001", 0, 0) + text("X002", 10, 0);

TEST_F(CountUpCommand, PatternsInEveryDirection) {
  const struct {
    int direction;
    std::vector<Text> copies;  // of X001; those of X002 stand behind each, 10 to the right
  } cases[] = {
      {0, {{"X006", 0, -8}, {"X011", 0, -16}}},
      {1, {{"X006", 60, 0}}},
      {2,
       {{"X006", 0, -8}, {"X011", 0, -16}, {"X016", 60, 0}, {"X021", 60, -8}, {"X026", 60, -16}}},
      {3,
       {{"X006", 60, 0}, {"X011", 0, -8}, {"X016", 60, -8}, {"X021", 0, -16}, {"X026", 60, -16}}},
  };
  for (const auto& each : cases) {
    const auto texts =
        count(sheet(kTerminals, 2),
              "@click 1975\n@click " + std::to_string(1953 + each.direction) + "\n@type 1931 5\n" +
                  (each.direction != 1 ? "@type 1932 3\n@type 1933 4\n" : "") +
                  (each.direction != 0 ? "@type 1934 2\n@type 1935 30\n" : "") + "@click 1");
    ASSERT_EQ(texts.size(), 2 + 2 * each.copies.size()) << each.direction;
    for (std::size_t i = 0; i < each.copies.size(); ++i) {
      EXPECT_EQ(texts[2 + 2 * i], each.copies[i]) << each.direction;
      EXPECT_EQ(texts[3 + 2 * i].x, each.copies[i].x + 10) << each.direction;
    }
  }
}

TEST_F(CountUpCommand, ValuesInEveryNumbering) {
  const std::string fullWidth = "\\U+FF11\\U+FF19";    // 19
  const std::string fullWidth20 = "\\U+FF12\\U+FF10";  // 20
  const struct {
    const char* version;
    const char* row;
    const char* step;
    std::string value;
    std::string counted;
  } cases[] = {
      {"10.0", "#1", "1", "X009", "X010"},
      {"10.0", "#1", "-1", "100", "99"},
      {"10.0", "#1", "-1", "0100", "0099"},
      {"10.0", "#1", "-5", "X003", "X003"},
      {"10.0", "#1", "1", "ABC", "ABC"},
      {"10.0", "#0", "1", "17", "20"},
      {"10.0", "#2", "1", "0xFF", "0x100"},
      {"10.0", "#4", "1", "Z", "AA"},
      {"10.0", "#3", "1", "H", "J"},
      {"10.0", "#5", "1", "12.7", "13.0"},
      {"10.0", "#6", "1", "12.F", "13.0"},
      {"10.0", "#1", "1", "999999999999999999999999999999", "1000000000000000000000000000000"},
      {"10.0", "#1", "1", fullWidth, fullWidth20},
      {"9.9", "#1", "1", fullWidth, fullWidth},
  };
  for (const auto& each : cases) {
    const auto texts = count(sheet(text(each.value, 0, 0)),
                             "@choose 1978 " + std::string(each.row) + "\n@type 1931 " + each.step +
                                 "\n@click 1975\n@click 1953\n@type 1932 2\n@type 1933 5\n@click 1",
                             each.version);
    ASSERT_EQ(texts.size(), 2U) << each.value;
    EXPECT_EQ(texts[1].value, each.counted) << each.value << " by " << each.step;
    EXPECT_EQ(shown("can't be counted down"), each.value == "X003") << each.value;
  }
}

/// Line type and style of a drawing's last text, as groups.
std::string lastNames(const std::string& dxf) {
  std::istringstream lines(dxf.substr(dxf.rfind("  0\nTEXT\n")));
  std::string names;
  for (std::string code, value; std::getline(lines, code) && std::getline(lines, value);) {
    if (code == "  6" || code == "  7") names += code + '\n' + value + '\n';
  }
  return names;
}

TEST_F(CountUpCommand, TextsWhoseStyleOrLineTypeTheDrawingLacks) {
  const struct {
    const char* what;
    const char* style;  ///< the only record of the table
    const char* names;  ///< of the text
    const char* copied;
  } cases[] = {
      {"an unnamed style", "2|70 0", "7", "7"},
      {"an unnamed style, of a shape file", "2|70 1", "7", ""},
      {"a style", "2 STANDARD|70 0", "7 GONE", ""},
      {"a line type", "2 STANDARD|70 0", "6 GONE|7 STANDARD", "7 STANDARD"},
      {"line type by block", "2 STANDARD|70 0", "6 BYBLOCK|7 standard", "6 BYBLOCK|7 STANDARD"},
  };
  const std::string pattern = "@click 1975\n@click 1954\n@type 1934 2\n@type 1935 50\n@click 1\n";
  for (const auto& each : cases) {
    std::string drawing = sheet(text("X001", 0, 0, each.names));
    const std::string record = groups("2 STANDARD|70 0");
    drawing.replace(drawing.find(record), record.size(), groups(each.style));
    EXPECT_EQ(count(drawing, pattern).back(), (Text{"X002", 50, 0})) << each.what;
    EXPECT_EQ(lastNames(read("out.dxf")), groups(each.copied)) << each.what;
    count(drawing, pattern + "U\n");
    EXPECT_EQ(read("out.dxf"), drawing) << each.what;
  }
  // Copies that can't be made are told of.
  const std::string colored = text("X001", 0, 0, "62 300") + text("X002", 0, 9);
  EXPECT_EQ(count(sheet(colored), pattern).size(), 2U);
  EXPECT_TRUE(shown("Copies that the drawing didn't take: 2"));
}

TEST_F(CountUpCommand, DragsCountOnFromPassToPass) {
  const std::string lines =
      "@type 1931 2\n@click 1974\n@click 1\n@point 0,0\n@point 100,0\n@move 3,3\n@point 100,50\n"
      "@move 500,500\n@esc\n";
  // The originals are on a locked layer, and so are their copies.
  std::string drawing = sheet(text("X001", 5, 0) + text("X002", 5, -10));
  for (std::size_t at = 0; (at = drawing.find("TEXT\n  8\n0", at)) != std::string::npos; ++at) {
    drawing.replace(at, 10, "TEXT\n  8\nLOCKED");
  }
  const std::vector<Text> originals = {{"X001", 5, 0}, {"X002", 5, -10}};
  const std::vector<Text> copies = {
      {"X003", 105, 0}, {"X004", 105, -10}, {"X005", 105, 50}, {"X006", 105, 40}};
  std::vector<Text> expected = originals;
  expected.insert(expected.end(), copies.begin(), copies.end());
  EXPECT_EQ(count(drawing, lines), expected);
  EXPECT_NE(read("out.dxf").find("LOCKED\n 70\n4"), std::string::npos) << "locked again";
  EXPECT_EQ(count(drawing, lines + "U\n"), originals);
  EXPECT_EQ(read("out.dxf"), drawing) << "one U takes all of it back";
}

TEST_F(CountUpCommand, NothingStaysHoweverADragEnds) {
  const std::string drag = "@preselect all\nKOVRA_TEXT_COUNTUP\n@click 1974\n@click 1\n";
  const char* const ends[] = {
      "@esc\n",
      "@point 0,0\n@esc\n",
      "@point 0,0\n@move 5,5\n@open other.dxf\n@list\n@activate in.dxf\n@esc\n",
      "@point 0,0\n@move 5,5\n@closedrawing\n@open in.dxf\n",
      "@point 0,0\n@enter\n@esc\n",
  };
  write("project/project.ini", "[Project]\nDataVersion=10.0\n");
  write("other.dxf", sheet(kTerminals));
  for (const auto* end : ends) {
    write("in.dxf", sheet(kTerminals));
    const auto ended = runScript(drag + end + "@save saved.dxf\n", {"-p", "project", "in.dxf"});
    EXPECT_EQ(ended.status, 0) << end << ended.err << ended.out;
    EXPECT_EQ(read("saved.dxf"), sheet(kTerminals)) << end;
  }
}

TEST_F(CountUpCommand, OkIsRefusedWhileEntriesAreInvalid) {
  const auto texts = count(sheet(kTerminals),
                           "@type 1931 0\n@refused @click 1\n"
                           "@type 1931 1\n@click 1975\n@click 1955\n"
                           "@type 1932 2\n@type 1933 0\n@refused @click 1\n"
                           "@type 1933 0.0001\n@refused @click 1\n@type 1933 5\n"
                           "@type 1934 0\n@click 1\n"  // a message, the dialog stays
                           "@type 1934 1\n@click 1\n");
  EXPECT_TRUE(shown("The numbers of rows and columns must be 1 or more."));
  EXPECT_EQ(texts.size(), 4U);
}

TEST_F(CountUpCommand, StepFieldsFollowEachOther) {
  count(sheet(kTerminals),
        "@choose 1978 #2\n@type 1931 -31\n@dialog\n"
        "@click 1977\n@type 1936 1F\n@dialog\n"
        "@choose 1978 #4\n@refused @click 1\n@refused @click 1977\n@click 1976\n@dialog\n@close\n");
  EXPECT_TRUE(shown("-1F"));
  EXPECT_TRUE(shown("31"));
}

TEST_F(CountUpCommand, EntriesComeBackAlsoAfterCancel) {
  count(sheet(kTerminals),
        "@choose 1978 #2\n@click 1977\n@type 1936 10\n@click 1975\n@click 1956\n@type 1932 7\n"
        "@type 1933 2.5\n@type 1934 3\n@type 1935 -1.25\n@place 40 50\n@close\n");
  const std::string first = result.out;
  count(sheet(kTerminals), "@dialog\n@close\n");
  for (const auto* entry : {"Hexadecimal", "16", "7", "2.5", "-1.25"}) {
    EXPECT_TRUE(shown(entry)) << entry << " in " << result.out;
  }
}

TEST_F(CountUpCommand, PicksDistancesInDialogUnits) {
  const auto texts = count(sheet(kTerminals),
                           "@click 1975\n@click 1955\n@type 1932 2\n@type 1934 2\n"
                           "@click 1957\n@point 10,30\n@point 40,10\n@dialog\n"
                           "@click 1958\n@point 0,0\n@esc\n"
                           "@click 1\n",
                           "10.0", "[Scale]\nin.dxf=2.0\n");
  ASSERT_EQ(texts.size(), 8U);
  EXPECT_EQ(texts[2], (Text{"X002", 0, -20})) << "picked distance over the scale, times the scale";
  EXPECT_EQ(texts[6], (Text{"X004", 30, -20}));
}

TEST_F(CountUpCommand, OldProjectsAndMissingSelectionsEndIt) {
  EXPECT_EQ(count(sheet(kTerminals), "", "6.99").size(), 2U);
  EXPECT_TRUE(shown("the data version of the project doesn't allow this command"));
  write("in.dxf", sheet(kTerminals));
  const auto none =
      runScript("KOVRA_TEXT_COUNTUP\n@enter\n", {"-p", "project", "-o", "out.dxf", "in.dxf"});
  EXPECT_EQ(none.status, 0) << none.err;
}

}  // namespace
}  // namespace kovra::test
