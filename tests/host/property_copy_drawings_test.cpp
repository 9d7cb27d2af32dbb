// How far the property copy reaches: a selection, the drawing, chosen drawings, the whole project.
// What is left out, what is said, and what each file holds afterwards.
#include <algorithm>
#include <filesystem>

#include "tests/host/drawings.h"
#include "tests/host/program.h"

namespace kovra::test {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

const std::string kHeight = "KOVRA_ATTR_COPY_ALL\n@check 1968 on\n@type 1979 3\n@check 2014 off\n";
const Lines kHigher = {"-2.5", "+3.0"};

class PropertyCopyDrawingsTest : public ProgramTest {
 protected:
  /// A project of the drawings a, b ...; further lines go behind their list.
  void project(const Lines& drawings, const std::string& further = {},
               const std::string& version = "12.0") const {
    std::string text = "[Project]\nDataVersion=" + version + "\n" + further + "[Drawings]\n";
    int number = 0;
    for (const std::string& name : drawings) {
      text += std::to_string(++number) + "=../" + name + "\n";
    }
    write("p/project.ini", text);
  }
  /// The transcript without the folder's name; the run must go well.
  std::string copy(const std::string& lines, const Lines& open = {"a.dxf"}) const {
    Lines arguments = {"-p", "p"};
    arguments.insert(arguments.end(), open.begin(), open.end());
    ProgramRun result = runScript(lines, arguments);
    EXPECT_EQ(result.status, 0) << lines << result.err;
    const std::string folder = path("").string();
    for (std::size_t at; (at = result.out.find(folder)) != std::string::npos;) {
      result.out.erase(at, folder.size());
    }
    return result.out;
  }
  /// What stands behind the last dialog's lines.
  static std::string said(const std::string& out) {
    const std::size_t end = out.rfind("2014 off\n");
    return end == std::string::npos ? out : out.substr(end + 9);
  }
  Lines changed(const std::string& name) const { return changedLines(motorDrawing(), read(name)); }
};

TEST_F(PropertyCopyDrawingsTest, ASelectionAndTheWholeDrawing) {
  project({}, "[ExcludedLayers]\n1=WIRENO\n");
  // A second reference on a layer that isn't edited.
  const std::string drawing = drawingWith({{"NAME", "M1"}});
  write("a.dxf", drawing);
  const std::string scope = "@choose 2013 ";
  const struct {
    std::string lines;
    Lines changes;
    std::string says;
  } cases[] = {
      {"@click 1\n@select all\n@enter\n", kHigher, "Attributes changed in 1 object(s)."},
      {"@click 1\n@enter\n", {}, "Select block references or attribute definitions:"},
      {"@click 1\n@esc\n", {}, "*Cancel*"},
      {scope + "#1\n@click 1\n", kHigher,
       "Regenerating model.\nAttributes changed in 1 object(s)."},
      {scope + "#1\n@check 1984 1 on\n@click 1\n", {}, "Attributes changed in 0 object(s)."},
      {scope + "#1\n@check 1973 on\n@type 1931 NA*\n@click 1\n", kHigher, "1 object(s)"},
      {scope + "#1\n@click 2\n", {}, ""},
  };
  for (const auto& each : cases) {
    const std::string out = copy(kHeight + "@check 1973 off\n@check 1984 0 on\n@choose 2013 #0\n" +
                                 each.lines + "@save b.dxf\nU\n@save c.dxf\n");
    EXPECT_EQ(changedLines(drawing, read("b.dxf")), each.changes) << each.lines;
    EXPECT_EQ(read("c.dxf"), drawing) << each.lines;
    EXPECT_NE(out.find(each.says), std::string::npos) << each.lines << out;
  }
}

TEST_F(PropertyCopyDrawingsTest, EveryPropertyArrives) {
  project({});
  DrawingForm form;
  form.dimensionScale = "2.0";
  write("a.dxf", drawingWith({{"NAME", "M1"}}, form));
  const struct {
    std::string lines;
    const char* result;  // layer, height, width factor, rotation, alignment
  } cases[] = {
      {"@check 1968 on\n@type 1979 3\n", ",0,Standard,6,1,0,L,"},
      {"@check 1968 on\n@type 1979 3\n@check 2014 off\n", ",0,Standard,3,1,0,L,"},
      {"@check 1967 on\n@type 1978 wireno\n", ",WIRENO,Standard,2.5,1,0,L,"},
      {"CLAYER\nWIRENO\n", ",WIRENO,Standard,2.5,1,0,L,"},
      {"@check 1967 on\n@type 1978 NOSUCH\n", ",0,Standard,2.5,1,0,L,"},
      {"@check 1969 on\n@type 1980 0.8\n@check 1970 on\n@type 1981 -90\n",
       ",0,Standard,2.5,0.8,270,L,"},
      {"@check 1971 on\n@choose 1982 #8\n", ",0,Standard,2.5,1,0,MC,"},
      {"@check 1968 on\n@type 1979 x\n", ",0,Standard,2.5,1,0,L,"},
  };
  for (const auto& each : cases) {
    fs::remove(path(".state"));
    const bool current = each.lines.starts_with("CLAYER");
    copy((current ? each.lines : "") + "KOVRA_ATTR_COPY_ALL\n" +
         (current ? "@check 1967 on\n@type 1978 \"<current LAYER>\"\n" : each.lines) +
         "@choose 2013 #1\n@click 1\n@save b.dxf\n");
    EXPECT_NE(run({"list", "--format", "csv", "b.dxf"}).out.find(each.result), std::string::npos)
        << each.lines;
  }
}

TEST_F(PropertyCopyDrawingsTest, AProjectWithAllKindsOfDrawings) {
  const std::string first = motorDrawing();
  for (const char* name : {"a.dxf", "b.dxf", "c.dxf", "kept.dxf", "blocked.dxf"})
    write(name, first);
  DrawingForm form;
  form.modelSpace = false;
  write("bare.dxf", motorDrawing(form));
  write("broken.dxf", first.substr(0, first.size() / 2));
  write("other.dxf", drawingWith({{"TITLE", "x"}}));
  fs::permissions(path("kept.dxf"), fs::perms(0444));
  project({"a.dxf", "blocked.dxf", "b.dxf", "c.dxf", "missing.dxf", "kept.dxf", "bare.dxf",
           "broken.dxf", "other.dxf"},
          "[Blocked]\n1=../blocked.dxf\n");
  const std::string broken = read("broken.dxf");
  const std::string out = copy(kHeight +
                                   "@choose 2013 #3\n@click 1\n@save a2.dxf\nU\n@save a3.dxf\n"
                                   "@activate c.dxf\n@save c2.dxf\nU\n@save c3.dxf\n",
                               {"c.dxf", "a.dxf"});
  const std::string leftOut = "\" can't be written and is left out.\n";
  std::string wanted = "Drawing \"blocked.dxf" + leftOut + "Drawing \"missing.dxf" + leftOut +
                       "Drawing \"kept.dxf" + leftOut +
                       "[a.dxf]\n[b.dxf]\n[c.dxf]\n[bare.dxf]\n[broken.dxf]\n";
  EXPECT_EQ(said(out).substr(0, wanted.size()), wanted);
  wanted =
      "[other.dxf]\nCommand: .REGEN\nRegenerating model.\nAttributes changed in 3 object(s).\n";
  EXPECT_NE(out.find(wanted), std::string::npos) << out;
  // Open drawings are changed and not saved, and U takes it back in each.
  for (const char* name : {"a.dxf", "c.dxf", "a3.dxf", "c3.dxf", "kept.dxf", "blocked.dxf"}) {
    EXPECT_EQ(read(name), first) << name;
  }
  for (const char* name : {"a2.dxf", "b.dxf", "c2.dxf"}) EXPECT_EQ(changed(name), kHigher) << name;
  EXPECT_EQ(read("b.dxf.bak"), first);
  EXPECT_EQ(read("broken.dxf"), broken);
  for (const char* name : {"bare.dxf.bak", "other.dxf.bak", "broken.dxf.bak"}) {
    EXPECT_FALSE(exists(name)) << name;
  }
}

TEST_F(PropertyCopyDrawingsTest, ChosenDrawings) {
  const std::string choose = kHeight + "@choose 2013 #2\n";
  const struct {
    std::string further;  // of the project
    std::string lines;
    std::string says;
    Lines files;  // that are changed
  } cases[] = {
      {"",
       "@files ../b.dxf ../c.dxf\n" + choose + "@click 1\n",
       "[b.dxf]\n[c.dxf]\nAttributes changed in 2 object(s).\n",
       {"b.dxf", "c.dxf"}},
      {"",
       "@files ../b.dxf ../b.dxf ../p/../b.dxf ../c.dxf\n" + choose + "@click 1\n",
       "[b.dxf]\n[c.dxf]\nAttributes changed in 2 object(s).\n",
       {"b.dxf", "c.dxf"}},
      {"", "@files\n" + choose + "@click 1\n", "", {}},
      {"[Blocked]\n1=../b.dxf\n", "@files ../b.dxf\n" + choose + "@click 1\n", "", {}},
      {"[Blocked]\n1=../b.dxf\n",
       "@files ../b.dxf ../c.dxf\n" + choose + "@click 1\n",
       "Drawing \"b.dxf\" can't be written and is left out.\n[c.dxf]\nAttributes changed in 1 "
       "object(s).\n",
       {"c.dxf"}},
      {"[Preset]\n1=../c.dxf\n",
       kHeight + "@click 1\n",
       "[c.dxf]\nAttributes changed in 1 object(s).\n",
       {"c.dxf"}},
      // Open under another path: changed there, not on disk.
      {"",
       "@files ../link.dxf\n" + choose + "@click 1\n@save\n",
       "[link.dxf]\nCommand: .REGEN\nRegenerating model.\nAttributes changed in 1 object(s).\n",
       {"a.dxf"}},
      {"SharedDatabases=1\n",
       "@files ../b.dxf\n" + choose + "@click 1\n",
       "[b.dxf]\nAttributes changed in 1 object(s).\n",
       {"b.dxf"}},
  };
  for (const auto& each : cases) {
    for (const char* name : {"a.dxf", "b.dxf", "c.dxf"}) write(name, motorDrawing());
    if (!exists("link.dxf")) fs::create_symlink("a.dxf", path("link.dxf"));
    project({"a.dxf", "b.dxf"}, each.further);
    EXPECT_EQ(said(copy(each.lines)).find(each.says), 0) << each.lines;
    for (const std::string name : {"a.dxf", "b.dxf", "c.dxf"}) {
      const bool meant = std::ranges::count(each.files, name) != 0;
      EXPECT_EQ(changed(name), meant ? kHigher : Lines{}) << each.lines << name;
    }
  }
}

// The disk is waited for while the next drawing is changed; what goes wrong there is said all the
// same, and the drawing stays as it was.
TEST_F(PropertyCopyDrawingsTest, ADrawingThatCantBePutInPlace) {
  const Lines drawings = {"b.dxf", "c.dxf", "d.dxf"};
  for (const std::string& name : {std::string("a.dxf"), drawings[0], drawings[1], drawings[2]})
    write(name, motorDrawing());
  project(drawings);
  for (const char* name : {"b.dxf.bak", "d.dxf.bak"}) write(name + std::string("/x"), "");
  const ProgramRun result =
      runScript(kHeight + "@choose 2013 #3\n@click 1\n", {"-p", "p", "a.dxf"});
  EXPECT_EQ(result.status, 1);
  for (const std::string& name : drawings) {
    const bool fails = name != "c.dxf";
    EXPECT_EQ(changed(name), fails ? Lines{} : kHigher) << name;
    EXPECT_EQ(result.out.find(name + ": can't be written: ") != std::string::npos, fails) << name;
  }
  for (const std::string& name : files()) EXPECT_FALSE(name.starts_with(".kovra-")) << name;
}

TEST_F(PropertyCopyDrawingsTest, EachDrawingHasItsOwnScale) {
  DrawingForm form;
  for (const auto& [name, scale] : {std::pair{"a.dxf", "2.0"}, {"b.dxf", "10.0"}}) {
    form.dimensionScale = scale;
    write(name, drawingWith({{"NAME", "M1"}}, form));
  }
  project({"a.dxf", "b.dxf"});
  const std::string all =
      "KOVRA_ATTR_COPY\n@check 1968 on\n@type 1979 2.5\n@choose 2013 #3\n@click 1\n";
  copy(all + "@save\n");
  for (const auto& [name, height] : {std::pair{"a.dxf", "5.0"}, {"b.dxf", "25.0"}}) {
    EXPECT_EQ(changedLines(read(std::string(name) + ".bak"), read(name)),
              (Lines{"-2.5", std::string("+") + height}))
        << name;
  }
}

}  // namespace
}  // namespace kovra::test
