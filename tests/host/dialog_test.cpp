// Lines for dialogs, picks and drags, through the count-up copy.
#include "tests/host/drawings.h"
#include "tests/host/program.h"

namespace kovra::test {
namespace {

class DialogTest : public ProgramTest {
 protected:
  DialogTest() {
    write("a.dxf", textDrawing());
    write("p/project.ini", "[Project]\nDataVersion=12.0\n");
  }
  ProgramRun countUp(const std::string& lines, const std::string& selection = "@select 60") const {
    return runScript("KOVRA_TEXT_COUNTUP\n" + selection + "\n@enter\n" + lines,
                     {"a.dxf", "-p", "p", "-o", "b.dxf"});
  }
  /// "X002@10,0 ...": value and place of the texts that b.dxf has beyond those of a.dxf.
  std::string copies() const {
    const std::string before = run({"list", "--format", "csv", "a.dxf"}).out;
    std::istringstream rows(run({"list", "--format", "csv", "b.dxf"}).out);
    std::string found;
    for (std::string row; std::getline(rows, row);) {
      if (before.find(row) != std::string::npos) continue;
      std::vector<std::string> fields;
      std::istringstream stream(row);
      for (std::string field; std::getline(stream, field, ',');) fields.push_back(field);
      found += (found.empty() ? "" : " ") + fields[4] + '@' + fields[11] + ',' + fields[12];
    }
    return found;
  }
};

TEST_F(DialogTest, PatternFromTheFieldsOfTheDialog) {
  const struct {
    std::string lines;
    std::string copies;
  } cases[] = {
      {"@check 1967 on\n@click 1975\n@click 1955\n@type 1932 2\n@type 1934 2\n@type 1933 5\n"
       "@type 1935 20\n@click 1\n",
       "X002@10,5 X003@30,10 X004@30,5"},
      {"@click 1975\n@click 1953\n@type 1932 3\n@type 1933 -5\n@type 1931 -1\n@click 1\n",
       "X000@10,15 X001@10,20"},
      {"@check 1967 off\n@click 1975\n@click 1954\n@type 1934 2\n@type 1935 7\n@enter\n",
       "X001@17,10"},
      // Distances picked in the drawing while the dialog stands back.
      {"@click 1975\n@click 1956\n@click 1957\n@point 0,0\n@point 4,3\n@type 1932 2\n"
       "@type 1934 2\n@click 1\n",
       "X002@14,10 X003@10,13 X004@14,13"},
      // Hexadecimal, chosen by text; the step typed in hexadecimal.
      {"@choose 1978 Hexadecimal\n@click 1977\n@type 1936 A\n@click 1975\n@click 1953\n"
       "@type 1932 2\n@type 1933 1\n@click 1\n",
       "X00B@10,9"},
      {"@click 2\n", ""},
      {"@esc\n", ""},
      {"@close\n", ""},
  };
  for (const auto& row : cases) {
    std::filesystem::remove(path(".state"));
    const ProgramRun result = countUp(row.lines);
    EXPECT_EQ(result.status, 0) << row.lines << result.err;
    EXPECT_EQ(copies(), row.copies) << row.lines;
  }
}

TEST_F(DialogTest, DragsGoOnUntilOneIsCancelled) {
  const ProgramRun result =
      countUp("@click 1\n@point 0,0\n@move 5,5\n@point 20,0\n@point 40,0\n@move 60,0\n@esc\n",
              "@select 60 61");
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(copies(), "X002@30,10 A-10@30,20 X003@50,10 A-11@50,20");
  // One U takes all of it back.
  EXPECT_EQ(countUp("@click 1\n@point 0,0\n@point 20,0\n@esc\nU\n").status, 0);
  EXPECT_EQ(read("b.dxf"), read("a.dxf"));
}

TEST_F(DialogTest, WhatAPersonCouldNotDoIsRefused) {
  const ProgramRun result = countUp(
      "@refused REGEN\n@refused @click 1932\n@refused @type 1932 5\n@refused @click 999\n"
      "@refused @choose 1978 Roman\n@refused @choose 1978 #99\n@refused @check 1931 on\n"
      "@refused @key 1931 Nonsense\n@refused @use 1\n"
      "@type 1931 0\n@refused @click 1\n@type 1931 1\n"
      "@click 1975\n@click 1953\n@click 1958\n@refused @click 1\n@refused @dialog\n@esc\n"
      "@use 531\n@caret 1931 0 1\n@keys \"2\"\n@key 1931 Tab\n@type 1932 2\n@click 1\n");
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(copies(), "X003@10,9");
}

TEST_F(DialogTest, DialogIsPrintedAndRemembersItsPlace) {
  const std::string lines = "@place 100 80\n@type 1931 7\n@dialog\n@click 2\n";
  const ProgramRun first = countUp(lines);
  EXPECT_EQ(first.status, 0) << first.err;
  EXPECT_NE(first.out.find(" template 531 at 100 80 size "), std::string::npos) << first.out;
  EXPECT_NE(first.out.find("  1931 edit enabled visible \"7\""), std::string::npos) << first.out;
  EXPECT_NE(first.out.find("  1932 edit disabled visible"), std::string::npos) << first.out;
  EXPECT_NE(first.out.find("  1967 check enabled visible on "), std::string::npos) << first.out;
  const ProgramRun second = countUp("@dialog\n@click 2\n");
  EXPECT_NE(second.out.find(" at 100 80 "), std::string::npos) << second.out;
  EXPECT_NE(second.out.find("  1931 edit enabled visible \"7\""), std::string::npos);
}

TEST_F(DialogTest, ShortlyItIsReadAsOnTheScreen) {
  const ProgramRun result = runScript(
      "KOVRA_TEXT\n@click 1975\n@check 1967 on\n@type 1933 7\n@type 1934 \"a\\\"b\"\n@dialog "
      "short\n@close\n"
      "@refused @dialog long\n@refused @dialog short\n@refused help\n",
      {"a.dxf", "-p", "p", "--quiet"});
  EXPECT_EQ(result.status, 0) << result.err;
  for (const char* row :
       {"Text (534)\n  1974 ( ) 1 Single  1975 (*) 2 Repeated", "  1967 [x] Count up\n-- Text\n",
        // Captions above their fields, beside them, and a radio button as one.
        "\n  1932 Prefix: \"\"  1933 Number: \"7\"  1934 Suffix: \"a\\\"b\"\n",
        "\n  1978 Numbering: \"Decimal\" of 7\n  Step:  1977 (*) Decimal:  1935 \"1\"  2003 ( ) ",
        "Numbering: (disabled)  1936 \"1\" (disabled)\n--\n  Properties\n",
        "\n  1 [OK]  2 [Cancel]\n"})
    EXPECT_NE(result.out.find(row), std::string::npos) << row << '\n' << result.out;
  for (const char* hidden : {"1937", "Array", "1960", "Line spacing"})
    EXPECT_EQ(result.out.find(hidden, result.out.find("--")), std::string::npos) << result.out;
}

TEST_F(DialogTest, EndOfInputClosesWhatIsOpen) {
  for (const char* lines :
       {"", "@click 1\n", "@click 1\n@point 0,0\n", "@click 1975\n@click 1956\n@click 1957\n"}) {
    const ProgramRun result = countUp(lines);
    EXPECT_EQ(result.status, 1) << lines;
    EXPECT_NE(result.err.find("ended while waiting"), std::string::npos) << result.err;
    EXPECT_FALSE(exists("b.dxf")) << lines;
  }
}

TEST_F(DialogTest, ABoxSaysThatTheProjectIsTooOld) {
  write("p/project.ini", "[Project]\nDataVersion=6.0\n");
  const ProgramRun result = runScript("KOVRA_TEXT_COUNTUP\n@list\n", {"a.dxf", "-p", "p"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_NE(result.out.find('['), std::string::npos) << result.out;
}

}  // namespace
}  // namespace kovra::test
