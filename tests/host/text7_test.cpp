// The text dialog of data version 7.00 and later: what it places, and what it takes from the
// drawing.
#include "tests/host/text7_run.h"

namespace kovra::test {
namespace {

using Text7PlaceTest = Text7Run;

TEST_F(Text7PlaceTest, GroupsAreLaidOutAndCountedAsTheDialogSays) {
  const std::string array =
      "@click 1976\n@click 1962\n@type 1938 2\n@type 1940 3\n@type 1939 5\n@type 1941 10\n";
  const std::string counted = "@check 1967 on\n@type 1933 8\n";
  const struct {
    std::string lines;
    std::string placed;
    std::string number;  ///< what field 1933 shows afterwards
  } cases[] = {
      // One text, of one line or several; an empty line keeps its room, the ones at the end don't.
      {"@type 1937 X1\n", "X1@0,0", ""},
      {"@type 1937 \"A\\n\\nC\\n\\n\"\n", "A@0,0 C@0,-6", ""},
      {"@type 1937 \"\\n B\"\n@type 2002 2\n@type 1987 4\n", " B@0,-8", ""},
      // Rows run downward, columns to the right; each direction counts in its own order.
      {array + counted + "@click 1960\n", "8@0,0 9@0,-5", "10"},
      {array + counted + "@click 1961\n", "8@0,0 9@10,0 10@20,0", "11"},
      {array + counted + "@click 1962\n", "8@0,0 9@0,-5 10@10,0 11@10,-5 12@20,0 13@20,-5", "14"},
      {array + counted + "@click 1963\n", "8@0,0 9@10,0 10@20,0 11@0,-5 12@10,-5 13@20,-5", "14"},
      {array + counted + "@click 1961\n@type 1941 -10\n@type 1932 \"X \"\n@type 1934 \"/A \"\n",
       "X8/A@0,0 X9/A@-10,0 X10/A@-20,0", "11"},
      {array + counted + "@click 1960\n@type 1938 3\n@type 1939 -5\n@type 1935 -4\n",
       "8@0,0 4@0,5 0@0,10", "0"},
      {array + "@check 1967 off\n@type 1931 \"W  \"\n@click 1960\n", "W@0,0 W@0,-5", "W"},
      // Every numbering system, and numbers that can't be counted on.
      {array + counted + "@choose 1978 Hexadecimal\n@click 1960\n@type 1933 0ff\n@type 1935 17\n",
       "0ff@0,0 110@0,-5", "121"},
      {array + counted + "@choose 1978 #0\n@click 2003\n@type 1936 10\n@click 1960\n", "8@0,0",
       "8"},
      {array + counted + "@choose 1978 #4\n@type 1933 Y\n@click 1961\n", "Y@0,0 Z@10,0 AA@20,0",
       "AB"},
      {array + counted + "@type 1933 ０９\n@click 1960\n", "０９@0,0 １０@0,-5", "１１"},
      {array + counted + "@type 1933 0100\n@type 1935 -1\n@click 1960\n", "0100@0,0 0099@0,-5",
       "0098"},
      {array + counted + "@type 1933 X1Y\n@click 1960\n", "X1Y@0,0 X2Y@0,-5", "X3Y"},
      {array + counted + "@type 1933 XY\n@click 1963\n", "XY@0,0", "XY"},
  };
  for (const auto& row : cases) {
    forget();
    const std::string out = text(row.lines + "@click 1\n@point 0,0\n@dialog\n");
    EXPECT_EQ(placed(), row.placed) << row.lines;
    EXPECT_EQ(shown(out, 1933), quoted(row.number)) << row.lines;
  }
}

TEST_F(Text7PlaceTest, EveryAttachmentAtThePointOfTheClick) {
  std::string lines = "@type 1937 X\n@type 1991 30\n@type 1989 0.8\n";
  std::string expected;
  int x = 0;
  for (const char* attachment :
       {"L", "C", "R", "M", "TL", "TC", "TR", "ML", "MC", "MR", "BL", "BC", "BR"}) {
    const std::string item = std::to_string(x);
    lines += "@choose 1993 #" + item + "\n@click 1\n@move 1,1\n@point " + item + ",5\n";
    expected += std::string(x == 0 ? "" : " ") + attachment + "," + item + ",5,30,0.8";
    ++x;
  }
  text(lines);
  EXPECT_EQ(placed({10, 11, 12, 9, 8}), expected);
}

TEST_F(Text7PlaceTest, TheTurnedSystemAndTheScaleOfTheDrawing) {
  const std::string array =
      "@click 1976\n@click 1962\n@type 1938 2\n@type 1940 2\n@type 1939 5\n@type 1941 10\n"
      "@type 1931 W\n@click 1\n@point 1,2\n";
  const struct {
    std::string before;
    std::string scales;  ///< of the project
    std::string lines;
    std::string placed;
    std::string height;
  } cases[] = {
      {"UCS\nZ\n90\n", "", array, "W@-2,1 W@3,1 W@-2,11 W@3,11", "2.5 2.5 2.5 2.5"},
      {"UCS\nO\n100,0\n", "", array, "W@101,2 W@101,-3 W@111,2 W@111,-3", "2.5 2.5 2.5 2.5"},
      {"DIMSCALE\n10\n", "", "@type 1937 \"A\\nB\"\n@click 1\n@point 0,0\n", "A@0,0 B@0,-30",
       "25 25"},
      {"DIMSCALE\n10\n@save a.dxf\n", "[Scale]\n../a.dxf=2\n", array, "W@1,2 W@1,-8 W@21,2 W@21,-8",
       "5 5 5 5"},
      {"DIMSCALE\n0\n", "", "@type 1937 A\n@click 1\n@point 0,0\n", "A@0,0", "0.00025"},
  };
  for (const auto& row : cases) {
    forget();
    project("12.0", row.scales);
    text(row.lines, row.before);
    EXPECT_EQ(placed(), row.placed) << row.before;
    EXPECT_EQ(placed({7}), row.height) << row.before;
  }
}

TEST_F(Text7PlaceTest, RepeatedTextsReadTheFieldsAnewUntilTheyAreCancelled) {
  const std::string repeated = "@click 1975\n";
  const std::string counted =
      repeated + "@check 1967 on\n@type 1932 X\n@type 1933 8\n@type 1934 /1\n";
  const struct {
    std::string lines;
    std::string placed;
    std::string number;
  } cases[] = {
      {repeated + "@type 1931 W\n@click 1\n@point 0,0\n@point 5,0\n@esc\n", "W@0,0 W@5,0", ""},
      {counted + "@click 1\n@point 0,0\n@move 2,2\n@point 5,0\n@point 9,9\n@esc\n",
       "X8/1@0,0 X9/1@5,0 X10/1@9,9", "11"},
      {counted + "@click 1\n@point 0,0\n@enter\n", "X8/1@0,0", "9"},
      {counted + "@click 1\n@move 3,3\n@esc\n", "", "8"},
      // A count that is refused ends it; the number stays.
      {counted + "@type 1935 -5\n@click 1\n@point 0,0\n@point 5,0\n", "X8/1@0,0 X3/1@5,0", "3"},
      {counted + "@type 1933 XY\n@click 1\n@point 0,0\n", "XXY/1@0,0", "XY"},
      // The dialog goes on where it was.
      {counted + "@click 1\n@point 0,0\n@esc\n@type 1933 1\n@click 1\n@point 1,0\n@esc\n",
       "X8/1@0,0 X1/1@1,0", "2"},
  };
  for (const auto& row : cases) {
    forget();
    const std::string out = text(row.lines + "@dialog\n");
    EXPECT_EQ(placed(), row.placed) << row.lines;
    EXPECT_EQ(shown(out, 1933), quoted(row.number)) << row.lines;
    EXPECT_EQ(out.find("down") != std::string::npos, row.number == "3") << out;
  }
}

TEST_F(Text7PlaceTest, LayersAreMadeAndLocksComeBack) {
  write("a.dxf", textDrawing());
  const struct {
    std::string before;
    std::string lines;
    std::string placed;
  } cases[] = {
      {"", "@choose 1998 AUX\n", "AUX"},
      {"", "@type 1998 NEW-1\n", "NEW-1"},
      {"", "@type 1998 wireno\n", "WIRENO"},
      {"", "@choose 1998 #7\n", "0"},
      {"SETVAR\nCLAYER\nWIRENO\n", "@choose 1998 #7\n", "WIRENO"},
      {"", "@type 1998 \"<current LAYER>\"\n", "0"},
      // Not in the list, so the lock isn't looked at, and the layers are unlocked meanwhile.
      {"", "@type 1998 LOCKED\n", "LOCKED"},
      {"-LAYER\nF\nWIRENO\n\n", "@type 1998 WIRENO\n", "WIRENO"},
  };
  for (const auto& row : cases) {
    forget();
    text("@type 1937 X\n" + row.lines + "@click 1\n@point 0,0\n", row.before);
    EXPECT_EQ(placed({5}), row.placed) << row.lines;
    const ProgramRun locked =
        run({"b.dxf", "-c", "ERASE", "-c", "@select all", "-c", "@enter", "-c", "@list"});
    EXPECT_EQ(locked.out.find(" LOCKED ") != std::string::npos, row.placed == "LOCKED")
        << locked.out;
  }
  // A cancelled drag leaves the layer that was made for it; U takes it back.
  text("@type 1937 X\n@type 1998 NEW-1\n@click 1\n@esc\n");
  EXPECT_NE(read("b.dxf").find("NEW-1"), std::string::npos);
  text("@type 1937 X\n@type 1998 NEW-1\n@click 1\n@point 0,0\nU\n");
  EXPECT_EQ(read("b.dxf"), read("a.dxf"));
  // One U for all that a run of the command placed.
  text("@click 1975\n@type 1931 X\n@click 1\n@point 0,0\n@point 5,0\n@esc\nU\n");
  EXPECT_EQ(read("b.dxf"), read("a.dxf"));
  // Locked while the dialog was open: OK finds out.
  const std::string out = text(
      "@click 1974\n@type 1937 X\n@choose 1998 CMNT\n-LAYER\nN\nCMNT\nLO\nCMNT\n\n@click "
      "1\n@dialog\n");
  EXPECT_EQ(placed(), "");
  EXPECT_EQ(shown(out, 1, true), "button disabled visible \"OK\"");
}

TEST_F(Text7PlaceTest, DrawingsWhoseModelSpaceHasAnotherNameOrNoRecord) {
  const auto form = [](const char* release, const char* name) {
    DrawingForm made;
    made.release = release;
    made.modelName = name;
    return made;
  };
  const std::string named = drawingWith({}, form("AC1014", "*U"));
  std::string without = drawingWith({});
  for (const std::string type : {"  0\nBLOCK_RECORD\n  5\n1F", "  0\nBLOCK\n  5\n40"}) {
    const std::size_t begin = without.find(type);
    const std::string next = type.find("BLOCK_RECORD") != type.npos ? "  0\n" : "  0\nBLOCK\n";
    without.erase(begin, without.find(next, begin + 4) - begin);
  }
  std::string ownerless = named;
  while (ownerless.find("330\n1F\n") != ownerless.npos)
    ownerless.erase(ownerless.find("330\n1F\n"), 7);
  for (const std::string& drawing : {named, ownerless, drawingWith({}, form("AC1015", "*X")),
                                     drawingWith({}, form("AC1032", "*U")), without}) {
    write("a.dxf", drawing);
    text("@type 1937 X\n@choose 1998 CMNT\n@click 1\n@point 1,2\n");
    EXPECT_EQ(placed({2, 4, 5, 11, 12}), "model,X,CMNT,1,2");
    text("@type 1937 X\n@choose 1998 CMNT\n@click 1\n@point 1,2\nU\n");
    EXPECT_EQ(read("b.dxf"), drawing);
  }
  // A drawing without any is left as it is, and the user is told.
  DrawingForm none;
  none.modelSpace = false;
  write("a.dxf", drawingWith({}, none));
  const std::string out = text("@type 1937 X\n@choose 1998 CMNT\n@click 1\n@dialog\n");
  EXPECT_NE(out.find("no model space"), std::string::npos) << out;
  EXPECT_EQ(read("b.dxf"), read("a.dxf"));
}

TEST_F(Text7PlaceTest, NamesThatNoLayerCanHaveAreRefused) {
  write("a.dxf", textDrawing());
  for (const char* name : {"A*B", "A,B", "A|B", "\"A \"", "A/B"}) {
    const std::string out =
        text(std::string("@type 1937 X\n@type 1998 ") + name + "\n@click 1\n@dialog\n");
    EXPECT_NE(out.find("A layer can't have this name."), std::string::npos) << name << out;
    EXPECT_EQ(read("b.dxf"), read("a.dxf")) << name;
    forget();
  }
  text("@type 1937 X\n@type 1998 \"MY LAYER\"\n@click 1\n@point 1,2\n");
  EXPECT_EQ(placed({5}), "MY LAYER");
}

TEST_F(Text7PlaceTest, ValuesArePickedFromTexts) {
  const auto entity = [](const std::string& type, const std::string& handle, const std::string& x,
                         const std::string& groups) {
    return "  0\n" + type + "\n  5\n" + handle +
           "\n330\n1F\n100\nAcDbEntity\n  8\nWIRENO\n100\nAcDbText\n 10\n" + x +
           "\n 20\n50.0\n 30\n0.0\n 40\n6.0\n  1\nV" + handle + "\n" + groups;
  };
  std::string drawing = textDrawing();
  const std::string texts =
      entity("TEXT", "70", "100.0",
             " 41\n0.7\n 50\n270.0\n 72\n2\n 11\n100.0\n 21\n50.0\n 31\n0.0\n100\nAcDbText\n "
             "73\n2\n") +
      entity("TEXT", "71", "200.0",
             " 50\n180.0\n 72\n4\n 11\n200.0\n 21\n50.0\n 31\n0.0\n100\nAcDbText\n") +
      entity("TEXT", "72", "300.0", " 72\n5\n 11\n320.0\n 21\n50.0\n 31\n0.0\n100\nAcDbText\n") +
      entity("ATTDEF", "73", "400.0",
             "100\nAcDbAttributeDefinition\n  3\nName?\n  2\nNAME\n 70\n0\n") +
      entity("MTEXT", "74", "500.0", "") +
      entity("ATTRIB", "75", "600.0",
             " 72\n1\n 11\n600.0\n 21\n50.0\n 31\n0.0\n100\nAcDbAttribute\n  2\nTAG\n 70\n0\n"
             " 74\n3\n");
  write("a.dxf", drawing.insert(drawing.rfind("  0\nENDSEC"), texts));
  project("12.0", "[Scale]\n../a.dxf=2\n");
  const struct {
    std::string button;
    std::string picked;
    int id;
    std::string shown;  ///< afterwards
  } cases[] = {
      {"1999", "70", 1937, "aV70b"},        {"1997", "70", 1998, "WIRENO"},
      {"1986", "70", 1985, "STANDARD"},     {"1988", "70", 1987, "3"},
      {"1990", "70", 1989, "0.7"},          {"1992", "70", 1991, "-90"},
      {"1994", "70", 1993, "Middle right"}, {"1992", "71", 1991, "180"},
      {"1994", "71", 1993, "Middle (M)"},   {"1990", "71", 1989, "1"},
      {"1994", "72", 1993, "Left"},         {"1988", "60", 1987, "1.25"},
      {"1995", "70", 1937, "ab"},           {"1995", "70", 1989, "0.7"},
      {"1995", "70", 1998, "WIRENO"},       {"1995", "70", 1991, "-90"},
      {"1995", "70", 1993, "Middle right"}, {"1997", "73", 1998, "CMNT"},
      {"1988", "73", 1937, "aNAMEb"},       {"1994", "75", 1993, "Top center"},
      {"1999", "75", 1937, "aV75b"},        {"1988", "74", 1987, "2.5"},
  };
  for (const auto& row : cases) {
    forget();
    const std::string out = text("@type 1937 ab\n@choose 1993 #2\n@caret 1937 1\n@click " +
                                 row.button + "\n@pick " + row.picked + "\n@dialog\n");
    EXPECT_EQ(shown(out, row.id), quoted(row.shown)) << row.button << ' ' << row.picked;
  }
  EXPECT_EQ(read("b.dxf"), read("a.dxf"));
}

TEST_F(Text7PlaceTest, DistancesArePickedInTheDrawing) {
  const std::string array = "@click 1976\n@click 1962\n@type 1931 W\n@type 1938 2\n@type 1940 2\n";
  const struct {
    std::string lines;
    std::string distances;
    std::string placed;
  } cases[] = {
      {"@click 1964\n@point 10,10\n@point 40,-10\n", R"("10" "15")",
       "W@0,0 W@0,-20 W@30,0 W@30,-20"},
      {"@click 1964\n@point 40,-10\n@point 10,10\n", R"("-10" "-15")",
       "W@0,0 W@0,20 W@-30,0 W@-30,20"},
      // A single distance is taken along its axis alone.
      {"@click 1965\n@point 0,0\n@point 10,-50\n", R"("25" "1")", "W@0,0 W@0,-50 W@2,0 W@2,-50"},
      {"@click 1966\n@point 0,0\n@point 50,10\n", R"("1" "25")", "W@0,0 W@0,-2 W@50,0 W@50,-2"},
      // Points on the grid of the snap; cancelled picks change nothing.
      {"@click 1966\n@point 1,1\n@point 49,1\n", R"("1" "25")", "W@0,0 W@0,-2 W@50,0 W@50,-2"},
      {"@click 1964\n@point 10,10\n@esc\n", R"("1" "1")", "W@0,0 W@0,-2 W@2,0 W@2,-2"},
      {"@click 1965\n@enter\n", R"("1" "1")", "W@0,0 W@0,-2 W@2,0 W@2,-2"},
  };
  for (const auto& row : cases) {
    forget();
    const std::string out =
        text(array + row.lines + "@dialog\n@click 1\n@point 0,0\n@show ORTHOMODE\n@show SNAPMODE\n",
             "DIMSCALE\n2\nSNAPUNIT\n10,10\nORTHOMODE\n0\nSNAPMODE\n0\n");
    EXPECT_EQ(shown(out, 1939) + ' ' + shown(out, 1941), row.distances) << row.lines;
    EXPECT_EQ(placed(), row.placed) << row.lines;
    EXPECT_TRUE(out.ends_with("ORTHOMODE=0\nSNAPMODE=0\n")) << out;
  }
}

TEST_F(Text7PlaceTest, WhatAPickRefusesStaysAndTheRestGoesOn) {
  write("a.dxf", textDrawing());
  const std::string locked = "-LAYER\nLO\n0\n\nCLAYER\nWIRENO\n";
  const std::string all = text(
      "@type 1937 ab\n@type 1987 9\n@choose 1993 #4\n@click 1995\n@pick 60\n@dialog\n", locked);
  EXPECT_NE(all.find("[AutoCAD]"), std::string::npos) << all;
  EXPECT_EQ(shown(all, 1998) + shown(all, 1987) + shown(all, 1993) + shown(all, 1937),
            R"("CMNT""2.5""Left""ab")");
  // The value takes the place of the selection, unless the field would hold too much.
  const std::string value =
      text("@type 1937 xabcy\n@caret 1937 1 4\n@click 1999\n@pick 60\n@keys \"!\"\n@dialog\n");
  EXPECT_EQ(shown(value, 1937), "\"xX001!y\"");
  for (const std::size_t length : {507U, 508U}) {
    const std::string typed(length, 'x');
    const std::string full = text("@type 1937 " + typed + "\n@click 1999\n@pick 60\n@dialog\n");
    EXPECT_EQ(shown(full, 1937), quoted(length == 507 ? typed + "X001" : typed)) << length;
    EXPECT_EQ(full.find("[AutoCAD]") == std::string::npos, length == 507) << full;
  }
  // In the other modes it goes behind what is there.
  EXPECT_EQ(
      shown(text("@click 1975\n@type 1931 ab\n@caret 1931 0\n@click 1999\n@pick 61\n@dialog\n"),
            1931),
      "\"abA-9\"");
}

}  // namespace
}  // namespace kovra::test
