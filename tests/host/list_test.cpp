// `kovra list` and `kovra check`.
#include "tests/host/drawings.h"
#include "tests/host/program.h"

namespace kovra::test {
namespace {

using ListTest = ProgramTest;

// ENTITIES of an R12 file, without any table.
std::string simpleDrawing(const std::string& entities) {
  return "0\nSECTION\n2\nENTITIES\n" + entities + "0\nENDSEC\n0\nEOF\n";
}

std::string csvOf(const ProgramRun& result) {
  const size_t head = result.out.find("\r\n");
  return head == std::string::npos ? result.out : result.out.substr(head + 2);
}

TEST_F(ListTest, EveryKindOfTextWithItsAlignmentPoint) {
  const struct {
    std::string entity;
    std::string row;
  } cases[] = {
      {"0\nTEXT\n8\nA\n10\n1.50\n20\n-0.0\n40\n.25\n1\nplain\n",
       ",TEXT,model,,plain,A,Standard,0.25,1,0,L,1.5,0,0"},
      {"0\nTEXT\n5\n2F\n8\nA\n10\n1\n20\n2\n30\n3\n11\n7\n21\n8\n31\n9\n40\n2\n1\nmid\n41\n.8\n50\n"
       "90\n7\nISO\n72\n1\n73\n2\n",
       "2F,TEXT,model,,mid,A,ISO,2,0.8,90,MC,7,8,9"},
      {"0\nTEXT\n8\nA\n10\n1\n20\n2\n40\n2\n1\nright\n72\n2\n",
       ",TEXT,model,,right,A,Standard,2,1,0,R,1,2,0"},
      {"0\nTEXT\n8\nA\n10\n1\n20\n2\n11\n5\n21\n2\n40\n2\n1\nfit\n72\n5\n73\n3\n",
       ",TEXT,model,,fit,A,Standard,2,1,0,F,5,2,0"},
      {"0\nATTDEF\n8\n0\n10\n1\n20\n2\n40\n2\n1\ndef\n3\nprompt\n2\nTAG\n72\n0\n74\n3\n11\n4\n21\n5"
       "\n",
       ",ATTDEF,model,TAG,def,0,Standard,2,1,0,TL,4,5,0"},
      {"0\nMTEXT\n8\nA\n10\n1\n20\n2\n40\n2\n41\n50\n71\n5\n3\none "
       "\n1\n\\Ptwo\n50\n30\n11\n0\n21\n1\n",
       ",MTEXT,model,,one \\Ptwo,A,Standard,2,,90,MC,1,2,0"},
      // An escape that begins in one piece and ends in the next.
      {"0\nMTEXT\n8\nA\n10\n1\n20\n2\n40\n2\n71\n1\n3\na\\U+\n3\n96\n1\nFBb\n",
       ",MTEXT,model,,a電b,A,Standard,2,,0,TL,1,2,0"},
      {"0\nTEXT\n67\n1\n8\nA\n10\n1\n20\n2\n40\n2\n1\na \"q\", b\n",
       ",TEXT,Layout1,,\"a \"\"q\"\", b\",A,Standard,2,1,0,L,1,2,0"},
  };
  for (const auto& row : cases) {
    write("a.dxf", simpleDrawing(row.entity));
    const ProgramRun result = run({"list", "--format", "csv", "a.dxf"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(csvOf(result), row.row + "\r\n");
  }
}

TEST_F(ListTest, AttributesInEveryDialect) {
  for (const std::string release : {"AC1009", "AC1015", "AC1021", "AC1032"}) {
    for (const std::string lineEnd : {"\n", "\r\n"}) {
      DrawingForm form;
      form.release = release;
      form.lineEnd = lineEnd;
      write("a.dxf", motorDrawing(form));
      const std::string h = release == "AC1009" ? "" : "10";
      EXPECT_EQ(csvOf(run({"list", "--format", "csv", "a.dxf"})),
                (h.empty() ? "" : "100") +
                    std::string(",ATTRIB,model,NAME,M1,0,Standard,2.5,1,0,L,10,20,0\r\n") +
                    (h.empty() ? "" : "101") +
                    ",ATTRIB,model,SENBAN1,101,WIRENO,Standard,2.5,1,0,L,10,30,0\r\n")
          << release;
      EXPECT_EQ(run({"check", "a.dxf"}).status, 0) << release;
    }
  }
}

TEST_F(ListTest, TextsInTheDrawingsOwnCodePage) {
  const struct {
    std::string release, page, bytes, utf8;
  } cases[] = {
      {"AC1015", "ANSI_932", "\x93\x64\x8C\xB9\x83\x5C", "電源ソ"},  // ends in a byte 0x5C
      {"AC1009", "ansi_932", "\x8F\x5C", "十"},
      {"AC1015", "ANSI_1251", "\xCF\xF3\xF1\xEA", "Пуск"},
      {"AC1032", "ANSI_1252", "\xD0\x9F \xE9\x9B\xBB", "П 電"},
      {"AC1015", "ANSI_1252", "\\U+96FB\xFC", "電ü"},
      {"AC1015", "NO_SUCH_PAGE", "\xE9", "é"},
  };
  for (const auto& row : cases) {
    DrawingForm form;
    form.release = row.release;
    form.codePage = row.page;
    write("a.dxf", drawingWith({{"NAME", row.bytes}}, form));
    const ProgramRun result = run({"list", "--format", "json", "a.dxf"});
    EXPECT_NE(result.out.find("\"value\":\"" + row.utf8 + "\""), std::string::npos)
        << row.page << result.out;
  }
}

TEST_F(ListTest, JsonIsOneObjectALine) {
  write("a.dxf", drawingWith({{"NAME", "a\"b"}}));
  EXPECT_EQ(run({"list", "--format", "json", "a.dxf"}).out,
            R"({"handle":"100","kind":"ATTRIB","space":"model","tag":"NAME","value":"a\"b",)"
            R"("layer":"0","style":"Standard","height":2.5,"width_factor":1,"rotation":0,)"
            R"("alignment":"L","x":10,"y":20,"z":0})"
            "\n");
}

TEST_F(ListTest, TableColumnsStandUnderEachOther) {
  DrawingForm form;
  form.release = "AC1032";
  write("a.dxf", drawingWith({{"NAME", "電源"}, {"TAG", "ab"}, {"TAG", "é\x01"}}, form));
  const std::string table = run({"list", "a.dxf"}).out;
  EXPECT_NE(table.find("NAME  電源   0 "), std::string::npos) << table;
  EXPECT_NE(table.find("TAG   ab     0 "), std::string::npos) << table;
  EXPECT_NE(table.find("TAG   é      0 "), std::string::npos) << table;
}

TEST_F(ListTest, FiltersByLayerAndTag) {
  write("a.dxf", drawingWith({{"NAME", "1"}, {"SENBAN1", "2", "WIRENO"}, {"SENBAN12", "3"}}));
  const struct {
    std::vector<std::string> filter;
    std::string tags;
  } cases[] = {
      {{"--layer", "wireno"}, "SENBAN1 "},
      {{"--layer", "WIRE"}, ""},
      {{"--tag", "senban#"}, "SENBAN1 "},
      {{"--tag", "~SENBAN*"}, "NAME "},
      {{"--tag", "NAME,SENBAN##"}, "NAME SENBAN12 "},
      {{"--tag", "SENBAN*", "--layer", "0"}, "SENBAN12 "},
  };
  for (const auto& row : cases) {
    std::vector<std::string> arguments = {"list", "--format", "csv", "a.dxf"};
    arguments.insert(arguments.end(), row.filter.begin(), row.filter.end());
    std::string tags;
    std::istringstream lines(csvOf(run(arguments)));
    for (std::string line; std::getline(lines, line);) {
      const size_t begin = line.find("model,") + 6;
      tags += line.substr(begin, line.find(',', begin) - begin) + ' ';
    }
    EXPECT_EQ(tags, row.tags) << row.filter[1];
  }
}

TEST_F(ListTest, SeveralDrawingsAndOneThatCantBeRead) {
  write("a.dxf", drawingWith({{"A", "1"}}));
  write("b.dxf", drawingWith({{"B", "2"}}));
  const ProgramRun result = run({"list", "--format", "csv", "a.dxf", "none.dxf", "b.dxf"});
  EXPECT_EQ(result.status, 3);
  EXPECT_NE(result.err.find("none.dxf"), std::string::npos);
  EXPECT_EQ(result.out.rfind("drawing,handle,", 0), 0U);
  EXPECT_NE(result.out.find("\r\nb.dxf,100,ATTRIB,model,B,2,"), std::string::npos) << result.out;
}

TEST_F(ListTest, SeveralDrawingsInTheirOrder) {
  write("s/a.dxf", textDrawing());
  write("s/b.dxf", simpleDrawing("0\nTEXT\n10\n0\n20\n0\n40\n1\n1\n=1+1\n"));
  const ProgramRun rows = run({"list", "s", "none.dxf", "--format", "csv", "--jobs", "2"});
  EXPECT_EQ(rows.status, 3);
  EXPECT_EQ(rows.out.rfind("drawing,handle,", 0), 0U) << rows.out;
  EXPECT_LT(rows.out.find("s/a.dxf,60,"), rows.out.find("s/b.dxf,,TEXT,model,,'=1+1,"));
  EXPECT_NE(run({"list", "s/b.dxf", "--format", "csv", "--raw"}).out.find(",=1+1,"),
            std::string::npos);
  EXPECT_EQ(run({"check", "s"}).out,
            "s/a.dxf: every byte comes back\ns/b.dxf: every byte comes back\n");
  EXPECT_EQ(run({"plot", "s", "-o", "pictures", "--format", "png"}).status, 0);
  EXPECT_TRUE(exists("pictures/a.dxf.png") && exists("pictures/b.dxf.png"));
}

}  // namespace
}  // namespace kovra::test
