// The dialog of the property copy in its three forms: what enables what, what is taken from the
// drawing, what is remembered.
#include "tests/host/text7_run.h"

namespace kovra::test {
namespace {

class PropertyCopyDialogTest : public Text7Run {
 protected:
  PropertyCopyDialogTest() {
    write("a.dxf", drawingWith({{"NAME", "M1"}, {"Cap", "5", "WIRENO", "3.5", "40.0", "60.0"}}));
  }

  /// Carries lines out in the dialog; the transcript with the dialog as it stands then. It is
  /// cancelled.
  std::string dialog(const std::string& lines, const std::string& before = {},
                     const std::string& command = "KOVRA_ATTR_COPY") const {
    return out(before + command + '\n' + lines + "@dialog\n@click 2\n");
  }
  std::string out(const std::string& lines, const std::string& projectFolder = "p") const {
    const ProgramRun result = runScript(lines, {"a.dxf", "-p", projectFolder});
    EXPECT_EQ(result.status, 0) << lines << result.err;
    return result.out;
  }
  /// Whether the box of a control, or of a row of the tags, is checked in the last @dialog.
  static bool checked(const std::string& out, int id, const std::string& row = {}) {
    const std::string line = shown(out, id, true);
    return line.find(row.empty() ? " on" : "(" + row + ")\" on") != std::string::npos;
  }
  static std::string tags(const std::string& out) {
    std::string all;
    if (checked(out, 1984, "NAME")) all += "NAME ";
    if (checked(out, 1984, "SENBAN")) all += "SENBAN ";
    return checked(out, 1973) ? all + "other" : all;
  }
};

TEST_F(PropertyCopyDialogTest, ThreeForms) {
  const struct {
    const char* version;
    const char* command;
    const char* form;
    const char* states;  // alignment, pick of all, scopes, dimension scale
  } cases[] = {
      {"9.0", "KOVRA_ATTR_COPY", "template 530", "none none none none"},
      {"11.0", "KOVRA_ATTR_COPY", "template 533", "off on none none"},
      {"12.0", "KOVRA_ATTR_COPY", "template 535", "off on on off"},
      {"9.0", "KOVRA_ATTR_COPY_ALL", "template 535", "off on on off"},
  };
  for (const auto& each : cases) {
    forget();
    project(each.version);
    const std::string out = dialog({}, {}, each.command);
    EXPECT_NE(out.find(each.form), std::string::npos) << each.version;
    EXPECT_EQ(states(out, {1982, 1958, 2013, 2014}), each.states) << each.version;
  }
  // The first form is remembered, the one that is asked for isn't.
  project("9.0");
  write("p12/project.ini", "[Project]\nDataVersion=12.0\n");
  const std::string twice =
      out("KOVRA_ATTR_COPY_ALL\n@click 2\nKOVRA_ATTR_COPY\n@click 2\n@project p12\n"
          "KOVRA_ATTR_COPY\n@dialog\n@click 2\n@reload\n");
  EXPECT_NE(twice.find("template 530"), std::string::npos);
}

TEST_F(PropertyCopyDialogTest, WhatEnablesWhat) {
  const std::string height = "@check 1968 on\n";
  const struct {
    std::string lines;
    const char* states;  // OK, tag list, other tags, tag pick, dimension scale, height, its pick
  } cases[] = {
      {"", "off on off off off off off"},
      {height, "on on off off on on on"},
      {height + "@check 1968 off\n", "off on off off off off off"},
      {height + "@type 1979 \"\"\n", "off on off off on on on"},
      // The edit looks at its own field alone; the next click at everything.
      {height + "@type 1979 \"\"\n@check 1969 on\n@type 1980 2\n", "on on off off on on on"},
      {height + "@type 1979 \"\"\n@check 1969 on\n@type 1980 2\n@click 1971\n",
       "off on off off on on on"},
      {height + "@type 1979 \"\"\n@choose 1979 #1\n", "on on off off on on on"},
      {"@check 1967 on\n", "off on off off off off off"},  // a layer has no first value
      {"@check 1967 on\n@choose 1978 #2\n", "on on off off off off off"},
      {"@check 1971 on\n", "on on off off off off off"},
      {height + "@check 1973 on\n", "off off on on on on on"},
      {height + "@check 1973 on\n@type 1931 \" \"\n", "off off on on on on on"},
      {height + "@check 1973 on\n@type 1931 CAP\n", "on off on on on on on"},
      {height + "@check 1973 on\n@type 1931 CAP\n@check 1973 off\n", "on on off off on on on"},
  };
  for (const auto& each : cases) {
    forget();
    const std::string out = dialog(each.lines);
    EXPECT_EQ(states(out, {1, 1984, 1931, 1960, 2014, 1979, 1954}), each.states) << each.lines;
  }
}

TEST_F(PropertyCopyDialogTest, OneRowOfTheTagsIsChecked) {
  EXPECT_EQ(tags(dialog({})), "NAME ");
  EXPECT_EQ(tags(dialog("@check 1984 1 on\n")), "SENBAN ");
  EXPECT_EQ(tags(dialog("@check 1984 1 off\n")), "SENBAN ");
  EXPECT_EQ(tags(dialog("@check 1984 0 on\n@check 1973 on\n")), "NAME other");
}

TEST_F(PropertyCopyDialogTest, TagsComeFromAttributes) {
  const std::string pick = "@check 1973 on\n@click 1960\n";
  const std::string wrong = "wrong kind";
  const std::string listed = "already in the list";
  const struct {
    std::string lines;
    const char* tags;
    std::string says;
  } cases[] = {
      {pick + "@pick 100\n", "NAME", ""},
      {"@check 1973 on\n@type 1931 name\n@click 1960\n@pick 101\n", "NAME,Cap", ""},
      {"@check 1973 on\n@type 1931 a,CAP\n@click 1960\n@pick 101\n@pick 100\n", "A,CAP,NAME",
       listed},
      {"@check 1973 on\n@type 1931 caps\n@click 1960\n@pick 101\n", "CAPS,Cap", ""},
      {"@check 1973 on\n@type 1931 x\n@click 1960\n@esc\n", "x", ""},
      {"@check 1973 on\n@type 1931 x\n@click 1960\n@pick 900,900\n", "x", ""},
  };
  for (const auto& each : cases) {
    forget();
    const std::string out = dialog(each.lines);
    EXPECT_EQ(shown(out, 1931), quoted(each.tags)) << each.lines;
    EXPECT_NE(out.find(each.says), std::string::npos) << each.lines;
  }
  write("a.dxf", textDrawing());
  EXPECT_NE(dialog(pick + "@pick 60\n@esc\n").find(wrong), std::string::npos);
}

TEST_F(PropertyCopyDialogTest, ValuesComeFromTextsAndAttributes) {
  const std::string turned = "-KOVRA_ATTR_COPY\nCAP /W 0.75 /A 270 /J TR\n";
  const struct {
    const char* version;
    std::string lines;
    const char* values;  // of layer, height, width factor, rotation, alignment
  } cases[] = {
      {"12.0", "@click 1958\n@pick 101\n", "\"WIRENO\" \"3.5\" \"0.75\" \"270\" \"Top right\""},
      {"12.0", "@check 1968 on\n@click 1954\n@pick 101\n", "\"\" \"3.5\" \"1\" \"0\" \"Left\""},
      {"12.0", "@check 1971 on\n@click 1957\n@pick 101\n",
       "\"\" \"0.2\" \"1\" \"0\" \"Top right\""},
      {"12.0", "@click 1958\n@pick 100\n", "\"0\" \"2.5\" \"1\" \"0\" \"Left\""},
      {"12.0", "@click 1958\n@esc\n", "\"\" \"0.2\" \"1\" \"0\" \"Left\""},
      {"9.0", "@click 1957\n@pick 101\n", "\"WIRENO\" \"3.5\" \"0.75\" \"270\" none"},
  };
  for (const auto& each : cases) {
    forget();
    project(each.version);
    const std::string out = dialog(each.lines, turned);
    EXPECT_EQ(texts(out, {1978, 1979, 1980, 1981, 1982}), each.values) << each.lines;
  }
  // An attribute definition is refused, and the pick goes on.
  forget();
  write("a.dxf",
        drawing("0\nATTDEF\n5\n70\n8\n0\n10\n0.0\n20\n0.0\n40\n2.0\n1\nV\n2\nNAME\n70\n0\n"));
  const std::string refused = dialog("@click 1957\n@pick 70\n@esc\n");
  EXPECT_NE(refused.find("wrong kind"), std::string::npos);
}

TEST_F(PropertyCopyDialogTest, WhatIsShownIsStoredAlsoByCancel) {
  const std::string work =
      "@check 1984 1 on\n@check 1973 on\n@type 1931 \"CAP, SHEET\"\n@check 1967 on\n@type 1978 "
      "MINE\n"
      "@check 1968 on\n@type 1979 7.500\n@check 1971 on\n@choose 1982 #8\n@check 2014 off\n@choose "
      "2013 #3\n@place "
      "30 40\n";
  const std::string values = "\"CAP, SHEET\" \"MINE\" \"7.5\" \"1\" \"0\" \"Middle center\"";
  for (const std::string end :
       {"@click 2\n", "@close\n", "@esc\n", "@choose 2013 #1\n@click 1\n"}) {
    forget();
    out("KOVRA_ATTR_COPY\n" + work + end);
    const std::string back = dialog({});
    EXPECT_EQ(texts(back, {1931, 1978, 1979, 1980, 1981, 1982}), values) << end;
    EXPECT_EQ(tags(back), "SENBAN other") << end;
    EXPECT_TRUE(checked(back, 1967) && checked(back, 1968) && !checked(back, 1969)) << end;
    EXPECT_FALSE(checked(back, 2014)) << end;
    EXPECT_NE(back.find(" at 30 40 "), std::string::npos) << end;
  }
  // Another form reads what it has, and leaves the rest.
  out("KOVRA_ATTR_COPY\n@choose 2013 #3\n@click 2\n");
  project("9.0");
  const std::string old = dialog("@check 1969 on\n");
  EXPECT_EQ(texts(old, {1931, 1978, 1979, 1980, 1981, 1982}),
            "\"CAP, SHEET\" \"MINE\" \"7.5\" \"1\" \"0\" none");
  EXPECT_TRUE(checked(old, 1975)) << "a wider scope falls back to the drawing";
  project("12.0");
  EXPECT_EQ(shown(dialog({}), 1982), "\"Middle center\"");
  EXPECT_FALSE(checked(dialog({}), 2014));
}

TEST_F(PropertyCopyDialogTest, ScopesFollowTheProject) {
  out("KOVRA_ATTR_COPY\n@choose 2013 #3\n@click 2\n");
  const std::string outside = out("@project\nKOVRA_ATTR_COPY_ALL\n@dialog\n@click 2\n");
  EXPECT_EQ(shown(outside, 2013), "\"Current drawing\"");
  EXPECT_EQ(outside.find("All drawings"), std::string::npos);
  project("12.0", "[Preset]\n1=a.dxf\n");
  const std::string preset = dialog({});
  EXPECT_EQ(shown(preset, 2013), "\"Selected drawings\"");
  EXPECT_EQ(states(preset, {2013}), "off");
}

TEST_F(PropertyCopyDialogTest, TheHeightBeginsWithThatOfTheDrawing) {
  EXPECT_EQ(shown(dialog({}, "TEXTSIZE\n3.5\n"), 1979), "\"3.5\"");
  EXPECT_EQ(shown(dialog({}, "TEXTSIZE\n9\n"), 1979), "\"3.5\"") << "it is remembered now";
}

}  // namespace
}  // namespace kovra::test
