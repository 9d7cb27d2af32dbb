// Reproducible random users: whatever they type and click, the program neither crashes nor hangs,
// comes back to the idle host, and the drawing saves and loads.
#include "tests/host/program.h"
#include "tests/host/random_scenes.h"

namespace kovra::test {
namespace {

constexpr int kRuns = 60;
/// What must have been seen, so that the random users aren't kept out by a closed door.
const char* const kSeen[] = {"The number of rows must be",
                             "The number of columns must be",
                             "The numbers of rows and",
                             "Specify opposite corner",
                             "second point of row distance",
                             "first point of column distance",
                             "Specify point for the copies:",
                             "can't be counted down",
                             "Specify insertion point:",
                             "Select text:",
                             "first point of row distance",
                             "already open",
                             "Enter text:",
                             "take the height from",
                             "already running",
                             "Select texts to align:",
                             "take all properties from",
                             "distance by two points",
                             "Select base text:",
                             "Select texts:",
                             "take the rotation from",
                             "couldn't be changed",
                             "Regenerating",
                             "Select texts, multi-line texts or attributes:",
                             "attribute to take the justification from",
                             "Replace them?",
                             "couldn't be saved",
                             "Specify point for the texts:",
                             "attribute to take the tag",
                             "text or attribute to take all",
                             "Select block references or",
                             "/b.dxf]",
                             "Attributes changed in 1 ",
                             "The text height must be",
                             "The step must be",
                             "Specify new position:",
                             "The tables couldn't be saved"};

using RandomTest = ProgramTest;

TEST_F(RandomTest, NoCrashNoHangAndADrawingThatLoads) {
  std::string transcripts;
  for (unsigned seed = 1; seed <= kRuns; ++seed) {
    const std::string lines = randomScript(seed);
    for (const NamedFile& file : randomFiles()) write(file.name, file.bytes);
    const ProgramRun result =
        runScript(lines, {"a.dxf", "b.dxf", "-p", "p", "--keep-going", "--save"});
    transcripts += result.out;
    ASSERT_LE(result.status, 1) << "seed " << seed << '\n' << lines << result.err;
    for (const char* name : {"a.dxf", "b.dxf"}) {
      ASSERT_EQ(run({"check", name}).status, 0) << "seed " << seed << '\n' << lines;
      ASSERT_EQ(run({"list", name}).status, 0) << "seed " << seed << '\n' << lines;
    }
  }
  for (const char* seen : kSeen) {
    EXPECT_NE(transcripts.find(seen), std::string::npos) << seen << " was never reached";
  }
}

}  // namespace
}  // namespace kovra::test
