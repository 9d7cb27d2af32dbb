// What MOVE does to the groups of every type of entity.
#include <bit>
#include <cstdint>
#include <sstream>

#include "tests/host/program.h"

namespace kovra::test {
namespace {

// A drawing is noted as "TYPE code=value ..." a record. A letter stands for a number that moves:
// X Y Z for a coordinate in the world, U V W for one in a plane with the normal 0,0,-1; with a "?"
// before the code for a group that only the move brings.
const std::string kDown = " 210=0.0 220=0.0 230=-1.0";

const char* valueOf(char letter, bool moved, bool isNew) {
  switch (letter) {
    case 'X':
      return moved ? "105.0" : "100.0";
    case 'U':
      return moved ? "95.0" : "100.0";
    case 'Y':
    case 'V':
      return moved ? "193.0" : "200.0";
    case 'Z':
      return isNew ? "2.0" : moved ? "302.0" : "300.0";
    case 'W':
      return isNew ? "-2.0" : moved ? "298.0" : "300.0";
    default:
      return nullptr;
  }
}

std::string records(const std::vector<std::string>& notes, bool moved) {
  std::string text;
  for (const std::string& note : notes) {
    std::istringstream words(note);
    std::string word;
    words >> word;
    text += "  0\n" + word + "\n";
    while (words >> word) {
      const bool isNew = word[0] == '?';
      if (isNew && !moved) continue;
      const std::size_t equals = word.find('=');
      const std::string code = word.substr(isNew ? 1 : 0, equals - (isNew ? 1 : 0));
      const std::string value = word.substr(equals + 1);
      const char* number = value.size() == 1 ? valueOf(value[0], moved, isNew) : nullptr;
      text += std::string(code.size() < 3 ? 3 - code.size() : 0, ' ') + code + "\n" +
              (number != nullptr ? number : value) + "\n";
    }
  }
  return text;
}

std::string drawing(const std::vector<std::string>& blocks,
                    const std::vector<std::string>& entities, bool moved) {
  return "  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1032\n  0\nENDSEC\n"
         "  0\nSECTION\n  2\nBLOCKS\n" +
         records(blocks, moved) + "  0\nENDSEC\n  0\nSECTION\n  2\nENTITIES\n" +
         records(entities, moved) + "  0\nENDSEC\n  0\nEOF\n";
}

class MoveTest : public ProgramTest {
 protected:
  /// Moves all entities by 5,-7,2, and there and back by UNDO; gives what the program shows.
  std::string expectMove(const std::vector<std::string>& blocks,
                         const std::vector<std::string>& entities) {
    write("a.dxf", drawing(blocks, entities, false));
    const ProgramRun result = runScript(
        "MOVE\n@select all\n@enter\n5,-7,2\n\n@save b.dxf\nU\n@save c.dxf\nREDO\n@save d.dxf\n",
        {"a.dxf"});
    EXPECT_EQ(result.status, 0) << result.out << result.err;
    EXPECT_EQ(changedLines(drawing(blocks, entities, true), read("b.dxf")),
              std::vector<std::string>());
    EXPECT_EQ(read("c.dxf"), read("a.dxf"));
    EXPECT_EQ(read("d.dxf"), read("b.dxf"));
    return result.out;
  }
};

TEST_F(MoveTest, PointsInTheWorldAndInTheEntitysPlane) {
  expectMove(
      {},
      {
          "LINE 8=0 10=X 20=Y 30=Z 11=X 21=Y 31=Z" + kDown,
          "LINE 10=X 20=Y ?30=Z 11=X 21=Y ?31=Z",
          "LINE 38=W 10=X 20=Y 11=X 21=Y" + kDown,
          "POINT 10=X 20=Y 30=Z 50=30.0",
          "ELLIPSE 10=X 20=Y 30=Z 11=7.0 21=7.0 31=0.0 40=0.5",
          "SPLINE 12=1.0 22=0.0 32=0.0 13=1.0 23=0.0 33=0.0 40=0.0 10=X 20=Y 30=Z 10=X 20=Y 30=Z "
          "11=X 21=Y 31=Z",
          "HELIX 100=AcDbSpline 10=X 20=Y 30=Z 100=AcDbHelix 10=X 20=Y 30=Z 11=X 21=Y 31=Z 12=0.0 "
          "22=0.0 32=1.0 40=8.0",
          "RAY 10=X 20=Y 30=Z 11=1.0 21=0.0 31=0.0",
          "XLINE 10=X 20=Y 30=Z 11=1.0 21=0.0 31=0.0",
          "MLINE 10=X 20=Y 30=Z" + kDown +
              " 11=X 21=Y 31=Z 12=1.0 22=0.0 32=0.0 13=0.0 23=1.0 33=0.0",
          "3DFACE 10=X 20=Y 30=Z 11=X 21=Y 31=Z 12=X 22=Y 32=Z 13=X 23=Y 33=Z",
          "SOLID 10=U 20=V 30=W 11=U 21=V 31=W 12=U 22=V 32=W 13=U 23=V 33=W" + kDown,
          "CIRCLE 10=U 20=V 30=W 40=9.0" + kDown,
          "ARC 10=U 20=V 30=W 40=9.0 50=0.0 51=90.0" + kDown,
          "SHAPE 10=U 20=V 30=W 40=1.0 2=DIODE" + kDown,
          "PDFUNDERLAY 10=U 20=V 30=W 41=1.0 11=1.0 21=1.0" + kDown,
          "TOLERANCE 10=X 20=Y 30=Z 11=1.0 21=0.0 31=0.0",
          "LEADER 10=X 20=Y 30=Z 10=X 20=Y 30=Z 211=1.0 221=0.0 231=0.0 213=4.0 223=4.0 233=0.0",
          "IMAGE 10=X 20=Y 30=Z 11=0.1 21=0.0 31=0.0 12=0.0 22=0.1 32=0.0 13=80.0 23=60.0 14=0.5 "
          "24=0.5",
          "MESH 92=1 10=X 20=Y 30=Z 93=1 90=0",
          "LIGHT 10=X 20=Y 30=Z 11=X 21=Y 31=Z 40=1.0",
          "SECTIONOBJECT 10=0.0 20=0.0 30=1.0 11=X 21=Y 31=Z 12=X 22=Y 32=Z",
          "POINT 10=X 20=Y 30=Z 1001=APP 1010=1.0 1020=2.0 1030=3.0 1011=X 1021=Y 1031=Z 1013=1.0 "
          "1023=0.0 1033=0.0",
      });
}

TEST_F(MoveTest, EntitiesOfSeveralRecords) {
  expectMove(
      {},
      {
          "POLYLINE 66=1 10=0.0 20=0.0 30=W" + kDown,
          "VERTEX 10=U 20=V 30=W 42=0.5",
          "SEQEND",
          "POLYLINE 66=1" + kDown + " ?10=0.0 ?20=0.0 ?30=W",
          "SEQEND",
          "POLYLINE 66=1 70=8 10=0.0 20=0.0 30=0.0",
          "VERTEX 10=X 20=Y 30=Z 70=32",
          "SEQEND",
          "POLYLINE 66=1 70=64 10=0.0 20=0.0 30=0.0",
          "VERTEX 10=X 20=Y 30=Z 70=192",
          "VERTEX 10=0.0 20=0.0 30=0.0 70=128 71=1",
          "SEQEND",
          "LWPOLYLINE 100=AcDbEntity 8=0 100=AcDbPolyline 90=1 70=0 38=W 10=U 20=V 42=1.0" + kDown,
          "LWPOLYLINE 100=AcDbEntity 8=0 100=AcDbPolyline 90=1 70=0 ?38=W 10=U 20=V" + kDown,
          "INSERT 66=1 2=NONE 10=U 20=V 30=W 44=9.0" + kDown,
          "ATTRIB 10=X 20=Y 30=Z 40=1.0 1=a 2=A 70=0 72=1 11=X 21=Y 31=Z 101=Embedded 10=X 20=Y "
          "30=Z 11=1.0 21=0.0 31=0.0",
          "ATTRIB 10=X 20=Y 30=Z 40=1.0 1=a 2=B 70=0 101=Embedded 10=0.0 20=1.0 30=0.0 11=X 21=Y "
          "31=Z",
          "SEQEND",
          "TEXT 10=U 20=V 30=W 40=1.0 1=a 72=1 11=U 21=V 31=W" + kDown,
          "MTEXT 10=X 20=Y 30=Z 40=1.0 1=a 11=1.0 21=0.0 31=0.0 101=Embedded 10=1.0 20=0.0 30=0.0 "
          "11=X 21=Y 31=Z",
      });
}

TEST_F(MoveTest, HatchesMultileadersTables) {
  expectMove(
      {},
      {
          "HATCH 100=AcDbEntity 100=AcDbHatch 10=0.0 20=0.0 30=W" + kDown +
              " 2=ANSI31 70=0 71=0 91=2 92=2 72=1 73=1 93=1 10=U 20=V 42=1.0 97=0 92=1 93=4 "
              "72=1 10=U 20=V 11=U 21=V "
              "72=2 10=U 20=V 40=5.0 50=0.0 51=90.0 73=1 "
              "72=3 10=U 20=V 11=7.0 21=0.0 40=0.5 50=0.0 51=90.0 73=1 "
              "72=4 94=3 73=0 74=0 95=1 96=1 40=0.0 10=U 20=V 97=1 11=U 21=V 12=1.0 22=0.0 13=1.0 "
              "23=0.0 97=1 330=1F "
              "75=0 76=1 52=0.0 41=1.0 77=0 78=1 53=45.0 43=U 44=V 45=-1.0 46=1.0 79=0 "
              "98=1 10=U 20=V 450=0",
          "MULTILEADER 100=AcDbMLeader 270=2 300=CONTEXT_DATA{ 40=1.0 10=X 20=Y 30=Z 290=1 "
          "304=LEADER_LINE{ 11=0.0 21=0.0 31=1.0 12=X 22=Y 32=Z 13=1.0 23=0.0 33=0.0 "
          "296=1 14=0.0 24=0.0 34=1.0 15=X 25=Y 35=Z 16=1.0 26=1.0 36=1.0 "
          "47=1.0 47=0.0 47=0.0 47=X 47=0.0 47=1.0 47=0.0 47=Y 47=0.0 47=0.0 47=1.0 47=Z "
          "47=0.0 47=0.0 47=0.0 47=1.0 110=X 120=Y 130=Z 111=1.0 121=0.0 131=0.0 "
          "302=LEADER{ 290=1 10=X 20=Y 30=Z 11=1.0 21=0.0 31=0.0 12=X 22=Y 32=Z 13=X 23=Y 33=Z "
          "304=LEADER_LINE{ 10=X 20=Y 30=Z 10=X 20=Y 30=Z 11=X 21=Y 31=Z 12=X 22=Y 32=Z 305=} "
          "271=0 303=} 272=9 301=} 170=1 10=1.0 20=1.0 30=1.0 302=LEADER{ 10=1.0 20=1.0 30=1.0",
          "ACAD_TABLE 100=AcDbEntity 100=AcDbBlockReference 2=*T1 10=X 20=Y 30=Z 100=AcDbTable "
          "11=1.0 21=0.0 31=0.0 10=1.0",
      });
}

TEST_F(MoveTest, DimensionsGoWithTheBlocksThatDrawThem) {
  // *D1 is drawn once; *D2 twice; *D3 has what can't be moved.
  expectMove(
      {
          "BLOCK 2=*D1 70=1 10=0.0 20=0.0 30=0.0",
          "LINE 8=0 10=X 20=Y 30=Z 11=X 21=Y 31=Z",
          "INSERT 66=1 2=NONE 10=X 20=Y 30=Z",
          "ATTRIB 10=X 20=Y 30=Z 40=1.0 1=a 2=A 70=0",
          "SEQEND",
          "ENDBLK",
          "BLOCK 2=*D2 70=1 10=0.0 20=0.0 30=0.0",
          "LINE 8=0 10=1.0 20=1.0 30=0.0 11=2.0 21=2.0 31=0.0",
          "ENDBLK",
          "BLOCK 2=*D3 70=1 10=0.0 20=0.0 30=0.0",
          "REGION 1=sat",
          "ENDBLK",
      },
      {
          "DIMENSION 100=AcDbDimension 2=*D1 10=X 20=Y 30=Z 11=U 21=V 31=W 12=0.0 22=0.0 32=0.0" +
              kDown + " 100=AcDbAlignedDimension 13=X 23=Y 33=Z 14=X 24=Y 34=Z 50=90.0",
          "DIMENSION 100=AcDbDimension 2=*D2 10=X 20=Y 30=Z 11=X 21=Y 31=Z 12=X 22=Y 32=Z "
          "100=AcDb2LineAngularDimension 13=X 23=Y 33=Z 14=X 24=Y 34=Z 15=X 25=Y 35=Z 16=X 26=Y "
          "36=Z",
          "ARC_DIMENSION 100=AcDbDimension 2=*D2 10=X 20=Y 30=Z 11=U 21=V 31=W" + kDown +
              " ?12=-5.0 ?22=-7.0 ?32=-2.0 100=AcDbArcDimension 13=X 23=Y 33=Z 15=X 25=Y 35=Z "
              "16=X 26=Y 36=Z 17=X 27=Y 37=Z",
          "DIMENSION 2=*D3 10=X 20=Y 30=Z ?12=5.0 ?22=-7.0 ?32=2.0",
          "DIMENSION 2=NONE 10=X 20=Y 30=Z 16=X 26=Y 36=Z",
      });
  // All that is drawn has moved alike.
  for (const std::string name : {"a", "b"})
    EXPECT_EQ(run({"plot", name + ".dxf", "-o", name + ".svg"}).status, 0);
  EXPECT_EQ(read("a.svg"), read("b.svg"));
}

TEST_F(MoveTest, ViewportsTakeWhatCutsThemOff) {
  const std::vector<std::string> entities = {
      "VIEWPORT 5=A 67=1 10=1.0 20=1.0 30=0.0 40=9.0 41=9.0 69=1",
      "VIEWPORT 5=B 67=1 10=X 20=Y 30=Z 40=9.0 41=9.0 69=2 12=1.0 22=1.0 17=5.0 27=5.0 37=0.0 "
      "340=C",
      "CIRCLE 5=C 67=1 10=X 20=Y 30=Z 40=4.0",
  };
  write("a.dxf", drawing({}, entities, false));
  for (const std::string selected : {"A B", "A B C", "C B"}) {
    const ProgramRun result = runScript("TILEMODE\n0\nU\nTILEMODE\n0\nMOVE\n@select " + selected +
                                            "\n\n5,-7,2\n\nTILEMODE\n1\n@save b.dxf\n",
                                        {"a.dxf"});
    EXPECT_EQ(result.status, 0) << result.out << result.err;
    const std::string after = read("b.dxf");
    EXPECT_EQ(after.substr(after.find("ENTITIES")),
              drawing({}, entities, true).substr(drawing({}, entities, true).find("ENTITIES")))
        << selected;
  }
}

TEST_F(MoveTest, WhatStaysIsNamed) {
  const std::vector<std::string> some = {"3DSOLID 1=sat", "LINE 10=X 20=Y 30=Z 11=X 21=Y 31=Z",
                                         "OLE2FRAME 10=1.0 20=1.0 30=0.0", "3DSOLID 1=sat"};
  EXPECT_NE(expectMove({}, some).find("\n3 not moved: 3DSOLID (2), OLE2FRAME (1)\n"),
            std::string::npos);
  write("a.dxf", drawing({}, {"BODY 1=sat", "BODY 1=sat"}, false));
  const ProgramRun none = runScript("MOVE\n@select all\n\n1,1\n\n", {"a.dxf"});
  EXPECT_EQ(none.status, 1);
  EXPECT_NE(none.err.find("2 not moved: BODY"), std::string::npos) << none.err;
  const ProgramRun far = runScript("MOVE\n@select all\n\n1e300,0\n\n", {"a.dxf"});
  EXPECT_NE(far.err.find("too large"), std::string::npos) << far.err;
}

/// Bytes in hexadecimal digits, as a picture has them.
std::string digits(std::uint64_t value, int bytes) {
  std::string text;
  for (; bytes > 0; --bytes, value >>= 8U)
    for (const std::uint64_t half : {value >> 4U & 15U, value & 15U})
      text += "0123456789ABCDEF"[half];
  return text;
}

std::string command(unsigned number, const std::vector<double>& operands) {
  std::string text = digits(8 + 8 * operands.size(), 4) + digits(number, 4);
  for (const double operand : operands) text += digits(std::bit_cast<std::uint64_t>(operand), 8);
  return text;
}

/// A wipeout's note with a picture of these commands.
std::string withPicture(const std::vector<std::string>& commands) {
  std::string bytes;
  for (const std::string& one : commands) bytes += one;
  bytes = digits(8 + bytes.size() / 2, 4) + digits(commands.size(), 4) + bytes;
  std::string note = "WIPEOUT 100=AcDbEntity 8=0 160=" + std::to_string(bytes.size() / 2);
  for (std::size_t at = 0; at < bytes.size(); at += 254) note += " 310=" + bytes.substr(at, 254);
  return note + " 100=AcDbWipeout 10=0.0 20=0.0 30=0.0";
}

TEST_F(MoveTest, PicturesForOtherProgramsGoAlong) {
  constexpr unsigned kPolyline = 6;
  const std::string polyline = command(kPolyline, {0, 1, 2, 3});
  const std::string pop = command(31, {});
  const auto push = [](double x, double y, double z) {
    return command(29, {2, 0, 0, x, 0, 2, 0, y, 0, 0, 2, z, 0, 0, 0, 1});
  };
  const std::string own = command(29, {1, 0, 0, 5, 0, 1, 0, -7, 0, 0, 1, 2, 0, 0, 0, 1});
  const std::string inner = push(1, 1, 1);
  const std::vector<std::string> before = {
      polyline, polyline, push(10, 20, 30), polyline, inner, polyline, pop, pop, polyline};
  const std::vector<std::string> after = {own,      polyline, polyline, pop, push(15, 13, 32),
                                          polyline, inner,    polyline, pop, pop,
                                          own,      polyline, pop};
  const auto move = [&](const std::string& note) {
    write("a.dxf", drawing({}, {note, "POINT 10=X 20=Y 30=Z"}, false));
    EXPECT_EQ(runScript("MOVE\n@select all\n\n5,-7,2\n\n@save b.dxf\n", {"a.dxf"}).status, 0);
    return read("b.dxf");
  };
  const auto expected = [](std::string note) {
    note.replace(note.find(" 10=0.0 20=0.0 30=0.0"), std::string::npos, " 10=5.0 20=-7.0 30=2.0");
    return drawing({}, {note, "POINT 10=X 20=Y 30=Z"}, true);
  };
  EXPECT_EQ(changedLines(expected(withPicture(after)), move(withPicture(before))),
            std::vector<std::string>());
  // One that can't be read is left alone.
  const std::string cut = withPicture({polyline, pop});
  EXPECT_EQ(move(cut), expected(cut));
}

}  // namespace
}  // namespace kovra::test
