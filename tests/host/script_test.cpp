// Input lines: what they do, what refuses them, how a run ends.
#include "tests/host/drawings.h"
#include "tests/host/program.h"

namespace kovra::test {
namespace {

class ScriptTest : public ProgramTest {
 protected:
  ScriptTest() { write("a.dxf", motorDrawing()); }
};

bool contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST_F(ScriptTest, LinesThatCantBeCarriedOutNameTheirPlace) {
  const struct {
    std::string line;
    std::string says;
    int status = 1;
  } cases[] = {
      {"NOSUCHCOMMAND", "NOSUCHCOMMAND"},
      {"@nosuchline", "@nosuchline"},
      {"@refused @nosuchline", "@nosuchline"},
      {"@", "@"},
      {"\xFF\xFE", "UTF-8"},
      {"@keys \"open", "closing quote"},
      {"@keys \"a\\q\"", "backslash"},
      {"@keys \"a\" b", "quotes"},
      {"@keys", "missing"},
      {"@show", "missing"},
      {"@show NOSUCHVARIABLE", "NOSUCHVARIABLE"},
      {"@show CLAYER x", "x"},
      {"@list x", "x"},
      {"@answer perhaps", "perhaps"},
      {"@open nosuch.dxf", "nosuch.dxf", 3},
      {"@open", "missing"},
      {"@activate nosuch.dxf", "nosuch.dxf"},
      {"@save nosuch/b.dxf", "nosuch", 3},
      {"@project nosuch", "nosuch", 3},
      {"@point 1", "1"},
      {"@point 1,2,3,4", "1,2,3,4"},
      {"@point 1,x", "1,x"},
      {"@point 1,inf", "inf"},
      {"@pick G1", "G1"},
      {"@click 1", "dialog"},
      {"@dialog", "dialog"},
      {"@place 1", "dialog"},
      {"@use 531", "531"},
      {"@refused REGEN", "refused"},
  };
  for (const auto& row : cases) {
    const ProgramRun result =
        runScript("# first\n" + row.line + "\n@save done.dxf\n", {"a.dxf", "-o", "b.dxf"});
    EXPECT_EQ(result.status, row.status) << row.line;
    EXPECT_EQ(result.err.rfind("kovra: test.scr:2: ", 0), 0U) << row.line << result.err;
    EXPECT_TRUE(contains(result.err.substr(19), row.says)) << row.line << result.err;
    EXPECT_FALSE(exists("done.dxf") || exists("b.dxf")) << row.line;
  }
}

TEST_F(ScriptTest, RefusedIsFineWhereItIsExpected) {
  const ProgramRun result = runScript(
      "@refused NOSUCHCOMMAND\n@refused @open nosuch.dxf\n@refused @pick ABCD\n@refused @click 1\n"
      "SETVAR\nCLAYER\n@refused NOSUCHLAYER\n@esc\n@show CLAYER\n",
      {"a.dxf"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_TRUE(contains(result.out, "CLAYER=\"0\"")) << result.out;
}

TEST_F(ScriptTest, KeepGoingGoesOnAndStillFails) {
  const ProgramRun result = runScript("NOSUCHCOMMAND\nDIMSCALE\n2\n@nosuchline\n@show DIMSCALE\n",
                                      {"a.dxf", "--keep-going", "-o", "b.dxf"});
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(contains(result.err, "test.scr:1") && contains(result.err, "test.scr:4"));
  EXPECT_TRUE(contains(result.out, "DIMSCALE=2")) << result.out;
  EXPECT_EQ(changedLines(read("a.dxf"), read("b.dxf")), (std::vector<std::string>{"-1.0", "+2.0"}));
}

TEST_F(ScriptTest, KeysEscapesAndEmptyLines) {
  const ProgramRun result = runScript(
      "\n\n"
      "@keys \"DIMSCAX\\bLE\\n\"\n"
      "@keys 4\n"
      "@enter\n"
      "@keys \"SETVAR\\nCLAYER\\n\\eSETVAR\\n\"\n"
      "LUPREC\n"
      "5\n"
      "@show DIMSCALE\n@show LUPREC\n@show CLAYER\n",
      {"a.dxf"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_TRUE(contains(result.out, "DIMSCALE=4")) << result.out;
  EXPECT_TRUE(contains(result.out, "LUPREC=5")) << result.out;
  EXPECT_TRUE(contains(result.out, "CLAYER=\"0\"")) << result.out;
}

TEST_F(ScriptTest, EndOfInputCancelsWhatWaits) {
  const ProgramRun result = runScript("-KOVRA_ATTR_COPY\n", {"a.dxf", "-o", "b.dxf"});
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(contains(result.err, "-KOVRA_ATTR_COPY")) << result.err;
  EXPECT_FALSE(exists("b.dxf"));
  // After an error the cancel isn't worth a line of its own.
  const ProgramRun failed = runScript("-LAYER\n@nosuchline\n", {"a.dxf"});
  EXPECT_EQ(std::count(failed.err.begin(), failed.err.end(), '\n'), 1) << failed.err;
}

TEST_F(ScriptTest, AnswersNobodyAskedForAreAnError) {
  for (const char* line : {"@answer yes\n", "@files a.dxf\n", "@files\n"}) {
    const ProgramRun result = runScript(line, {"a.dxf", "-o", "b.dxf"});
    EXPECT_EQ(result.status, 1) << line;
    EXPECT_TRUE(contains(result.err, "left over")) << result.err;
    EXPECT_FALSE(exists("b.dxf"));
  }
}

TEST_F(ScriptTest, ClipboardHoldsQuotedTexts) {
  EXPECT_EQ(run({"--quiet", "-c", "@clipboard \" a\\tb\\\\\\\" \"", "-c", "@clipboard"}).out,
            " a\tb\\\" \n");
  EXPECT_EQ(run({"--quiet", "-c", "@clipboard plain text  ", "-c", "@clipboard"}).out,
            "plain text\n");
}

TEST_F(ScriptTest, QuietLeavesOnlyWhatWasAskedFor) {
  const ProgramRun loud = runScript("DIMSCALE\n2\n@show DIMSCALE\n", {"a.dxf"});
  const ProgramRun quiet = runScript("DIMSCALE\n2\n@show DIMSCALE\n", {"a.dxf", "--quiet"});
  EXPECT_EQ(quiet.out, "DIMSCALE=2\n");
  EXPECT_GT(loud.out.size(), quiet.out.size());
  EXPECT_TRUE(contains(loud.out, "\nDIMSCALE=2\n")) << loud.out;
}

TEST_F(ScriptTest, ListShowsTheEditedDrawing) {
  const ProgramRun result = runScript(
      "@list\n-KOVRA_ATTR_COPY\nNAME /H 7 /L WIRENO\n@list\nU\n@list\n", {"a.dxf", "--quiet"});
  EXPECT_EQ(result.status, 0) << result.err;
  const size_t third = result.out.size() / 3;
  EXPECT_EQ(result.out.substr(0, third), result.out.substr(2 * third));
  EXPECT_EQ(run({"list", "a.dxf"}).out, result.out.substr(0, third));
  EXPECT_TRUE(contains(result.out.substr(third, third), " 7 ")) << result.out;
}

TEST_F(ScriptTest, DrawingsAreOpenedActivatedClosedAndSaved) {
  write("sub/b.dxf", drawingWith({{"B", "in b"}}));
  const ProgramRun result = runScript(
      "@show DWGNAME\n@open sub/b.dxf\n@show DWGNAME\n@activate ./a.dxf\n@show DWGNAME\n"
      "DIMSCALE\n3\n@save copy of a.dxf\n@closedrawing\n@show DWGNAME\n@closedrawing\n"
      "@refused @list\n@refused REGEN\n@refused @save\n",
      {"a.dxf", "--quiet"});
  EXPECT_EQ(result.status, 0) << result.err;
  std::string names;
  for (const std::string name : {"b.dxf", "a.dxf"}) names += "DWGNAME=\"" + name + "\"\n";
  EXPECT_EQ(result.out, "DWGNAME=\"a.dxf\"\n" + names + "DWGNAME=\"b.dxf\"\n");
  EXPECT_TRUE(contains(read("copy of a.dxf"), "$DIMSCALE\n 40\n3.0\n"));
  EXPECT_EQ(read("a.dxf"), motorDrawing());
}

TEST_F(ScriptTest, MoveTakesAttributesAlong) {
  const ProgramRun result = runScript(
      "MOVE\n@select all\n@enter\n0,0\n5,-5\n@save moved.dxf\nU\n@save back.dxf\n", {"a.dxf"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(changedLines(read("a.dxf"), read("moved.dxf")),
            (std::vector<std::string>{"-0.0", "+5.0", "-0.0", "+-5.0", "-10.0", "+15.0", "-20.0",
                                      "+15.0", "-10.0", "+15.0", "-30.0", "+25.0"}));
  EXPECT_EQ(read("back.dxf"), read("a.dxf"));
}

TEST_F(ScriptTest, MoveTakesTheTextOfMultiLineAttributesAlong) {
  DrawingForm form;
  form.release = "AC1032";
  std::string drawing = drawingWith({{"NAME", "M1"}}, form);
  drawing.insert(
      drawing.find("  0\nSEQEND"),
      "101\nEmbedded Object\n 70\n4\n 10\n10.0\n 20\n20.0\n 30\n0.0\n 11\n1.0\n 21\n0.0\n"
      " 31\n0.0\n 40\n2.5\n 41\n30.0\n 71\n7\n  1\nM1\\Pspare\n1001\nAPP\n1010\n10.0\n"
      "1020\n20.0\n1030\n0.0\n");
  write("a.dxf", drawing);
  const ProgramRun result = runScript(
      "MOVE\n@select all\n@enter\n0,0\n5,-5\n@save moved.dxf\nU\n@save back.dxf\n", {"a.dxf"});
  EXPECT_EQ(result.status, 0) << result.err;
  // Places of the reference, the attribute and its embedded text; its direction and the other
  // program's data stay.
  EXPECT_EQ(changedLines(drawing, read("moved.dxf")),
            (std::vector<std::string>{"-0.0", "+5.0", "-0.0", "+-5.0", "-10.0", "+15.0", "-20.0",
                                      "+15.0", "-10.0", "+15.0", "-20.0", "+15.0"}));
  EXPECT_EQ(read("back.dxf"), drawing);
}

TEST_F(ScriptTest, FailedRunKeepsWhatWasSavedBefore) {
  const ProgramRun result =
      runScript("DIMSCALE\n3\n@save\nDIMSCALE\n4\nNOSUCHCOMMAND\n", {"a.dxf", "--save"});
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(contains(read("a.dxf"), "$DIMSCALE\n 40\n3.0\n"));
}

TEST_F(ScriptTest, Layer0IsThereWithoutATable) {
  write("bare.dxf", "0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF\n");
  const ProgramRun result = runScript("-LAYER\nMake\nX\nSet\n0\n\n@show CLAYER\n", {"bare.dxf"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_TRUE(contains(result.out, "CLAYER=\"0\"")) << result.out;
}

TEST_F(ScriptTest, ReloadForgetsWhatTheModuleRemembered) {
  write("p/project.ini", "[Project]\nDataVersion=12.0\n");
  DrawingForm form;
  form.dimensionScale = "2.0";
  write("a.dxf", drawingWith({{"NAME", "M1"}}, form));
  const ProgramRun result = runScript(
      "-KOVRA_ATTR_COPY\nNAME /H 3\n@reload\n-KOVRA_ATTR_COPY\nNAME /H 4\n"
      "-KOVRA_ATTR_COPY\n@refused @reload\n@esc\n@list\n",
      {"a.dxf", "-p", "p", "--quiet"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_TRUE(contains(result.out, " 8 ")) << result.out;
}

TEST_F(ScriptTest, ProjectIsSwitchedWithinARun) {
  write("p/project.ini", "[Project]\nDataVersion=12.0\n");
  DrawingForm form;
  form.dimensionScale = "2.0";
  write("a.dxf", drawingWith({{"NAME", "M1"}}, form));
  const ProgramRun result = runScript(
      "-KOVRA_ATTR_COPY\nNAME /H 3\n@list\n@project p\n-KOVRA_ATTR_COPY\nNAME /H 3\n@list\n"
      "@project\n-KOVRA_ATTR_COPY\nNAME /H 4\n@list\n",
      {"a.dxf", "--quiet"});
  EXPECT_EQ(result.status, 0) << result.err;
  for (const char* height : {" 3 ", " 6 ", " 4 "}) {
    EXPECT_TRUE(contains(result.out, height)) << height << result.out;
  }
}

}  // namespace
}  // namespace kovra::test
