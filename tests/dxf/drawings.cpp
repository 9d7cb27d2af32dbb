#include "tests/dxf/drawings.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>

#include "platform/dxf/group_format.h"

namespace kovra::dxf::test {

namespace {

constexpr std::string_view kHeader = R"(
999 written by the tests
0 SECTION
2 HEADER
9 $ACADVER
1 @RELEASE
9 $DWGCODEPAGE
3 @PAGE
9 $EXTMIN
10 0.0
20 -0.5
30 0.0
9 $TEXTSIZE
40 2.50
9 $CLAYER
8 0
9 $HANDSEED
5 F0
0 ENDSEC
)";

constexpr std::string_view kTables = R"(
0 SECTION
2 TABLES
0 TABLE
2 LAYER
5 2
330 0
100 AcDbSymbolTable
70     2
0 LAYER
5 10
330 2
100 AcDbSymbolTableRecord
100 AcDbLayerTableRecord
2 0
70     0
62     7
6 CONTINUOUS
0 LAYER
5 11
330 2
100 AcDbSymbolTableRecord
100 AcDbLayerTableRecord
2 Wires
70     4
62     1
6 CONTINUOUS
0 ENDTAB
0 TABLE
2 STYLE
5 3
330 0
100 AcDbSymbolTable
70     1
0 STYLE
5 12
330 3
100 AcDbSymbolTableRecord
100 AcDbTextStyleTableRecord
2 Standard
70     0
40 0.0
41 1.0
50 0.0
71     0
42 2.5
3 txt
4
0 ENDTAB
0 TABLE
2 DIMSTYLE
105 4
330 0
100 AcDbSymbolTable
70     1
0 DIMSTYLE
105 13
330 4
100 AcDbSymbolTableRecord
100 AcDbDimStyleTableRecord
2 Standard
70     0
5 arrow
0 ENDTAB
)";

constexpr std::string_view kBlockRecords = R"(
0 TABLE
2 BLOCK_RECORD
5 1
330 0
100 AcDbSymbolTable
70     3
0 BLOCK_RECORD
5 1F
330 1
100 AcDbSymbolTableRecord
100 AcDbBlockTableRecord
2 *Model_Space
0 BLOCK_RECORD
5 1B
330 1
100 AcDbSymbolTableRecord
100 AcDbBlockTableRecord
2 *Paper_Space
0 BLOCK_RECORD
5 40
330 1
100 AcDbSymbolTableRecord
100 AcDbBlockTableRecord
2 Motor
0 ENDTAB
)";

constexpr std::string_view kBlocks = R"(
0 ENDSEC
0 SECTION
2 BLOCKS
0 BLOCK
5 20
330 1F
100 AcDbEntity
8 0
100 AcDbBlockBegin
2 *Model_Space
70     0
0 ENDBLK
5 21
330 1F
100 AcDbEntity
8 0
0 BLOCK
5 22
330 1B
100 AcDbEntity
67     1
8 0
100 AcDbBlockBegin
2 *Paper_Space
70     0
0 ENDBLK
5 23
330 1B
100 AcDbEntity
67     1
8 0
0 BLOCK
5 41
330 40
100 AcDbEntity
8 0
100 AcDbBlockBegin
2 Motor
70     2
0 LINE
5 43
330 40
100 AcDbEntity
8 0
100 AcDbLine
10 0.0
20 0.0
11 1.0
21 0.0
0 ATTDEF
5 44
330 40
100 AcDbEntity
8 0
100 AcDbText
10 0.0
20 0.0
40 2.5
1 M
100 AcDbAttributeDefinition
3 Name
2 NAME
70     0
0 ENDBLK
5 42
330 40
100 AcDbEntity
8 0
0 ENDSEC
)";

constexpr std::string_view kEntities = R"(
0 SECTION
2 ENTITIES
0 INSERT
5 50
330 1F
100 AcDbEntity
8 Wires
100 AcDbBlockReference
66     1
2 Motor
10 10.0
20 20.5
0 ATTRIB
5 51
102 {ACAD_REACTORS
330 99
102 }
330 50
100 AcDbEntity
8 Wires
62     3
100 AcDbText
10 10.0
20 20.5
40 2.50
1 M1
50 0.0
72     1
11 11.0
21 20.5
100 AcDbAttribute
280     0
2 NAME
70     0
73     6
74     2
280     1
1001 KOVRA
1000 text
1040 2.5
1070     7
0 ATTRIB
5 52
330 50
100 AcDbEntity
8 Wires
100 AcDbText
10 1e1
20 20
40 3
1 two
100 AcDbAttribute
2 MLINE
70     0
101 Embedded Object
70     1
10 10.0
40 3
1 two
1001 KOVRA
1040 3
0 SEQEND
5 53
330 50
100 AcDbEntity
8 Wires
999 a comment between records
0 TEXT
5 54
330 1F
100 AcDbEntity
8 0
100 AcDbText
10 1.0
20 2.0
40 2.5
1 \U+00E4 text with  blanks
100 AcDbText
73     0
0 POLYLINE
5 55
330 1F
100 AcDbEntity
8 0
66     1
0 VERTEX
5 56
330 55
10 0.0
20 0.0
0 VERTEX
5 57
330 55
10 5.0
20 0.0
0 SEQEND
5 58
330 55
0 ATTRIB
5 59
330 1F
100 AcDbEntity
8 0
1 alone
2 TAG
0 NEWKIND
5 5A
330 1B
67     1
8 0
310 00FFA0
290 1
90 123456
160 9000000000
0 ENDSEC
)";

constexpr std::string_view kObjects = R"(
0 SECTION
2 OBJECTS
0 DICTIONARY
5 C
330 0
100 AcDbDictionary
3 ACAD_LAYOUT
350 D
0 LAYOUT
5 E
330 D
100 AcDbPlotSettings
1
100 AcDbLayout
1 Sheet A
330 1B
0 XRECORD
5 60
102 {ACAD_REACTORS
330 C
102 }
330 C
100 AcDbXrecord
102 {DATA
330 7
102 plain
0 ENDSEC
)";

constexpr std::string_view kEnd = "0 EOF\n";

std::string replaced(std::string text, const std::string& what, const std::string& with) {
  text.replace(text.find(what), what.size(), with);
  return text;
}

/// What R12 doesn't have: owners, subclass markers, application groups, embedded objects.
bool knownInR12(int code) {
  return code != 100 && code != 330 && code != 102 && code != 101 && code != 310 && code != 290 &&
         code != 90 && code != 160;
}

struct GroupLine {
  int code = 0;
  std::string value;
};

std::vector<GroupLine> parseLines(std::string_view groups) {
  std::vector<GroupLine> parsed;
  std::istringstream in{std::string(groups)};
  for (std::string line; std::getline(in, line);) {
    const std::size_t begin = line.find_first_not_of(' ');
    if (begin == std::string::npos) continue;
    const std::size_t blank = line.find(' ', begin);
    const std::string value = blank == std::string::npos ? "" : line.substr(blank + 1);
    parsed.push_back({std::stoi(line.substr(begin)), value});
  }
  return parsed;
}

}  // namespace

std::vector<Form> allForms() {
  return {
      {"r12", kR12, false, false, true},         {"r12crlf", kR12, false, true, true},
      {"r13", kR13, false, false, true},         {"r14plain", kR14, false, false, false},
      {"r2000", kR2000, false, true, true},      {"r2004", kR2004, false, false, true, "ANSI_932"},
      {"r2007", kR2007, false, false, true},     {"r2010", kR2010, false, true, false},
      {"r2018", kR2018, false, false, true},     {"r12binary", kR12, true, false, true},
      {"r2000binary", kR2000, true, false, true}};
}

std::string write(std::string_view groups, const Form& form) {
  Dialect dialect;
  dialect.binary = form.binary;
  dialect.wideCodes = form.binary && form.release > kR12;
  const GroupStyle style{dialect.binary, dialect.wideCodes, form.crlf, form.padded ? 3U : 1U};
  std::string out;
  if (form.binary) out = kBinarySentinel;
  for (const GroupLine& group : parseLines(groups)) {
    // Binary drawings have no comments.
    if (form.binary && group.code == 999) continue;
    std::string value;
    encodeAscii(dialect, group.code, group.value, value);
    appendGroup(style, group.code, value, out);
  }
  return out;
}

std::string sampleDrawing(const Form& form) {
  const bool r12 = form.release == kR12;
  std::string groups(kHeader);
  groups = replaced(groups, "@RELEASE", "AC" + std::to_string(form.release));
  groups = replaced(groups, "@PAGE", form.codePage);
  groups += kTables;
  if (!r12) groups += kBlockRecords;
  groups += kBlocks;
  groups += kEntities;
  if (!r12) groups += kObjects;
  groups += kEnd;
  if (!r12) return write(groups, form);
  std::string kept;
  for (const GroupLine& group : parseLines(groups)) {
    if (!knownInR12(group.code)) continue;
    kept += std::to_string(group.code) + " " + group.value + "\n";
  }
  return write(kept, form);
}

std::unique_ptr<RecordStore> open(const std::string& bytes) {
  auto store = RecordStore::fromBytes(bytes);
  if (!store) {
    ADD_FAILURE() << store.error().message;
    std::abort();
  }
  return std::move(store).value();
}

RecordIndex at(const RecordStore& store, std::uint64_t handle) {
  const RecordIndex record = store.find(handle);
  EXPECT_NE(record, kNoRecord) << "no record with handle " << formatHandle(handle);
  return record;
}

RecordIndex firstOf(const RecordStore& store, std::string_view typeName) {
  RecordIndex record = store.first();
  while (record != kNoRecord && store.typeName(record) != typeName) record = store.next(record);
  return record;
}

std::vector<std::string> changedLines(const std::string& before, const std::string& after) {
  std::vector<std::string> changes;
  std::istringstream left(before);
  std::istringstream right(after);
  std::string old;
  std::string now;
  for (int line = 1; std::getline(left, old); ++line) {
    if (!std::getline(right, now)) return {"fewer lines"};
    if (old != now) changes.push_back(old + " -> " + now);
  }
  if (std::getline(right, now)) changes.push_back("more lines");
  return changes;
}

}  // namespace kovra::dxf::test
