// Options, exit statuses, and what must not be written over.
#include "tests/host/drawings.h"
#include "tests/host/program.h"

namespace kovra::test {
namespace {

using OptionsTest = ProgramTest;

TEST_F(OptionsTest, WrongUsageIsStatusTwoAndSaysWhy) {
  write("a.dxf", motorDrawing());
  const struct {
    std::vector<std::string> arguments;
    std::string says;
  } cases[] = {
      {{"--no-such-option"}, "--no-such-option"},
      {{"-c"}, "--command"},
      {{"-c", "two\nlines"}, "one line"},
      {{"--language", "fr", "a.dxf"}, "fr"},
      {{"list"}, "DRAWING"},
      {{"list", "--format", "xml", "a.dxf"}, "xml"},
      {{"check"}, "DRAWING"},
      {{"plot", "a.dxf"}, "--output"},
      {{"-o", "a.svg", "plot", "a.dxf", "-o", "b.svg"}, "twice"},
      {{"plot", "a.dxf", "b.dxf", "-o", "a.svg"}, "folder"},
      {{"--save", "list", "a.dxf"}, "--save"},
      {{"check", "a.dxf", "-s", "script"}, "--script"},
      {{"-o", "b.dxf", "list", "a.dxf"}, "--output"},
      {{"a.dxf", "list", "a.dxf"}, "behind list"},
  };
  for (const auto& row : cases) {
    const ProgramRun result = run(row.arguments);
    EXPECT_EQ(result.status, 2) << row.says;
    EXPECT_NE(result.err.find(row.says), std::string::npos) << result.err;
    EXPECT_EQ(result.out, "");
  }
}

TEST_F(OptionsTest, SettingsStandBeforeASubcommandOrBehindIt) {
  write("a.dxf", motorDrawing());
  const std::string listing = run({"list", "a.dxf"}).out;
  EXPECT_NE(listing.find("SENBAN1"), std::string::npos);
  EXPECT_EQ(run({"--language", "ja", "-p", ".", "list", "a.dxf"}).out, listing);
  EXPECT_EQ(run({"list", "a.dxf", "--quiet", "--registry", "none.reg"}).out, listing);
  EXPECT_EQ(run({"check", "--language", "en", "a.dxf"}).status, 0);
  EXPECT_EQ(run({"-o", "before.svg", "plot", "a.dxf"}).status, 0);
  EXPECT_EQ(run({"plot", "a.dxf", "-o", "behind.svg", "--language", "en"}).status, 0);
  EXPECT_EQ(read("before.svg"), read("behind.svg"));
  EXPECT_NE(read("before.svg"), "");
}

TEST_F(OptionsTest, HelpAndVersionGoToStandardOutput) {
  EXPECT_NE(run({"--help"}).out.find("--keep-going"), std::string::npos);
  EXPECT_EQ(run({"list", "--help"}).status, 0);
  EXPECT_EQ(run({"--version"}).out.rfind("kovra ", 0), 0U);
}

TEST_F(OptionsTest, LibrariesInTheCurrentFolderAreNotLoaded) {
  write("libm.so.6", "not a library");
  EXPECT_EQ(run({"--version"}).status, 0);
}

TEST_F(OptionsTest, OutputNeverReplacesAnInput) {
  const std::string before = motorDrawing();
  write("a.dxf", before);
  std::filesystem::create_directory(path("sub"));
  std::filesystem::create_symlink("a.dxf", path("link.dxf"));
  std::filesystem::create_symlink(".", path("loop"));
  std::filesystem::create_hard_link(path("a.dxf"), path("hard.dxf"));
  for (const auto& output :
       std::vector<std::string>{"a.dxf", "./a.dxf", "sub/../a.dxf", "link.dxf", "loop/a.dxf",
                                "hard.dxf", path("a.dxf").string()}) {
    const ProgramRun result =
        run({"a.dxf", "-c", "SETVAR", "-c", "DIMSCALE", "-c", "7", "-o", output});
    EXPECT_EQ(result.status, 2) << output;
    EXPECT_NE(result.err.find("input"), std::string::npos) << result.err;
    EXPECT_EQ(read("a.dxf"), before) << output;
  }
  // Also one that only a line opened.
  EXPECT_EQ(run({"-c", "@open a.dxf", "-o", "link.dxf"}).status, 2);
  EXPECT_EQ(read("a.dxf"), before);
  EXPECT_TRUE(std::filesystem::is_symlink(path("link.dxf")));
}

TEST_F(OptionsTest, CommandsRunBeforeTheScript) {
  write("s.scr", "\xEF\xBB\xBF@show LUPREC\r\n");
  const ProgramRun result = run({"-s", "s.scr", "-c", "SETVAR", "-c", "LUPREC", "-c", "3"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_NE(result.out.find("LUPREC=3"), std::string::npos) << result.out;
  EXPECT_NE(run({"-s", "-"}, "@show CLAYER\n").out.find("CLAYER=\"0\""), std::string::npos);
}

TEST_F(OptionsTest, SaveWritesChangedDrawingsInTheirPlaces) {
  const std::string before = motorDrawing();
  for (const char* name : {"a.dxf", "b.dxf"}) write(name, before);
  const std::vector<std::string> lines = {"-c", "DIMSCALE", "-c", "7", "--save", "a.dxf", "b.dxf"};
  EXPECT_EQ(run(lines).status, 0);
  EXPECT_EQ(read("a.dxf"), before);
  EXPECT_FALSE(exists("a.dxf.bak") || exists("a.bak"));
  EXPECT_EQ(changedLines(before, read("b.dxf")), (std::vector<std::string>{"-1.0", "+7.0"}));
  EXPECT_EQ(read("b.bak") + read("b.dxf.bak"), before);
  for (const char* name : {"b.bak", "b.dxf.bak"}) std::filesystem::remove(path(name));
  EXPECT_EQ(run({"-c", "DIMSCALE", "-c", "8", "--save", "--no-backup", "b.dxf"}).status, 0);
  EXPECT_FALSE(exists("b.bak") || exists("b.dxf.bak"));
  // A new drawing has no place of its own.
  EXPECT_EQ(run({"-c", "DIMSCALE", "-c", "8", "--save"}).status, 3);
  EXPECT_EQ(run({"-c", "DIMSCALE", "-c", "8", "--save", "-o", "new.dxf"}).status, 0);
  EXPECT_EQ(run({"check", "new.dxf"}).status, 0);
}

TEST_F(OptionsTest, FilesThatCantBeReadOrWrittenAreStatusThree) {
  write("a.dxf", motorDrawing());
  const std::vector<std::vector<std::string>> cases = {
      {"missing.dxf"},
      {"a.dxf", "missing.dxf"},
      {"-s", "missing.scr"},
      {"-s", "."},
      {"-p", "missing"},
      {"--registry", "missing.reg"},
      {"a.dxf", "-o", "missing/out.dxf"},
      {"a.dxf", "-o", "."},
      {"list", "missing.dxf"},
      {"check", "missing.dxf"},
  };
  for (const auto& arguments : cases) {
    const ProgramRun result = run(arguments);
    EXPECT_EQ(result.status, 3) << arguments.back();
    EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
  }
}

TEST_F(OptionsTest, LanguageFollowsTheLocaleUnlessItIsGiven) {
  const std::vector<std::string> lines = {"-c", "-KOVRA_ATTR_COPY", "-c", "/?"};
  const auto isJapanese = [](const ProgramRun& result) {
    return result.out.find("\xE3\x82") != std::string::npos ||
           result.out.find("\xE3\x81") != std::string::npos;
  };
  auto inEnglish = lines;
  inEnglish.insert(inEnglish.end(), {"--language", "en"});
  EXPECT_FALSE(isJapanese(run(lines)));
  EXPECT_TRUE(isJapanese(run(lines, {}, {"LC_ALL=ja_JP.UTF-8"})));
  EXPECT_FALSE(isJapanese(run(inEnglish, {}, {"LC_ALL=ja_JP.UTF-8"})));
}

}  // namespace
}  // namespace kovra::test
