// Reproducible random users: whatever they type and click, the program neither crashes nor hangs,
// comes back to the idle host, and the drawing saves and loads. New dialogs and commands join by
// their lines in the table.
#include <random>

#include "tests/host/drawings.h"
#include "tests/host/program.h"

namespace kovra::test {
namespace {

constexpr int kRuns = 40;
constexpr int kPiecesPerRun = 60;

// Lines that are legal somewhere, and some that never are; repeated ones come more often.
const char* const kPieces[] = {
    // typed
    "KOVRA_TEXT_COUNTUP", "KOVRA_TEXT_COUNTUP\n@select all\n@enter",
    "KOVRA_TEXT_COUNTUP\n@select 60\n@enter", "@preselect all\nKOVRA_TEXT_COUNTUP",
    "KOVRA_TEXT_COUNTUP\n@select all\n@enter\n@click 1\n@point 0,0\n@move 5,5\n@point 9,0",
    "KOVRA_TEXT_COUNTUP\n@select all\n@enter\n@click 1975\n@click 1956\n@click 1957",
    "-KOVRA_ATTR_COPY", "NAME+ /H 3 /J MC", "NAME /L WIRENO /A 30 /W 0.7", "/?", "U", "UNDO",
    "Mark", "Back", "2", "REDO", "-LAYER", "LO", "U", "0", "New", "L9", "MOVE", "ERASE", "REGEN",
    "UCS", "W", "Z", "90", "SETVAR", "SNAPMODE", "1", "1,1", "@5<45", "nonsense", "", "",
    // keyboard, pointer, selections
    "@enter", "@enter", "@enter", "@esc", "@esc", "@keys \"x\\b\\e\"", "@point 3,4", "@point 30,-4",
    "@move 10,10", "@pick 100", "@pick 10,20", "@select all", "@select all", "@select 100 60",
    "@select -5,-5 500,500", "@select 500,500 -5,-5", "@preselect all", "@preselect 60",
    // dialogs
    "@click 1", "@click 1", "@click 1", "@click 2", "@click 1953", "@click 1954", "@click 1955",
    "@click 1956", "@click 1957", "@click 1958", "@click 1959", "@click 1974", "@click 1975",
    "@click 1975", "@click 1976", "@click 1977", "@check 1967 on", "@check 1967 off",
    "@choose 1978 #0", "@choose 1978 #2", "@choose 1978 #6", "@type 1931 -2", "@type 1931 0",
    "@type 1931 99999999999", "@type 1936 FF", "@type 1932 3", "@type 1932 0", "@type 1934 2",
    "@type 1933 2.5", "@type 1935 -1e3", "@type 1935 \"\"", "@key 1931 Tab", "@key 1932 Esc",
    "@focus 1934", "@caret 1931 0 1", "@place 5 5", "@place min", "@close", "@dialog",
    // documents
    "@open b.dxf", "@activate a.dxf", "@activate b.dxf", "@closedrawing", "@open a.dxf",
    "@project p", "@project", "@reload", "@list", "@answer yes", "@save other.dxf"};

using RandomTest = ProgramTest;

TEST_F(RandomTest, NoCrashNoHangAndADrawingThatLoads) {
  write("p/project.ini", "[Project]\nDataVersion=12.0\n");
  std::string drawing = textDrawing();
  for (unsigned seed = 1; seed <= kRuns; ++seed) {
    std::mt19937 random(seed);
    std::string lines;
    for (int i = 0; i < kPiecesPerRun; ++i) {
      lines += std::string(kPieces[random() % std::size(kPieces)]) + '\n';
    }
    for (const char* name : {"a.dxf", "b.dxf"}) write(name, drawing);
    const ProgramRun result =
        runScript(lines, {"a.dxf", "b.dxf", "-p", "p", "--keep-going", "--save"});
    ASSERT_LE(result.status, 1) << "seed " << seed << '\n' << lines << result.err;
    for (const char* name : {"a.dxf", "b.dxf"}) {
      ASSERT_EQ(run({"check", name}).status, 0) << "seed " << seed << '\n' << lines;
      ASSERT_EQ(run({"list", name}).status, 0) << "seed " << seed << '\n' << lines;
    }
  }
}

}  // namespace
}  // namespace kovra::test
