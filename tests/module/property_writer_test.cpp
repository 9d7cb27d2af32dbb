#include <gtest/gtest.h>

#include "tests/module/module_run.h"
#include "tests/module/sheet.h"

namespace kovra::test {
namespace {

using Lines = std::vector<std::string>;

constexpr const char* kDone = "Attributes changed in ";

/// Runs the line command and gives the changed lines.
Lines write(ModuleRun& run, const std::string& drawing, const std::string& line) {
  run.open(drawing);
  const std::string before = run.saved();
  EXPECT_EQ(before, drawing);
  run.takeTranscript();
  run.type("-KOVRA_ATTR_COPY\n" + line);
  return ModuleRun::changes(before, run.saved());
}

/// The number that the result line shows, or -2 when there is none.
int shownCount(ModuleRun& run) {
  const std::string shown = run.takeTranscript();
  const std::size_t place = shown.find(kDone);
  return place == std::string::npos ? -2
                                    : std::stoi(shown.substr(place + std::string(kDone).size()));
}

TEST(PropertyWriter, WritesWhatTheLineSaysAndNothingElse) {
  ModuleRun run;
  run.project("12.0");
  // The wide attribute has its width factor and rotation, so that a change shows in its lines.
  const std::string wide = blockReference(attribute("NAME", "41 1.0|50 0.0"));
  const struct {
    const char* line;
    int count;
    Lines changes;
  } cases[] = {
      {"NAME+ /H 2.5", 1, {"2.0 -> 5.0"}},
      {"name+ /h 2.5 /nsc", 1, {"2.0 -> 2.5"}},
      {"NAME /W 0.8", 1, {"1.0 -> 0.8"}},
      {"NAM? /A -90", 1, {"0.0 -> 270.0"}},
      {"NAME /L frame", 1, {"0 -> FRAME"}},
      {"NAME /L NOSUCH", 0, {}},
      {"NAME /H word", 0, {}},
      {"NAME /H 2 /NSC", 1, {}},
      {"NAME /A 100000", 0, {}},
      {"OTHER,,NAME /H 3 /NSC", 1, {"2.0 -> 3.0"}},
      {"NAME+ /NSC /H", 0, {}},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(write(run, sheet(wide, 2), each.line), each.changes) << each.line;
    EXPECT_EQ(shownCount(run), each.count) << each.line;
  }
}

TEST(PropertyWriter, ScalesTheHeightFromDataVersion12On) {
  ModuleRun run;
  const struct {
    const char* project;
    const char* line;
    const char* change;
  } cases[] = {
      {"12.0", "NAME /H 1.5", "2.0 -> 3.0"},      {"11.9", "NAME /H 1.5", "2.0 -> 1.5"},
      {"", "NAME /H 1.5", "2.0 -> 1.5"},          {"", "NAME /SC /H 1.5", "2.0 -> 3.0"},
      {"12.0", "NAME /NSC /H 1.5", "2.0 -> 1.5"},
  };
  for (const auto& each : cases) {
    run.project(each.project);
    EXPECT_EQ(write(run, sheet(blockReference(attribute("NAME")), 2), each.line),
              Lines{each.change})
        << each.project << ' ' << each.line;
  }
}

TEST(PropertyWriter, CountsObjectsWhoseTagsMatch) {
  ModuleRun run;
  const std::string drawing = sheet(
      blockReference(attribute("SENBAN") + attribute("senban3") + attribute("SENBAN10")) +
      blockReference(attribute("NAME")) + blockReference(attribute("")) + attribute("SENBAN5") +
      groups("0 ATTDEF|8 0|10 1.0|20 2.0|30 0.0|40 2.0|1 X|3 P|2 SENBAN4|70 0") + text("T", 0, 0));
  const struct {
    const char* tags;
    int count;
    std::size_t changed;
  } cases[] = {{"SENBAN+", 2, 3}, {"SENBAN", 1, 1}, {"SEN*", 2, 4},
               {"*", 3, 5},       {",", 0, 0},      {"TEXT", 0, 0}};
  for (const auto& each : cases) {
    EXPECT_EQ(write(run, drawing, std::string(each.tags) + " /H 9").size(), each.changed);
    EXPECT_EQ(shownCount(run), each.count) << each.tags;
  }
}

TEST(PropertyWriter, LockedLayersAreWrittenAndLockedAgainExcludedOnesAreNot) {
  ModuleRun run;
  const std::string drawing = sheet(blockReference(attribute("NAME", "", "LOCKED"), "LOCKED") +
                                    blockReference(attribute("NAME"), "KEPT"));
  const std::string excluded = "[ExcludedLayers]\n1=kept\n";
  run.project("6.0", excluded);
  EXPECT_EQ(write(run, drawing, "NAME /H 3").size(), 2U);
  run.project("7.00", excluded);
  EXPECT_EQ(write(run, drawing, "NAME /H 3"), Lines{"2.0 -> 3.0"});
  EXPECT_EQ(shownCount(run), 1);
}

TEST(PropertyWriter, AlignmentKeepsTheTextAtThePointThatFixedIt) {
  ModuleRun run;
  const std::string middleCenter = "72 1|11 7.0|21 8.0|31 0.0|74 2";
  const struct {
    const char* what;
    std::string form;  // with modes and both points, so that changes show as lines
    const char* code;
    Lines mustChange;
    Lines mustStay;
  } cases[] = {
      {"left to bottom center",
       "72 0|11 0.0|21 0.0|31 0.0|74 0",
       "BC",
       {"0 -> 1", "0.0 -> 1.0", "0.0 -> 2.0"},
       {}},
      {"middle center to left",
       middleCenter,
       "L",
       {"1.0 -> 7.0", "2.0 -> 8.0", "1 -> 0", "2 -> 0"},
       {}},
      {"bottom right to top left",
       "72 2|11 7.0|21 8.0|31 0.0|74 1",
       "TL",
       {"2 -> 0", "1 -> 3"},
       {"7.0", "8.0"}},
      {"code A keeps the horizontal mode",
       "72 1|11 7.0|21 8.0|31 0.0|74 2",
       "A",
       {"2 -> 0"},
       {"7.0", "8.0"}},
      {"code F keeps the horizontal mode, too",
       "72 2|11 7.0|21 8.0|31 0.0|74 3",
       "F",
       {"3 -> 0"},
       {"2 ->", "7.0", "8.0"}},
      {"fit to middle center: the position becomes the alignment point",
       "72 5|11 7.0|21 8.0|31 0.0|74 0",
       "MC",
       {"5 -> 1", "0 -> 2", "7.0 -> 1.0", "8.0 -> 2.0"},
       {}},
  };
  for (const auto& each : cases) {
    const Lines changed = write(run, sheet(blockReference(attribute("NAME", each.form))),
                                "NAME /J " + std::string(each.code));
    for (const auto& change : each.mustChange) {
      EXPECT_NE(std::find(changed.begin(), changed.end(), change), changed.end())
          << each.what << ": " << change << " is missing in " << testing::PrintToString(changed);
    }
    for (const auto& change : changed) {
      for (const auto& kept : each.mustStay)
        EXPECT_FALSE(change.starts_with(kept + " ")) << each.what << ": " << change;
    }
    EXPECT_EQ(shownCount(run), 1) << each.what;
  }
}

TEST(PropertyWriter, AnswersThatAreNoWork) {
  ModuleRun run;
  const std::string drawing = sheet(blockReference(attribute("NAME")));
  const struct {
    const char* line;
    const char* shown;
  } cases[] = {
      {" /? ", "Usage:"},
      {"NAME+ /H", "Enter tags, an option"},
      {"NAME+ /SC", "Enter tags, an option"},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(write(run, drawing, each.line), Lines{}) << each.line;
    EXPECT_NE(run.takeTranscript().find(each.shown), std::string::npos) << each.line;
  }
  EXPECT_EQ(write(run, drawing, ""), Lines{});
  const std::string shown = run.takeTranscript();
  EXPECT_EQ(shown.find("Usage"), std::string::npos);
  EXPECT_EQ(shown.find(kDone), std::string::npos);
}

TEST(PropertyWriter, UndoGivesTheFirstFileAgain) {
  ModuleRun run;
  const std::string drawing = sheet(blockReference(attribute("NAME", "", "LOCKED")));
  EXPECT_NE(write(run, drawing, "NAME /L FRAME /H 4 /W 0.5 /A 30 /J MC"), Lines{});
  const std::string changed = run.saved();
  run.type("U");
  EXPECT_EQ(run.saved(), drawing);
  run.type("REDO");
  EXPECT_EQ(run.saved(), changed);
}

}  // namespace
}  // namespace kovra::test
