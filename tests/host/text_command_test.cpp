// The Text command below data version 7.00: texts one after another, with the dialog beside the
// drawing.
#include "tests/host/text7_run.h"

namespace kovra::test {
namespace {

/// The prompts that were shown, by the numbers of their states; a prompt that comes again counts
/// again.
std::string prompts(const std::string& out) {
  static const struct {
    const char* prompt;
    char state;
  } kStates[] = {{"Enter text:", '1'},         {"Specify insertion", '2'},
                 {"take the text style", '3'}, {"take the height", '4'},
                 {"the width factor", '5'},    {"take the rotation", '6'},
                 {"justification", '7'},       {"take all properties", '8'}};
  std::string shown;
  std::istringstream lines(out);
  for (std::string line; std::getline(lines, line);) {
    for (const auto& [prompt, state] : kStates) {
      if (line.find(prompt) != std::string::npos) shown += state;
    }
  }
  return shown;
}

/// An entity of the model space at x,x with further groups.
std::string entity(const char* type, const char* handle, const std::string& x,
                   const std::string& groups, const char* owner = "1F") {
  return std::string("  0\n") + type + "\n  5\n" + handle + "\n330\n" + owner +
         "\n100\nAcDbEntity\n  8\n0\n100\nAcDbText\n 10\n" + x + "\n 20\n" + x + "\n 30\n0.0\n" +
         groups;
}

/// A drawing at dimension scale 4 with texts of many kinds, and a block reference of scale 2,
/// turned by 30 degrees, which shows the nested text at kNested.
std::string sheet() {
  std::string drawing = textDrawing();
  const auto insert = [&](const std::string& before, const std::string& groups) {
    drawing.insert(drawing.rfind(before), groups);
  };
  const std::string form = " 40\n3.0\n 41\n0.8\n 50\n15.0\n  7\nFIX\n";
  const auto anchored = [&](const char* handle, const std::string& x, const char* value,
                            const char* horizontal, const char* vertical) {
    return entity("TEXT", handle, x,
                  std::string("  1\n") + value + "\n" + form + " 72\n" + horizontal + "\n 11\n1" +
                      x + "\n 21\n" + x + "\n 31\n0.0\n100\nAcDbText\n 73\n" + vertical + "\n");
  };
  const std::string end = "  0\nENDSEC";
  insert(end, anchored("62", "30.0", "ML", "0", "2"));
  insert(end, anchored("63", "40.0", "ALIGNED", "3", "0"));
  insert(end, anchored("64", "50.0", "\\U+52D5\\U+529B", "4", "0"));
  insert(end,
         entity("ATTDEF", "65", "-90.0",
                " 40\n3.0\n  1\nVALUE\n100\nAcDbAttributeDefinition\n  3\n\n  2\nTAG1\n 70\n0\n"));
  insert(end, entity("TEXT", "66", "-40.0",
                     " 40\n7.0\n  1\nTURNED\n 50\n33.69006752597979\n100\nAcDbText\n"));
  insert(end,
         "  0\nINSERT\n  5\n70\n330\n1F\n100\nAcDbEntity\n  8\n0\n100\nAcDbBlockReference\n  2\n"
         "MOTOR\n 10\n200.0\n 20\n0.0\n 30\n0.0\n 41\n2.0\n 42\n2.0\n 43\n2.0\n 50\n30.0\n");
  insert("  0\nENDBLK\n  5\n45",
         entity("TEXT", "71", "20.0", " 40\n1.25\n  1\nNESTED\n100\nAcDbText\n", "30"));
  drawing.replace(drawing.find("$DIMSCALE\n 40\n1.0"), 17, "$DIMSCALE\n 40\n4.0");
  const std::string style =
      "  0\nSTYLE\n  5\n22\n330\n3\n100\nAcDbSymbolTableRecord\n100\n"
      "AcDbTextStyleTableRecord\n  2\nFIX\n 70\n0\n 40\n0.0\n 41\n1.0\n 50\n"
      "0.0\n 71\n0\n 42\n2.5\n  3\ntxt\n  4\n\n";
  return drawing.insert(drawing.find("  0\nENDTAB", drawing.find("  3\ntxt")), style);
}

const std::string kNested = "@pick 215.007,56.007\n";

class TextCommandTest : public Text7Run {
 protected:
  TextCommandTest() { project("6.0"); }

  /// Without the quotes.
  static std::string texts(const std::string& out, const std::vector<int>& ids) {
    std::string all = Text7Run::texts(out, ids);
    std::erase(all, '"');
    return all;
  }
};

TEST_F(TextCommandTest, StatesFollowTheInput) {
  const struct {
    std::string lines;
    std::string prompts;
    std::string placed = {};
  } cases[] = {
      // From the value.
      {"@esc\n", "1"},
      {"\n\n@esc\n", "111"},
      {"K1\n@esc\n@esc\n", "121"},
      {"_. .0\n", "1"},
      {"_. .\n", "1"},
      {"_. .-1\n", "1"},
      {"_. .7\n@esc\n", "11"},
      {"_. .-2\n@esc\n", "11"},
      {"_. x\n1,1\n@esc\n", "121", "_. x@1,1"},
      {"_.  .3\n1,1\n@esc\n", "121", "_.  .3@1,1"},
      {"_._\n1,1\n@esc\n", "121", "_._@1,1"},
      // From the point.
      {"K1\n3,4\nK 2\n@point 5,6\n@esc\n", "12121", "K1@3,4 K 2@5,6"},
      {"K1\n\nother\n_. 3\n7,8\n@esc\n", "122221", "K1@7,8"},
      {"K1\n_. .0\n@esc\n", "121"},
      {"K1\n_. .-1\n", "12"},
      {"K1\n_. .9\n1,2\n@esc\n", "1221", "K1@1,2"},
      // From a pick.
      {"_. .1\n@esc\n@esc\n", "131"},
      {"_. .1\n_. .0\n@esc\n", "131"},
      {"_. .1\n\n@esc\n", "131"},
      {"_. .1\nother\n@esc\n", "131"},
      {"_. .1\n_. 2\n@esc\n", "131"},
      {"_. .1\n@point 500,500\n@pick 600,600\n@esc\n@esc\n", "13331"},
      {"_. .1\n_. .-1\n", "13"},
      {"K1\n_. .2\n_. .6\n_. .5\n@esc\n1,2\n@esc\n",
       "124872"
       "1",
       "K1@1,2"},
      {"K1\n_. .3\n_. .9\n@esc\n@esc\n", "12521"},
      {"K1\n_. .3\n_. .4\n_. .-1\n", "1256"},
  };
  write("a.dxf", sheet());
  for (const auto& row : cases) {
    const std::string out = text(row.lines + "@refused @dialog\n");
    EXPECT_EQ(prompts(out), row.prompts) << row.lines << out;
    EXPECT_EQ(placed(), row.placed) << row.lines;
  }
}

TEST_F(TextCommandTest, ButtonsAskAsTheRequestLineDoes) {
  const struct {
    std::string button;
    char state;
  } buttons[] = {{"1986", '3'}, {"1988", '4'}, {"1990", '5'},
                 {"1992", '6'}, {"1994", '7'}, {"1995", '8'}};
  for (const auto& [button, state] : buttons) {
    const std::string click = "@click " + button + "\n";
    // What was typed and not accepted is dropped.
    const std::string out = text("@keys \"half\"\n" + click + "@esc\nK1\n" + click + click +
                                 "@click 2000\n@click 2000\n@click 2000\n@refused @dialog\n");
    EXPECT_EQ(prompts(out), std::string("1") + state + "12" + state + state + "21") << out;
    EXPECT_EQ(placed(), "");
  }
  for (const std::string before : {"", "K1\n", "_. .1\n"}) {
    EXPECT_NE(prompts(text(before + "@close\n@refused @dialog\n")), "");
  }
}

TEST_F(TextCommandTest, PicksAdoptWhatTheirStateSays) {
  const struct {
    std::string picks;
    std::string placed;  ///< style, height, width factor, rotation, alignment
    std::string shown;   ///< in the dialog: style, height, width factor, rotation, attachment
  } cases[] = {
      {"", "STANDARD,6,1,0,MC", "STANDARD 1.5 1 0 Middle center"},
      {"@click 1986\n@pick 62\n", "FIX,6,1,0,MC", "FIX 1.5 1 0 Middle center"},
      {"@click 1988\n@pick 62\n", "STANDARD,3,1,0,MC", "STANDARD 0.75 1 0 Middle center"},
      {"@click 1988\n@pick 66\n", "STANDARD,7,1,0,MC", "STANDARD 1.75 1 0 Middle center"},
      {"@click 1992\n@pick 66\n", "STANDARD,6,1,33.69006752597979,MC",
       "STANDARD 1.5 1 33.69006753 Middle center"},
      {"@click 1988\n" + kNested, "STANDARD,2.5,1,0,MC", "STANDARD 0.625 1 0 Middle center"},
      {"@click 1990\n@pick 62\n", "STANDARD,6,0.8,0,MC", "STANDARD 1.5 0.8 0 Middle center"},
      {"@click 1992\n@pick 62\n", "STANDARD,6,1,15,MC", "STANDARD 1.5 1 15 Middle center"},
      {"@click 1992\n" + kNested, "STANDARD,6,1,30,MC", "STANDARD 1.5 1 30 Middle center"},
      {"@click 1994\n@pick 62\n", "STANDARD,6,1,0,ML", "STANDARD 1.5 1 0 Middle left"},
      {"@click 1994\n@pick 63\n@pick 64\n", "STANDARD,6,1,0,M", "STANDARD 1.5 1 0 Middle (M)"},
      {"@click 1995\n@pick 64\n", "FIX,3,0.8,15,M", "FIX 0.75 0.8 15 Middle (M)"},
      {"@click 1995\n@pick 63\n", "FIX,3,0.8,15,MC", "FIX 0.75 0.8 15 Middle center"},
      {"@click 1995\n@pick 65\n", "STANDARD,3,1,0,L", "STANDARD 0.75 1 0 Left"},
      {"@click 1995\n" + kNested, "STANDARD,2.5,1,30,L", "STANDARD 0.625 1 30 Left"},
  };
  write("a.dxf", sheet());
  for (const auto& row : cases) {
    forget();
    const std::string out =
        text("@choose 1993 \"Middle center\"\n" + row.picks + "@dialog\nK1\n0,0\n@esc\n");
    EXPECT_EQ(placed({6, 7, 8, 9, 10}), row.placed) << row.picks << out;
    EXPECT_EQ(texts(out, {1985, 1987, 1989, 1991, 1993}), row.shown) << row.picks;
  }
}

TEST_F(TextCommandTest, ValuesAreOfferedAndTakenFromTexts) {
  const struct {
    std::string lines;
    std::string placed;
  } cases[] = {
      {"K1\n@esc\n@move 5,5\n-A\n1,1\n", "K1-A@1,1"},
      {"K1\n@esc\n@move 5,5\n@move 6,6\n\n1,1\n", "K1@1,1"},
      {"K1\n@esc\nK2\n1,1\n", "K2@1,1"},
      {"K1\n@esc\n@move 5,5\n@keys \"\\b\\b\"\nK2\n1,1\n", "K2@1,1"},
      {"K1\n1,1\n@move 5,5\n\nK2\n2,2\n", "K1@1,1 K2@2,2"},
      {"K1\n@esc\n_. .3\n@pick 62\n@move 1,1\n\n1,1\n", "K1@1,1"},
      {"@keys \"A-\"\n@pick 60\n@pick 62\n\n1,1\n", "A-X001ML@1,1"},
      {"K1\n@esc\n@pick 60\n\n1,1\n", "K1X001@1,1"},
      {"@pick 64\n/\n1,1\n", "動力/@1,1"},
      {"@pick 65\n\n1,1\n", "TAG1@1,1"},
      {kNested + "\n1,1\n", "NESTED@1,1"},
      {"@pick 600,500\n@pick 70\nK1\n1,1\n", "NESTEDK1@1,1"},
      {std::string(255, 'x') + "\n1,1\n", std::string(255, 'x') + "@1,1"},
  };
  write("a.dxf", sheet());
  for (const auto& row : cases) {
    const std::string out = text(row.lines + "@esc\n");
    EXPECT_EQ(placed(), row.placed) << row.lines << out;
  }
  EXPECT_EQ(run({"a.dxf", "-p", "p", "-c", "KOVRA_TEXT", "-c", std::string(256, 'x')}).status, 1);
}

TEST_F(TextCommandTest, EachTextIsOneStepWithTheGroupsOfTheDialog) {
  project("6.0", "[Scale]\n../a.dxf=100\n");
  write("a.dxf", sheet());
  const std::string before =
      "-LAYER\nM\nHERE\n\nCECOLOR\n3\nSNAPUNIT\n10,10\nSNAPMODE\n1\nOSMODE\n4\nUCS\nZ\n90\n";
  const std::string out = text(
      "@type 1987 2.5\nA\n@move 1,1\n@point 12,13\n"
      "@choose 1998 JCMNT\n@choose 1985 FIX\n@choose 1989 0.9\n@choose 1991 90.0\n"
      "@choose 1993 Right\nB\n20,5\n@show TEXTSTYLE\n"
      "@choose 1998 #7\n@type 1996 2\n@type 1991 -12.5\n@move 3,3\n@click 1\nC\n0,30\n@esc\n"
      "@show TEXTSTYLE\n@show TEXTSIZE\n@show SNAPMODE\n@show OSMODE\n",
      before);
  EXPECT_EQ(placed({4, 5, 6, 7, 8, 9, 10, 11, 12}),
            "A,CMNT,STANDARD,250,1,0,L,-10,10 B,JCMNT,FIX,250,0.9,90,R,-5,20 "
            "C,HERE,FIX,5,0.9,347.5,R,-30,0");
  for (const char* shownLine : {"TEXTSTYLE=\"FIX\"", "TEXTSIZE=5", "SNAPMODE=1", "OSMODE=4"}) {
    EXPECT_NE(out.find(shownLine), std::string::npos) << shownLine << out;
  }
  const std::string drawing = read("b.dxf");
  EXPECT_NE(drawing.find("CMNT\n 62\n3\n"), std::string::npos) << "the color of new entities";

  // Taken back one by one, down to the file that was opened.
  for (const auto& [steps, left] : {std::pair("U\n", "A@0,0 B@1,1"), {"U\nU\n", "A@0,0"}}) {
    text("A\n0,0\nB\n1,1\nC\n2,2\n@esc\n" + std::string(steps));
    EXPECT_EQ(placed(), left);
  }
  text("A\n0,0\nB\n1,1\n@click 1988\n@pick 62\nC\n2,2\n@esc\nU\nU\nU\n");
  EXPECT_EQ(read("b.dxf"), read("a.dxf"));
}

TEST_F(TextCommandTest, DrawingsWhoseHeaderNamesWhatTheyLack) {
  const struct {
    const char* header;
    const char* layer;
  } cases[] = {
      {"$TEXTSTYLE\n  7\nGONE", "0"}, {"$TEXTSTYLE\n  7\n", "0"}, {"$CLAYER\n  8\nLOST", "LOST"},
      {"$CLAYER\n  8\n", "0"},        {"$CLAYER\n  8\nA*B", "0"}, {"$CECOLOR\n 62\n300", "0"},
      {"$CELTYPE\n  6\nGONE", "0"},
  };
  for (const auto& row : cases) {
    for (const char* release : {"AC1009", "AC1015"}) {
      DrawingForm form;
      form.release = release;
      const std::string drawing = drawingWith({}, form);
      const std::size_t variables = drawing.find("  9\n$DIMSCALE");
      write("a.dxf",
            std::string(drawing).insert(variables, std::string("  9\n") + row.header + '\n'));
      for (const std::string version : {"6.0", "12.0"}) {
        project(version);
        const std::string both =
            version == "6.0"
                ? "K1\n3,4\nK1\n3,4\n@esc\n"
                : "@click 1975\n@type 1931 K1\n@click 1\n@point 3,4\n@point 3,4\n@esc\n";
        forget();
        text("@choose 1998 #7\n" + both);
        const std::string one = std::string("K1,") + row.layer + ",3";
        EXPECT_EQ(placed({4, 5, 11}), one + ' ' + one) << row.header << release << version;
        EXPECT_EQ(read("b.dxf").find(" 62\n300", variables + 60), std::string::npos);
        EXPECT_EQ(read("b.dxf").find("  6\nGONE", variables + 60), std::string::npos);
        text("@choose 1998 #7\n" + both + "U\nU\n");
        EXPECT_EQ(read("b.dxf"), read("a.dxf")) << row.header << release << version;
      }
    }
  }
}

TEST_F(TextCommandTest, ATextThatCantBePlacedIsToldOf) {
  write("p/KovrCad.prm", "[TEXT]\nLAYER_CNT=1\nLAYER1=A*B\n");
  write("a.dxf", textDrawing());
  const std::string out = text("K1\n3,4\n@refused @dialog\n");
  EXPECT_NE(out.find("The text couldn't be placed"), std::string::npos) << out;
  EXPECT_EQ(read("b.dxf"), read("a.dxf"));
}

/// What the dialog's controls do, seen in the dialog and in the text that is placed then.
class TextDialogTest : public TextCommandTest {
 protected:
  static bool hasFocus(const std::string& out, int id) {
    return shown(out, id, true).ends_with(" focus");
  }
  const std::string place_ = "K1\n0,0\n@esc\n";
};

TEST_F(TextDialogTest, FieldsTakeWhatATextCanHave) {
  const struct {
    int id;
    std::string typed;
    bool valid;
    std::string placed;  ///< height, width factor, rotation
    std::string shown = {};
  } cases[] = {
      {1987, "2.5", true, "10,1,0"},
      {1987, "0.5", true, "2,1,0"},
      {1987, ".75", true, "3,1,0"},
      {1987, "2.5.9", true, "10,1,0"},
      {1987, "0", false, "6,1,0", "1.5"},
      {1987, "\"\"", false, "6,1,0", "1.5"},
      {1987, "2mm", false, "6,1,0", "1.5"},
      {1987, "-2", false, "6,1,0", "1.5"},
      {1987, "1e3", false, "6,1,0", "1.5"},
      {1987, ".", false, "6,1,0", "1.5"},
      {1987, "\"2 \"", false, "6,1,0", "1.5"},
      {1987, std::string(400, '9'), false, "6,1,0", "1.5"},
      {1989, "0.8", true, "6,0.8,0"},
      {1989, "0.00", false, "6,1,0", "1"},
      {1989, "+1", false, "6,1,0", "1"},
      {1991, "-90", true, "6,1,270"},
      {1991, "0", true, "6,1,0"},
      {1991, ".", true, "6,1,0"},
      {1991, "450", true, "6,1,90"},
      {1991, "-", false, "6,1,0", "0"},
      {1991, "--5", false, "6,1,0", "0"},
      {1991, "\"\"", false, "6,1,0", "0"},
      {1996, "100", true, "150,1,0"},
      {1996, "0", false, "6,1,0", "4"},
      {1996, "-1", false, "6,1,0", "4"},
  };
  write("a.dxf", sheet());
  for (const auto& row : cases) {
    forget();
    const std::string field = std::to_string(row.id);
    // Focus on a list: only a field that isn't accepted yet keeps it from the drawing.
    const std::string out =
        text("@type " + field + ' ' + row.typed + "\n@focus 1998\n@move 1,1\n@dialog\n" + place_);
    EXPECT_EQ(placed({7, 8, 9}), row.placed) << field << row.typed;
    EXPECT_EQ(hasFocus(out, 1998), !row.valid) << field << row.typed;
    if (!row.valid) {
      EXPECT_EQ(texts(out, {row.id}), row.shown) << field << row.typed;
    }
  }
}

TEST_F(TextDialogTest, FocusGoesBackToTheDrawingWhenAnEntryIsMade) {
  const struct {
    std::string lines;
    bool inDialog;  ///< keys go to the field 1987
    std::string height;
  } cases[] = {
      {"@type 1987 4\n@move 1,1\n", true, "6"},  // not accepted yet
      {"@type 1987 4\n@click 1\n", false, "16"},
      {"@type 1987 4\n@key 1987 Enter\n", false, "16"},
      {"@type 1987 0\n@click 1\n", false, "6"},
      {"@type 1987 4\n@click 2\n", false, "16"},  // accepted when the button took the focus
      {"@type 1987 4\n@key 1987 Esc\n", false, "6"},
      {"@choose 1987 3.0\n", false, "12"},
      {"@type 1987 4\n@point 5,5\n", false, "16"},
      {"@type 1987 4\n@click 1988\n@esc\n@move 1,1\n", false, "16"},
  };
  write("a.dxf", sheet());
  for (const auto& row : cases) {
    forget();
    const std::string out = text(row.lines + "@keys \"7\"\n@dialog\n@esc\n");
    const bool typedInDialog = texts(out, {1987}).find('7') != std::string::npos;
    EXPECT_EQ(typedInDialog, row.inDialog) << row.lines << out;
    if (row.inDialog) continue;
    forget();
    text(row.lines + "@keys \"\\b\"\n" + place_);
    EXPECT_EQ(placed({7}), row.height) << row.lines;
  }
}

TEST_F(TextDialogTest, LocksDecideOfOkAndOfNothingElse) {
  write("p/KovrCad.prm", "[TEXT]\nLAYER_CNT=3\nLAYER1=0\nLAYER2=LOCKED\nLAYER3=GONE\n");
  write("a.dxf", sheet());
  const auto okIsOn = [](const std::string& out) {
    return shown(out, 1, true).find("enabled") != std::string::npos;
  };
  const struct {
    std::string before;
    std::string lines;
    bool ok;
    std::string layer;
  } cases[] = {
      {"", "", true, "0"},
      {"", "@choose 1998 LOCKED\n", false, "LOCKED"},
      {"", "@choose 1998 LOCKED\n@choose 1998 0\n", true, "0"},
      {"", "@choose 1998 GONE\n", true, "GONE"},
      {"", "@choose 1998 #3\n", true, "0"},
      {"CLAYER\nWIRENO\n", "@choose 1998 #3\n", true, "WIRENO"},
      {"CLAYER\nLOCKED\n", "@choose 1998 #3\n", false, "LOCKED"},
      {"CLAYER\nLOCKED\n", "", true, "0"},
  };
  for (const auto& row : cases) {
    forget();
    const std::string out = text(row.lines + "@dialog\n" + place_, row.before);
    EXPECT_EQ(okIsOn(out), row.ok) << row.before << row.lines;
    EXPECT_EQ(placed({5}), row.layer) << row.before << row.lines;
  }
}

TEST_F(TextDialogTest, TheNextRunStartsWhereThisOneEnded) {
  write("a.dxf", sheet());
  const std::vector<int> ids = {1998, 1985, 1987, 1989, 1991, 1993, 1996};
  EXPECT_EQ(texts(text("@dialog\n@esc\n"), ids), "CMNT STANDARD 1.5 1 0 Left 4");
  const std::string changes =
      "@place 100 90\n@choose 1998 SYMBOL\n@choose 1985 FIX\n@type 1987 1.66666666666\n"
      "@type 1989 0.7\n@type 1991 -30\n@choose 1993 #12\n@type 1996 7\n";
  for (const std::string end :
       {"@esc\n", "@close\n", "@click 2000\n", "K1\n@closedrawing\n@open a.dxf\n"}) {
    forget();
    text(changes + end);
    const std::string out = text("@dialog\n@esc\n");
    // Style and scale are the drawing's.
    EXPECT_EQ(texts(out, ids), "SYMBOL STANDARD 1.66666667 0.7 -30 Bottom right 4") << end;
    EXPECT_NE(out.find(" at 100 90 "), std::string::npos) << end << out;
  }
  // A quarter of it stays in sight, and that is where it opens again.
  for (const auto& [place, forced] :
       {std::pair("-5000 -5000", "-212 0"), {"9000 9000", "1850 1003"}}) {
    text(std::string("@place ") + place + "\n@esc\n");
    EXPECT_NE(text("@dialog\n@esc\n").find(std::string(" at ") + forced), std::string::npos)
        << place;
    EXPECT_NE(text("@dialog\n@esc\n").find(std::string(" at ") + forced), std::string::npos)
        << place;
  }
}

TEST_F(TextDialogTest, ListsAndLayersThatHaveChangedSinceTheLastRun) {
  write("a.dxf", sheet());
  text("@choose 1998 AUX\n@choose 1993 #3\n@esc\n");
  write("p/KovrCad.prm", "[TEXT]\nLAYER_CNT=1\nLAYER1=WIRENO\nTEXT_H_CNT=0\nTEXT_ROT_CNT=x\n");
  const std::string out = text("@dialog\n" + place_);
  // The index is beyond the list: nothing is selected, the first layer counts.
  EXPECT_NE(shown(out, 1998, true).find("\"\" #-1 of \"WIRENO\" \"<Current layer>\""),
            std::string::npos)
      << out;
  EXPECT_EQ(placed({5, 10}), "WIRENO,M");
  EXPECT_EQ(shown(out, 1987, true).find("#-1 of"), std::string::npos);

  write("p/KovrCad.prm", "\xFF\xFE\x01");
  EXPECT_EQ(texts(text("@choose 1998 #0\n@dialog\n@esc\n"), {1998, 1993}), "CMNT Middle (M)");
  std::filesystem::remove(path("p/KovrCad.prm"));
  EXPECT_EQ(texts(text("@dialog\n@esc\n"), {1998}), "CMNT");

  // Without a project, or one that can't be read, it says so and ends.
  const ProgramRun none = run({"a.dxf", "-c", "KOVRA_TEXT", "-c", "@refused @dialog"});
  EXPECT_EQ(none.status, 0) << none.err;
  EXPECT_NE(none.out.find("No project is open."), std::string::npos) << none.out;
  const ProgramRun damaged = run({"a.dxf", "--project", "nowhere", "-c", "KOVRA_TEXT"});
  EXPECT_NE(damaged.status, 0);
}

/// Two drawings, a.dxf and c.dxf, the latter current.
class TextDocumentsTest : public TextDialogTest {
 protected:
  std::string both(const std::string& lines) const {
    for (const char* name : {"a.dxf", "c.dxf"}) write(name, sheet());
    const ProgramRun result =
        runScript("KOVRA_TEXT\n" + lines, {"a.dxf", "c.dxf", "-p", "p", "--save"});
    EXPECT_EQ(result.status, 0) << lines << result.err;
    return result.out;
  }
  /// Whether a drawing has a text with this value.
  bool has(const std::string& name, const std::string& value) const {
    const std::string rows = run({"list", name, "--format", "csv"}).out;
    return rows.find("," + value + ",") != std::string::npos;
  }
};

TEST_F(TextDocumentsTest, ASecondStartLeavesTheRunningCommandAlone) {
  write("p/KovrCad.prm", "[TEXT]\nLAYER_CNT=1\nLAYER1=WIRENO\n");
  const std::string out = both(
      "@type 1987 4\n@choose 1998 #0\n@choose 1993 Right\nK1\n@move 3,3\n"
      "@activate a.dxf\nKOVRA_TEXT\nKOVRA_TEXT\n@activate c.dxf\n@dialog\n"
      "@point 7,7\n@choose 1998 #1\nK2\n@click 1994\n@pick 62\n8,8\n@esc\n@refused @dialog\n");
  const std::string running = "The Text command is already running.";
  EXPECT_NE(out.find(running), out.rfind(running)) << out;
  EXPECT_EQ(texts(out, {1998, 1987, 1993}), "WIRENO 4 Right");
  const std::string rows = run({"list", "c.dxf", "--format", "csv"}).out;
  EXPECT_NE(rows.find("K1,WIRENO,STANDARD,16,1,0,R,7,7"), std::string::npos) << rows;
  EXPECT_NE(rows.find("K2,0,STANDARD,16,1,0,ML,8,8"), std::string::npos) << rows;
  EXPECT_FALSE(has("a.dxf", "K1"));
  EXPECT_NE(texts(text("@dialog\n@esc\n"), {1987, 1993}).find("4 Middle left"), std::string::npos);
}

TEST_F(TextDocumentsTest, TheDialogStaysWithItsDrawing) {
  const std::string mend = "@activate c.dxf\nK1\n1,1\n@esc\n";
  const struct {
    std::string lines;
    std::string height;  ///< that the dialog showed last
    bool placed = true;
  } cases[] = {
      // Another drawing comes to the front, or one is closed: what isn't accepted is dropped.
      {"@type 1987 4\n@activate a.dxf\n@dialog\n" + mend, "1.5"},
      {"@activate a.dxf\n@type 1987 4\n@closedrawing\n@dialog\nK1\n1,1\n@esc\n", "1.5"},
      {"@activate a.dxf\n@choose 1987 3.0\n@dialog\n" + mend, "3.0"},
      // Values are offered, and taken from texts, in the command's drawing alone.
      {"K1\n@esc\n@activate a.dxf\n@move 5,5\nMOVE\n@pick 60\n\n0,0\n0,0\n@activate c.dxf\n"
       "@move 5,5\n@dialog\n\n1,1\n@esc\n",
       "1.5"},
      // Requests go to the drawing in front, where nobody waits for them.
      {"@activate a.dxf\n@refused @click 1988\n@refused @close\n@dialog\n" + mend, "1.5"},
      // The command ends with its drawing, whatever it asks for.
      {"@dialog\n@closedrawing\n@refused @dialog\n", "1.5", false},
      {"K1\n@dialog\n@closedrawing\n@refused @dialog\n", "1.5", false},
      {"K1\n@click 1988\n@dialog\n@closedrawing\n@refused @dialog\n", "1.5", false},
      {"@keys \"K1\"\n@dialog\n@closedrawing\nKOVRA_TEXT\n@esc\n", "1.5", false},
  };
  for (const auto& row : cases) {
    forget();
    EXPECT_EQ(texts(both(row.lines), {1987}), row.height) << row.lines;
    EXPECT_EQ(has("c.dxf", "K1"), row.placed) << row.lines;
  }
}

TEST_F(TextDocumentsTest, AnotherProjectUnderTheRunningCommand) {
  write("new/project.ini", "[Project]\nDataVersion=12.0\n");
  const std::string toNew = "K1\n@project new\n1,1\nK2\n@click 1995\n@pick 62\n";
  // The run goes on as it began; the next start is the newer command's.
  const std::string out =
      both(toNew + "2,2\n@esc\nKOVRA_TEXT\n@type 1937 K3\n@click 1\n@point 3,3\n@dialog\n");
  EXPECT_NE(out.find("template 534"), std::string::npos) << out;
  for (const char* value : {"K1", "K2", "K3"}) EXPECT_TRUE(has("c.dxf", value)) << value;
  // Both dialogs at once: what the newer one does ends the run in the same drawing.
  both(toNew + "@activate a.dxf\nKOVRA_TEXT\n@use 534\n@type 1937 K4\n@click 1\n@point 4,4\n" +
       "@close\n@activate c.dxf\n@use 523\n2,2\n@esc\n@refused @dialog\n");
  EXPECT_TRUE(has("a.dxf", "K4") && has("c.dxf", "K2"));
  // What only the newer dialog knows isn't lost.
  forget();
  project("12.0");
  text("@type 2002 1.75\n@close\n");
  project("6.0");
  text("@project new\n@esc\n");
  project("12.0");
  EXPECT_EQ(texts(text("@dialog\n"), {2002, 1987}), "1.75 2.5");
  // Without any project the run goes on too.
  project("6.0");
  text("@project\nK1\n1,1\n@esc\n");
  EXPECT_EQ(placed(), "K1@1,1");
}

}  // namespace
}  // namespace kovra::test
