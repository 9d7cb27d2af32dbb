// The text dialog of data version 7.00 and later: which entries it takes, what it shows, what it
// remembers, and what becomes of it when drawings and projects change.
#include "tests/host/text7_run.h"

namespace kovra::test {
namespace {

constexpr int kOk = 1;

using Text7DialogTest = Text7Run;

TEST_F(Text7DialogTest, WhatOkNeeds) {
  const std::string value = "@type 1937 X\n";
  const std::string array = "@click 1976\n@click 1962\n@type 1931 X\n";
  const std::string counted = "@click 1975\n@check 1967 on\n";
  const struct {
    std::string lines;
    bool ok;
  } cases[] = {
      {"", false},
      {value, true},
      {"@type 1937 \"  \\n \"\n", false},
      {value + "@type 1987 0.0001\n", false},
      {value + "@type 1987 0.00011\n", true},
      {value + "@type 1987 \"\"\n", false},
      {value + "@type 1989 -1\n", false},
      {value + "@type 1989 x\n", false},
      {value + "@type 1991 \"\"\n", false},
      {value + "@type 1998 \"\"\n", false},
      {value + "@type 1985 \"\"\n@type 1937 Y\n", false},
      {value + "@type 2002 0\n", true},
      // Several lines, and one with a line break behind it, need a distance.
      {"@type 1937 \"X\\nY\"\n@type 2002 0\n", false},
      {"@type 1937 \"X\\n\"\n@type 2002 \"\"\n", false},
      {"@type 1937 \"X\\n\"\n@type 2002 2\n", true},
      // Rows and columns and their distances, as far as the direction uses them.
      {array, true},
      {array + "@type 1939 0\n", false},
      {array + "@type 1939 0.0001\n", false},
      {array + "@type 1939 -0.5\n", true},
      {array + "@type 1938 1\n@type 1939 0\n", true},
      {array + "@type 1938 0\n", false},
      {array + "@type 1940 \"\"\n", false},
      {array + "@type 1941 0\n@click 1960\n", true},
      {array + "@type 1938 0\n@click 1961\n", true},
      {array + "@type 1938 0\n@click 1975\n", true},
      // The number and its step, while they count.
      {counted, false},
      {counted + "@type 1932 A\n@type 1934 B\n", false},
      {counted + "@type 1933 1\n", true},
      {counted + "@type 1933 1\n@type 1935 0\n", false},
      {counted + "@type 1933 1\n@type 1935 0\n@check 1967 off\n@type 1931 X\n", true},
      {counted + "@type 1933 1\n@type 1935 0\n@click 1974\n@type 1937 X\n", true},
      {counted + "@type 1933 1\n@type 1935 -\n", false},
      {counted + "@type 1933 1\n@type 1935 -3\n", true},
  };
  for (const auto& row : cases) {
    forget();
    const std::string out = text(row.lines + "@dialog\n");
    EXPECT_EQ(states(out, {kOk}), row.ok ? "on" : "off") << row.lines;
  }
}

TEST_F(Text7DialogTest, LocksDecideByTheListedLayerElseByTheCurrentOne) {
  write("p/KovrCad.prm", "[TEXT]\nLAYER_CNT=3\nLAYER1=0\nLAYER2=WIRENO\nLAYER3=LOCKED\n");
  write("a.dxf", textDrawing());
  const std::string currentLocked = "CLAYER\nWIRENO\n-LAYER\nLO\nWIRENO\n\n";
  const struct {
    std::string before;
    std::string lines;
    bool ok;
  } cases[] = {
      {"", "@choose 1998 LOCKED\n", false},
      {"", "@choose 1998 WIRENO\n", true},
      {"", "@type 1998 locked\n", false},
      {"", "@type 1998 LOCKED-NOT\n", true},
      {currentLocked, "@choose 1998 0\n", true},
      {currentLocked, "@choose 1998 WIRENO\n", false},
      {currentLocked, "@choose 1998 #3\n", false},
      {currentLocked, "@type 1998 OTHER\n", false},
      {"", "@choose 1998 LOCKED\n@choose 1998 #3\n", true},
  };
  for (const auto& row : cases) {
    const std::string out = text("@type 1937 X\n" + row.lines + "@dialog\n", row.before);
    EXPECT_EQ(states(out, {kOk}), row.ok ? "on" : "off") << row.before << row.lines;
    forget();
  }
}

TEST_F(Text7DialogTest, EachDataVersionBringsItsControls) {
  const std::vector<int> ids = {1931, 1936, 1937, 2002, 2009, 2004, 1977, 4514};
  const std::string key = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Brindlux\\Parameters\\BypassVerChk]\n";
  write("on.reg",
        "Windows Registry Editor Version 5.00\n\n" + key + "\"adoptTextStyle\"=dword:1\n");
  write("off.reg",
        "Windows Registry Editor Version 5.00\n\n" + key + "\"adoptTextStyle\"=dword:0\n");
  const std::string mode = "@click 1975\n@check 1967 on\n@dialog\n";
  const struct {
    std::string version;
    std::vector<std::string> options;
    std::string form;
    std::string single;
    std::string counted;
  } cases[] = {
      {"7.00",
       {},
       "529",
       "on none none none none none none none",
       "-off none none none none none none none"},
      {"9.99",
       {},
       "529",
       "on none none none none none none none",
       "-off none none none none none none none"},
      {"10.0",
       {},
       "532",
       "on -off none none none none -off none",
       "-off off none none none none on none"},
      {"12.0", {}, "534", "-off -off on on on on -off none", "-off off -off -off -off on on none"},
      {"15.0", {}, "1641", "-off -off on on on on -off on", "-off off -off -off -off on on on"},
      {"12.0",
       {"--registry", "off.reg"},
       "534",
       "-off -off on on on on -off none",
       "-off off -off -off -off on on none"},
      {"12.0",
       {"--registry", "on.reg"},
       "1641",
       "-off -off on on on on -off on",
       "-off off -off -off -off on on on"},
      {"7.00",
       {"--registry", "on.reg"},
       "1641",
       "on -off -off -off -off on -off on",
       "-off -off -off -off -off on -off on"},
  };
  for (const auto& row : cases) {
    forget();
    project(row.version);
    const std::string out = text("@dialog\n", "", row.options);
    EXPECT_NE(out.find(" template " + row.form + ' '), std::string::npos) << row.version << out;
    EXPECT_EQ(states(out, ids), row.single) << row.version;
    EXPECT_EQ(states(text(mode, "", row.options), ids), row.counted) << row.version;
  }
}

TEST_F(Text7DialogTest, TheStepInDecimalAndInTheRadix) {
  const std::string hex = "@choose 1978 Hexadecimal\n";
  const struct {
    std::string lines;
    std::string decimal;
    std::string radix;
    std::string states;  ///< of 1977, 2003, 1935, 1936
  } cases[] = {
      {"", "1", "1", "on off on off"},
      {hex + "@type 1935 -31\n", "-31", "-1F", "on on on off"},
      {hex + "@click 2003\n@type 1936 -1F\n", "-31", "-1F", "on on off on"},
      {hex + "@click 2003\n@type 1936 1x2gF\n", "303", "12F", "on on off on"},
      {hex + "@click 2003\n@type 1936 -\n", "", "-", "on on off on"},
      {"@choose 1978 #0\n@type 1935 9\n", "9", "11", "on on on off"},
      {hex + "@click 2003\n@type 1936 A\n@choose 1978 #1\n", "10", "10", "on off on off"},
      {"@type 1935 5\n@choose 1978 #4\n", "5", "", "on off on off"},
      {hex + "@type 1935 5\n@choose 1978 #6\n@choose 1978 #2\n", "5", "5", "on on on off"},
      {"@type 1935 1a2\n", "12", "12", "on off on off"},
  };
  for (const auto& row : cases) {
    forget();
    const std::string out = text("@click 1975\n@check 1967 on\n" + row.lines + "@dialog\n");
    EXPECT_EQ(shown(out, 1935), quoted(row.decimal)) << row.lines;
    EXPECT_EQ(shown(out, 1936), quoted(row.radix)) << row.lines;
    EXPECT_EQ(states(out, {1977, 2003, 1935, 1936}), row.states) << row.lines;
  }
}

TEST_F(Text7DialogTest, DistancesAreCutAtTheFirstStrangeCharacterWhenTheyAreLeft) {
  for (const auto& [typed, left] :
       {std::pair{"2.5mm", "2.5"}, {"1,5", "1"}, {"-1e1", "-1e1"}, {"abc", ""}}) {
    forget();
    const std::string out = text("@click 1976\n@click 1962\n@type 1931 X\n@type 1939 " +
                                 std::string(typed) + "\n@focus 1941\n@dialog\n");
    EXPECT_EQ(shown(out, 1939), quoted(left)) << typed;
    EXPECT_EQ(states(out, {kOk}), *left != 0 ? "on" : "off") << typed;
  }
}

TEST_F(Text7DialogTest, StylesGiveHeightAndWidth) {
  project("15.0");
  const std::string styles =
      "-STYLE\nTHREE\ntxt\n3\n0.5\n0\nN\nN\nN\n-STYLE\nFIVE\ntxt\n5\n1\n0\nN\nN\nN\n"
      "-STYLE\nUPRIGHT\ntxt\n0\n1\n0\nN\nN\nY\nTEXTSTYLE\nSTANDARD\n";
  const std::string typed = "@type 1937 X\n@type 1987 2.50\n@type 1989 0.8\n";
  const struct {
    std::string lines;
    std::string height;
    std::string width;
    std::string states;  ///< of both fields and their pick buttons
  } cases[] = {
      {"", "2.50", "0.8", "on on on on"},
      {"@choose 1985 THREE\n", "3", "0.8", "off off on on"},
      {"@type 1985 three\n@focus 1937\n@type 1937 Y\n", "3", "0.8", "off off on on"},
      {"@check 4514 on\n", "2.50", "1", "on on off off"},
      {"@check 4514 on\n@choose 1985 THREE\n", "3", "0.5", "off off off off"},
      {"@choose 1985 THREE\n@check 4514 on\n@choose 1985 FIVE\n", "5", "1", "off off off off"},
      {"@choose 1985 THREE\n@check 4514 on\n@choose 1985 STANDARD\n", "2.50", "1", "on on off off"},
      {"@choose 1985 THREE\n@check 4514 on\n@check 4514 off\n", "3", "0.8", "off off on on"},
      {"@choose 1985 THREE\n@choose 1985 FIVE\n@choose 1985 UPRIGHT\n", "2.50", "0.8",
       "on on on on"},
      {"@type 1987 \"\"\n@choose 1985 THREE\n@choose 1985 STANDARD\n", "3", "0.8", "on on on on"},
  };
  for (const auto& row : cases) {
    forget();
    const std::string out = text(typed + row.lines + "@dialog\n", styles);
    EXPECT_EQ(shown(out, 1987), quoted(row.height)) << row.lines;
    EXPECT_EQ(shown(out, 1989), quoted(row.width)) << row.lines;
    EXPECT_EQ(states(out, {1987, 1988, 1989, 1990}), row.states) << row.lines;
  }
  // The style's values are placed, the user's come back the next time.
  forget();
  text(typed + "@choose 1985 THREE\n@check 4514 on\n@click 1\n@point 0,0\n@close\n", styles);
  EXPECT_EQ(placed({6, 7, 8}), "THREE,3,0.5");
  const std::string again =
      text("@dialog\n@choose 1985 STANDARD\n@check 4514 off\n@dialog\n", styles);
  EXPECT_NE(again.find("1987 combo disabled visible \"3\""), std::string::npos) << again;
  EXPECT_EQ(shown(again, 1987) + shown(again, 1989), "\"2.5\"\"0.8\"");
  // A style that the next drawing lacks.
  EXPECT_EQ(shown(text("@dialog\n"), 1985), "\"Standard\"");
  // Vertical styles take the first four attachments only.
  const std::string upright = typed + "@choose 1985 UPRIGHT\n@choose 1993 ";
  EXPECT_NE(text(upright + "#4\n@click 1\n@dialog\n", styles).find("ertical"), std::string::npos);
  EXPECT_EQ(placed(), "");
  text(upright + "#3\n@click 1\n@point 0,0\n", styles);
  EXPECT_EQ(placed({10}), "M");
}

TEST_F(Text7DialogTest, TheValueHasTheFocusAndIsTypedOver) {
  const std::string one = "@click 1\n@point 0,0\n";
  const std::string some = "@click 1\n@point 0,0\n@esc\n";
  const struct {
    std::string lines;
    int id;
  } cases[] = {
      {"", 1937},
      {"@type 1937 X\n" + one, 1937},
      {"@click 1975\n@type 1931 X\n" + some, 1931},
      {"@click 1975\n@check 1967 on\n@type 1933 1\n" + some, 1933},
      {"@click 1975\n@check 1967 on\n@type 1933 1\n@click 1\n@esc\n", 1933},
      {"@type 1937 X\n@click 1999\n@pick 60\n", 1937},
  };
  write("a.dxf", textDrawing());
  for (const auto& row : cases) {
    forget();
    const std::string out = text(row.lines + "@keys \"7\"\n@dialog\n");
    EXPECT_EQ(shown(out, row.id),
              row.lines.find("1999") != std::string::npos ? "\"XX0017\"" : "\"7\"")
        << row.lines;
    EXPECT_TRUE(shown(out, row.id, true).ends_with(" focus")) << row.lines;
  }
  forget();
  // It keeps the focus while the cursor passes over the drawing; Enter is OK, if OK may be pressed.
  const std::string out = text(
      "@focus 1987\n@move 1,1\n@dialog\n@key 1987 Enter\n@refused @point 9,9\n"
      "@type 1937 X\n@key 1987 Enter\n@point 0,0\n");
  EXPECT_TRUE(shown(out, 1987, true).ends_with(" focus")) << out;
  EXPECT_EQ(placed(), "X@0,0");
}

/// Further tests: what stays from one run to the next.
class Text7MemoryTest : public Text7DialogTest {
 protected:
  static std::string place(const std::string& out) {
    const std::size_t start = out.rfind("\" template ");
    return out.substr(start + 11, out.find('\n', start) - start - 11);
  }
  const std::string array_ =
      "@click 1976\n@check 1967 on\n@choose 1978 #2\n@click 2003\n@type 1936 1f\n@click 1963\n"
      "@type 1932 \"P \"\n@type 1933 10\n@type 1934 S\n@type 1938 7\n@type 1939 -2.50\n"
      "@type 1940 3\n@type 1941 12\n@place 30 40\n";
  const std::vector<int> fields_ = {1932, 1933, 1934, 1935, 1936, 1938, 1939, 1940, 1941, 1978};
};

TEST_F(Text7MemoryTest, TheFirstDay) {
  const std::string out = text("@dialog\n");
  EXPECT_EQ(texts(out, {1931, 1937, 1998, 1985, 1987, 1989, 1991, 1993, 2002}),
            R"("" "" "CMNT" "Standard" "2.5" "1" "0" "Left" "1.2")");
  EXPECT_EQ(texts(out, fields_), R"("" "" "" "1" "1" "4" "1" "4" "1" "Decimal")");
  EXPECT_EQ(states(out, {1967, 1952, 1}), "off -off off");
}

TEST_F(Text7MemoryTest, AllEntriesComeBackHoweverTheDialogEnded) {
  for (const char* end :
       {"@close\n", "@click 2\n", "@esc\n", "", "@closedrawing\n", "@open c.dxf\n",
        "@click 1\n@move 1,1\n@esc\n", "@click 1\n@open c.dxf\n@closedrawing\n"}) {
    forget();
    write("a.dxf", textDrawing());
    write("c.dxf", textDrawing());
    const std::string lines =
        "KOVRA_TEXT\n@choose 1998 AUX\n@type 1987 4.25\n@choose 1989 0.9\n"
        "@choose 1991 90.0\n@choose 1993 #8\n" +
        array_ + end;
    EXPECT_EQ(runScript(lines, {"a.dxf", "-p", "p"}).err, "") << end;
    const std::string out = text("@dialog\n");
    EXPECT_EQ(texts(out, fields_), R"("P " "10" "S" "31" "1F" "7" "-2.5" "3" "12" "Hexadecimal")")
        << end;
    EXPECT_EQ(texts(out, {1998, 1987, 1989, 1991, 1993, 2002}),
              R"("AUX" "4.25" "0.9" "90" "Middle center" "1.2")")
        << end;
    EXPECT_EQ(place(out), "534 at 30 40 size 427 553") << end;
    EXPECT_EQ(states(out, {1967, 1952, 1935, 1936, 1}), "on on off on on") << end;
  }
}

TEST_F(Text7MemoryTest, WhatIsShownForOddEntries) {
  const struct {
    std::string lines;
    int id;
    std::string shown;
  } cases[] = {
      {"@type 1991 -90\n", 1991, "0"},
      {"@type 1991 270.5\n", 1991, "270.5"},
      {"@type 1987 0\n", 1987, "2.50"},
      {"@type 1989 x\n", 1989, "1"},
      {"@type 2002 0\n", 2002, "1.2"},
      {"@type 1987 2.49995\n", 1987, "2.50"},
      {"@type 1998 \"\"\n", 1998, "CMNT"},
      {"@type 1998 \"L 1 \"\n", 1998, "L 1 "},
      {"@choose 1998 #1\n", 1998, "<Current layer>"},
      {"@click 1976\n@type 1939 x\n", 1939, "0"},
      {"@type 1937 \"  A\\n\\n B \"\n", 1937, "  A\\n\\n B "},
  };
  write("p/KovrCad.prm", "[TEXT]\nLAYER_CNT=1\nTEXT_H_CNT=2\nTEXT_H1=2.50\nTEXT_H2=2.5\n");
  for (const auto& row : cases) {
    forget();
    text(row.lines + "@close\n");
    EXPECT_EQ(shown(text("@dialog\n"), row.id), quoted(row.shown)) << row.lines;
  }
  // The current layer is the current layer in the other language too.
  text("@choose 1998 #1\n@close\n", "", {"--language", "ja"});
  EXPECT_EQ(shown(text("@dialog\n"), 1998), "\"<Current layer>\"");
}

TEST_F(Text7MemoryTest, StoresOfOtherDataVersions) {
  for (const auto& [former, now] :
       {std::pair{"7.00", "15.0"}, {"15.0", "7.00"}, {"10.0", "12.0"}, {"12.0", "10.0"}}) {
    forget();
    project(former);
    text(
        "@click 1975\n@check 1967 on\n@choose 1978 #0\n@type 1932 P\n@type 1933 7\n@type 1935 "
        "9\n@type 1987 4.25\n@close\n");
    project(now);
    const std::string out = text("@dialog\n");
    EXPECT_EQ(texts(out, {1932, 1933, 1935, 1987, 1978}), R"("P" "7" "9" "4.25" "Octal")") << now;
    EXPECT_EQ(states(out, {1967, 1932, 1}), "on on on") << now;
  }
  // What one version doesn't know, it leaves in the store.
  forget();
  project("15.0");
  text("@type 1937 \"A\\nB\"\n@choose 2002 2.0\n@place 5 6 427 500\n@check 4514 on\n@close\n");
  project("7.00");
  text("@type 1931 X\n@close\n");
  project("15.0");
  const std::string out = text("@dialog\n");
  EXPECT_EQ(texts(out, {1937, 2002}), R"("A\nB" "2")");
  EXPECT_EQ(place(out), "1641 at 5 6 size 427 500");
  EXPECT_NE(shown(out, 4514, true).find("visible on "), std::string::npos) << out;
}

TEST_F(Text7MemoryTest, WindowSizesOfTheModes) {
  const std::string several = "@type 1937 \"A\\nB\"\n";
  const struct {
    std::string lines;
    std::string place;
  } cases[] = {
      {"", "427 412"},
      {"@click 1975\n", "427 412"},
      {"@click 1976\n", "427 553"},
      {"@click 1976\n@click 1975\n", "427 412"},
      {"@click 1976\n@click 1974\n", "427 412"},
      // Only the single mode can be stretched, and only in height; its height comes back.
      {"@place 3 26 600 500\n", "427 500"},
      {"@place 3 26 100 100\n", "427 412"},
      {"@place 3 26 427 500\n@click 1975\n", "427 412"},
      {"@place 3 26 427 500\n@click 1976\n", "427 553"},
      {"@place 3 26 427 500\n@click 1975\n@click 1976\n@click 1974\n", "427 500"},
      {"@click 1975\n@place 3 26 500 500\n", "427 412"},
      {"@click 1976\n@place 3 26 500 400\n", "427 553"},
      {"@place 3 26 427 480\n@click 1976\n@close\nKOVRA_TEXT\n@click 1974\n", "427 480"},
      {"@place 3 26 427 480\n@close\nKOVRA_TEXT\n", "427 480"},
      // Hidden, shown and refused on the way.
      {"@place 3 26 427 480\n@type 1937 X\n@click 1\n@point 0,0\n@click 1\n@esc\n", "427 480"},
  };
  for (const auto& row : cases) {
    forget();
    EXPECT_EQ(place(text(row.lines + "@dialog\n")), "534 at 3 26 size " + row.place) << row.lines;
  }
  // Older forms have no frame that could be stretched.
  project("10.0");
  forget();
  const std::string out =
      text("@click 1976\n@dialog\n@click 1974\n@dialog\n@click 1975\n@dialog\n");
  EXPECT_EQ(states(out, {1952, 1938, 1960}), "-off -off -off");
}

TEST_F(Text7MemoryTest, ListsOfTheParameterFile) {
  const std::string builtIn =
      R"("CMNT" "JCMNT" "ECMNT" "NEWJIS" "OLDJIS" "SYMBOL" "AUX" "<Current layer>")";
  const struct {
    const char* file;  ///< null: none
    std::string layers;
    std::string heights;
  } cases[] = {
      {nullptr, builtIn, R"("1.5" "2.0" "2.5" "3.0" "3.5" "4.0" "4.5" "5.0")"},
      {"[TEXT]\n", builtIn, R"("1.5" "2.0" "2.5" "3.0" "3.5" "4.0" "4.5" "5.0")"},
      {"\x01\xff[TEXT\nLAYER_CNT", builtIn, R"("1.5" "2.0" "2.5" "3.0" "3.5" "4.0" "4.5" "5.0")"},
      {"[OTHER]\nLAYER_CNT=1\n", builtIn, R"("1.5" "2.0" "2.5" "3.0" "3.5" "4.0" "4.5" "5.0")"},
      {"[text]\nlayer_cnt=0\nTEXT_H_CNT=10\ntext_h1=9\n", R"("<Current layer>")",
       R"("9" "2.0" "2.5" "3.0" "3.5" "4.0" "4.5" "5.0")"},
      {"[TEXT]\nLAYER_CNT=2\nLAYER1=\nLAYER2=L 2 \nTEXT_H_CNT=many\n",
       R"("CMNT" "L 2" "<Current layer>")", ""},
      {"[TEXT]\nLAYER_CNT=2\nLAYER2=AUX\nTEXT_H_CNT=2\nTEXT_H2=7.0\n",
       R"("CMNT" "AUX" "<Current layer>")", R"("1.5" "7.0")"},
      {"[TEXT]\nLAYER_CNT=-1\nTEXT_H_CNT=2147483647\nTEXT_H9=6\n", R"("<Current layer>")",
       R"("1.5" "2.0" "2.5" "3.0" "3.5" "4.0" "4.5" "5.0" "6")"},
  };
  const auto items = [](const std::string& line) {
    const std::size_t start = line.find(" of ");
    return start == std::string::npos ? "" : line.substr(start + 4);
  };
  for (const auto& row : cases) {
    forget();
    if (row.file != nullptr) write("p/KovrCad.prm", row.file);
    const std::string out = text("@dialog\n");
    const std::string name = row.file != nullptr ? row.file : "none";
    EXPECT_EQ(items(shown(out, 1998, true)), row.layers) << name;
    EXPECT_EQ(items(shown(out, 1987, true)), row.heights) << name;
    EXPECT_EQ(shown(out, 1987), "\"2.5\"") << name;
  }
}

/// Two drawings, a.dxf and c.dxf, the latter current.
class Text7DocumentTest : public Text7DialogTest {
 protected:
  Text7DocumentTest() {
    for (const char* name : {"a.dxf", "c.dxf"}) write(name, textDrawing());
  }
  std::string both(const std::string& lines) const {
    const ProgramRun result =
        runScript("KOVRA_TEXT\n@type 1937 X\n" + lines, {"a.dxf", "c.dxf", "-p", "p", "--save"});
    EXPECT_EQ(result.status, 0) << lines << result.err;
    return result.out;
  }
  std::string valuesOf(const std::string& name) const {
    std::string found;
    const std::string out = run({"list", name, "--format", "csv"}).out;
    for (std::size_t at = out.find(",X,"); at != std::string::npos; at = out.find(",X,", at + 1)) {
      found += 'X';
    }
    return found;
  }
};

TEST_F(Text7DocumentTest, ThatOfAnotherDrawingClosesOrWaits) {
  const std::string waits = "@click 1\n@move 1,1\n@activate a.dxf\n@refused @dialog\n";
  const struct {
    std::string lines;
    std::string inA;
    std::string inC;
  } cases[] = {
      // In sight it closes; the next start of the command opens one for the other drawing.
      {"@activate a.dxf\n@refused @dialog\nKOVRA_TEXT\n@click 1\n@point 0,0\n", "X", ""},
      {"@open a.dxf\n@refused @dialog\n@activate c.dxf\n@refused @dialog\n", "", ""},
      // Hidden during a placement it waits for its drawing.
      {waits + "@activate c.dxf\n@point 0,0\n@dialog\n@click 1\n@point 9,9\n", "", "XX"},
      {waits + "KOVRA_TEXT\n@activate c.dxf\n@esc\n@click 1\n@point 9,9\n", "", "X"},
      {waits + "-LAYER\nN\nNEW\n\n@activate c.dxf\n@point 0,0\n", "", "X"},
      {"@click 1999\n@activate a.dxf\n@refused @dialog\n@activate c.dxf\n@pick 60\n@dialog\n", "",
       ""},
      // Any drawing that is closed closes it, in the middle of a placement too.
      {"@activate a.dxf\n@closedrawing\n@refused @dialog\n", "", ""},
      {waits + "@closedrawing\n@refused @dialog\n@refused @point 0,0\nKOVRA_TEXT\n@click 1\n@point "
               "0,0\n",
       "", "X"},
      {"@click 1\n@closedrawing\n@refused @dialog\nKOVRA_TEXT\n@click 1\n@point 0,0\n", "X", ""},
      {"@click 1974\n@click 1988\n@closedrawing\n@refused @dialog\n", "", ""},
      {"@closedrawing\n@closedrawing\n", "", ""},
  };
  for (const auto& row : cases) {
    forget();
    for (const char* name : {"a.dxf", "c.dxf"}) write(name, textDrawing());
    both(row.lines);
    EXPECT_EQ(valuesOf("a.dxf"), row.inA) << row.lines;
    EXPECT_EQ(valuesOf("c.dxf"), row.inC) << row.lines;
  }
}

TEST_F(Text7DocumentTest, ASecondStartSaysThatItIsOpen) {
  const std::string out = both("KOVRA_TEXT\n@dialog\n@click 1\n@point 0,0\nKOVRA_TEXT\n");
  EXPECT_EQ(shown(out, 1937), "\"X\"");
  EXPECT_NE(out.rfind("already open"), out.find("already open"));
  EXPECT_EQ(valuesOf("c.dxf"), "X");
}

TEST_F(Text7DocumentTest, AnotherProjectUnderTheOpenDialog) {
  write("old/project.ini", "[Project]\nDataVersion=10.0\n");
  // There the value is in another field, which is shown before anything is placed.
  const std::string out = both(
      "@project old\n@click 1\n@dialog\n@refused @click 1\n@type 1931 X\n@click 1\n@point 0,0\n"
      "@project p\n@click 1\n@dialog\n@click 1\n@point 5,5\n");
  EXPECT_NE(out.find("1937 edit disabled hidden \"X\""), std::string::npos) << out;
  EXPECT_EQ(states(out, {1931, 1937, kOk}), "-off on on");
  EXPECT_EQ(valuesOf("c.dxf"), "XX");
}

}  // namespace
}  // namespace kovra::test
