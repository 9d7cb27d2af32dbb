// The property copy from the command line on whole drawings: only what was asked for changes, and
// what goes wrong loses nothing.
#include <algorithm>
#include <sstream>

#include "tests/host/drawings.h"
#include "tests/host/program.h"

namespace kovra::test {
namespace {

using Lines = std::vector<std::string>;

class PropertyCopyTest : public ProgramTest {
 protected:
  /// Runs the command with one line on a.dxf and writes b.dxf.
  ProgramRun copy(const std::string& line, std::vector<std::string> arguments = {}) const {
    arguments.insert(arguments.begin(), "a.dxf");
    arguments.insert(arguments.end(), {"-c", "-KOVRA_ATTR_COPY", "-c", line, "-o", "b.dxf"});
    std::error_code ignored;
    std::filesystem::remove(path("b.dxf"), ignored);
    return run(arguments);
  }
  Lines changed(const std::string& line, const std::vector<std::string>& arguments = {}) const {
    const ProgramRun result = copy(line, arguments);
    EXPECT_EQ(result.status, 0) << line << result.err;
    return changedLines(read("a.dxf"), read("b.dxf"));
  }
  void writeProject(const std::string& version) const {
    write("project/project.ini", "[Project]\nDataVersion=" + version + "\nSharedDatabases=0\n");
  }
};

TEST_F(PropertyCopyTest, EachOptionChangesItsGroups) {
  write("a.dxf", motorDrawing());
  const struct {
    std::string line;
    Lines changes;
  } cases[] = {
      {"NAME+ /H 3", {"-2.5", "+3.0"}},
      {"name /h 3.5", {"-2.5", "+3.5"}},
      {"NAME,SENBAN+ /H 3", {"-2.5", "+3.0", "-2.5", "+3.0"}},
      {"NAME, ,,SENBAN+, /H 3", {}},
      {"NAME,,SENBAN+, /H 3", {"-2.5", "+3.0", "-2.5", "+3.0"}},
      {"NAME /H 2.5", {}},
      {"NAME /H 0", {}},
      {"NAME /H -3", {}},
      {"NAME /H high", {}},
      {"NAME /L wireno", {"-0", "+WIRENO"}},
      {"SENBAN+ /L WIRENO", {}},
      {"NAME /L NOSUCHLAYER", {}},
      {"NAME /X 1 /H 3", {"-2.5", "+3.0"}},
      {"NAME /H 3 /H 4", {"-2.5", "+4.0"}},
      {"NAME /NSC /H", {}},
      {"NOSUCHTAG /H 3", {}},
  };
  for (const auto& row : cases) EXPECT_EQ(changed(row.line), row.changes) << row.line;
}

TEST_F(PropertyCopyTest, NewGroupsComeBetweenOnesThatStay) {
  write("a.dxf", drawingWith({{"NAME", "M1"}}));
  EXPECT_EQ(copy("NAME /W 0.8 /A 90").status, 0);
  EXPECT_NE(read("b.dxf").find(" 41\n0.8\n"), std::string::npos);
  EXPECT_NE(read("b.dxf").find(" 50\n90.0\n"), std::string::npos);
  // Every line of the first file is still there, in order.
  std::istringstream lines(read("a.dxf"));
  std::istringstream result(read("b.dxf"));
  std::string found;
  for (std::string line; std::getline(lines, line);) {
    while (std::getline(result, found) && found != line) continue;
    ASSERT_EQ(found, line);
  }
  // The text stays where it was when its alignment changes.
  EXPECT_EQ(copy("NAME /J BC").status, 0);
  EXPECT_NE(run({"list", "--format", "csv", "b.dxf"}).out.find(",BC,10,20,0"), std::string::npos);
}

TEST_F(PropertyCopyTest, HeightIsScaledFromDataVersionTwelveOn) {
  DrawingForm form;
  form.dimensionScale = "2.0";
  write("a.dxf", drawingWith({{"NAME", "M1"}}, form));
  const struct {
    std::string version;  // empty: no project
    std::string options;
    std::string height;
  } cases[] = {
      {"", "", "3.0"},
      {"", "/SC", "6.0"},
      {"11.0", "", "3.0"},
      {"11.0", "/SC", "6.0"},
      {"12.0", "", "6.0"},
      {"12.0", "/NSC", "3.0"},
      {"12.0", "/NSC /SC", "6.0"},
      {"15.0", "/SC /NSC", "3.0"},
  };
  for (const auto& row : cases) {
    std::vector<std::string> arguments;
    if (!row.version.empty()) {
      writeProject(row.version);
      arguments = {"-p", "project"};
    }
    EXPECT_EQ(changed("NAME /H 3 " + row.options, arguments), (Lines{"-2.5", "+" + row.height}))
        << row.version << row.options;
  }
}

TEST_F(PropertyCopyTest, EveryDialectKeepsItsForm) {
  for (const std::string release : {"AC1009", "AC1012", "AC1015", "AC1021", "AC1032"}) {
    DrawingForm form;
    form.release = release;
    form.lineEnd = "\r\n";
    write("a.dxf", motorDrawing(form));
    EXPECT_EQ(changed("NAME+ /H 3"), (Lines{"-2.5\r", "+3.0\r"})) << release;
  }
}

TEST_F(PropertyCopyTest, TextsOfOtherScriptsStayAsTheyAre) {
  DrawingForm form;
  form.codePage = "ANSI_932";
  write("a.dxf",
        drawingWith({{"NAME", "\x93\x64\x83\x5C"}, {"\x90\xFC\x94\xD4", "\x8F\x5C"}}, form));
  EXPECT_EQ(changed("NAME+ /H 3"), (Lines{"-2.5", "+3.0"}));
  EXPECT_EQ(changed("線番 /H 3"), (Lines{"-2.5", "+3.0"}));
}

TEST_F(PropertyCopyTest, LockedLayersAreWrittenAndStayLocked) {
  write("a.dxf", drawingWith({{"NAME", "M1", "LOCKED"}}));
  EXPECT_EQ(changed("NAME /H 3"), (Lines{"-2.5", "+3.0"}));
  // ERASE and MOVE keep off them.
  const ProgramRun result = runScript(
      "-LAYER\nLO\n0\n\nERASE\n@select all\n@enter\n@save b.dxf\nU\nU\n@save c.dxf\n", {"a.dxf"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(changedLines(read("a.dxf"), read("b.dxf")), (Lines{"-0", "+4"}));
  EXPECT_EQ(read("c.dxf"), read("a.dxf"));
}

TEST_F(PropertyCopyTest, UndoGivesTheFirstFileAndRedoTheSecond) {
  const std::string before = motorDrawing();
  write("a.dxf", before);
  const ProgramRun result = runScript(
      "-KOVRA_ATTR_COPY\nNAME+ /H 3 /W 0.8 /J MC /A 30 /L WIRENO\n@save done.dxf\n"
      "U\n@save undone.dxf\nREDO\n@save redone.dxf\n",
      {"a.dxf"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_NE(read("done.dxf"), before);
  EXPECT_EQ(read("undone.dxf"), before);
  EXPECT_EQ(read("redone.dxf"), read("done.dxf"));
  EXPECT_EQ(read("a.dxf"), before);
}

TEST_F(PropertyCopyTest, ResultLineAndRefusedLines) {
  write("a.dxf", motorDrawing());
  EXPECT_NE(copy("NAME,SENBAN1 /H 3").out.find(" 1 "), std::string::npos);  // one reference
  DrawingForm form;
  form.modelSpace = false;
  write("a.dxf", motorDrawing(form));
  EXPECT_NE(copy("NAME /H 3").out.find("-1"), std::string::npos);
  EXPECT_EQ(read("b.dxf"), read("a.dxf"));
  for (const char* line : {"NAME /H", "/?", "NAME", ""}) {
    EXPECT_EQ(copy(line).status, 0) << line;
    EXPECT_EQ(read("b.dxf"), read("a.dxf")) << line;
  }
}

TEST_F(PropertyCopyTest, FilesThatAreNoDrawingsGiveOneClearLine) {
  const std::string good = motorDrawing();
  const struct {
    std::string bytes;
    std::string says;
  } cases[] = {
      {"", ""},
      {"AC1015\0\0\0\0\0\0\x01", "DWG"},
      {"These are\nsome notes\nabout nothing\n", "line 1"},
      {good.substr(0, good.find("ENDBLK")), "line"},
      {good.substr(0, good.find("EOF") - 20), "line"},
      {good.substr(0, good.size() / 2 + 1), "line"},
  };
  for (const auto& row : cases) {
    write("a.dxf", row.bytes);
    const ProgramRun result = copy("NAME /H 3");
    EXPECT_EQ(result.status, 3) << row.says;
    EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
    EXPECT_NE(result.err.find("a.dxf"), std::string::npos) << result.err;
    EXPECT_NE(result.err.find(row.says), std::string::npos) << result.err;
    EXPECT_FALSE(exists("b.dxf"));
    EXPECT_EQ(read("a.dxf"), row.bytes);
  }
}

TEST_F(PropertyCopyTest, AFileThatChangedMeanwhileIsNotWrittenOver) {
  write("a.dxf", motorDrawing());
  write("other.dxf", drawingWith({{"NAME", "somebody else's work"}}));
  // The program saves a copy of the other drawing over the first one's file, as another would.
  const ProgramRun result =
      runScript("DIMSCALE\n2\n@open other.dxf\n@save a.dxf\n@activate a.dxf\n@save\n", {"a.dxf"});
  EXPECT_EQ(result.status, 3) << result.out;
  EXPECT_NE(result.err.find("test.scr:6"), std::string::npos) << result.err;
  EXPECT_EQ(read("a.dxf"), read("other.dxf"));
}

TEST_F(PropertyCopyTest, AFullDiskLosesNothing) {
  const std::string before = motorDrawing();
  write("a.dxf", before);
  limitFileSize(before.size() / 2);
  const ProgramRun result = run({"a.dxf", "-c", "-KOVRA_ATTR_COPY", "-c", "NAME /H 3", "--save"});
  EXPECT_EQ(result.status, 3) << result.out;
  EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
  EXPECT_EQ(read("a.dxf"), before);
  EXPECT_EQ(files(), (Lines{".err", ".in", ".out", "a.dxf"}));
}

TEST_F(PropertyCopyTest, AReadOnlyDrawingIsReadAndNotWritten) {
  namespace fs = std::filesystem;
  const std::string before = motorDrawing();
  write("a.dxf", before);
  fs::permissions(path("a.dxf"), fs::perms(0444));
  EXPECT_EQ(changed("NAME /H 3"), (Lines{"-2.5", "+3.0"})) << "to another file";
  const ProgramRun result = run({"a.dxf", "-c", "-KOVRA_ATTR_COPY", "-c", "NAME /H 3", "--save"});
  EXPECT_EQ(result.status, 3) << result.out;
  EXPECT_NE(result.err.find("a.dxf: the file is read-only"), std::string::npos) << result.err;
  EXPECT_EQ(read("a.dxf"), before);
  EXPECT_FALSE(exists("a.dxf.bak"));
}

TEST_F(PropertyCopyTest, PlacesThatCantBeWrittenLoseNothing) {
  write("a.dxf", motorDrawing());
  std::filesystem::create_directory(path("folder.dxf"));
  // A kernel file system refuses new files, to root too.
  for (const std::string output : {"folder.dxf", "/proc/out.dxf", "a.dxf/out.dxf"}) {
    const ProgramRun result =
        run({"a.dxf", "-c", "-KOVRA_ATTR_COPY", "-c", "NAME /H 3", "-o", output});
    EXPECT_EQ(result.status, 3) << output;
    EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
  }
  EXPECT_EQ(read("a.dxf"), motorDrawing());
  EXPECT_TRUE(std::filesystem::is_empty(path("folder.dxf")));
}

}  // namespace
}  // namespace kovra::test
