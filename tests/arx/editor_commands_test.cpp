// Built-in commands, typed and run from tokens.
#include <gtest/gtest.h>

#include "platform/arx/database/journal.h"
#include "platform/arx/database/symbol_table.h"
#include "platform/arx/editor/documents/sysvars.h"
#include "platform/arx/editor/editor.h"
#include "platform/arx/geometry/units.h"
#include "platform/arx/lists/entity_lists.h"
#include "platform/win/base/wide_text.h"
#include "tests/arx/editor_user.h"
#include "tests/arx/test_drawing.h"

namespace kovra::arx::test {
namespace {

/// "on thawed unlocked" and so on; "missing".
std::string layerState(AcDbDatabase& database, const wchar_t* name) {
  AcDbLayerTable* table = nullptr;
  AcDbLayerTableRecord* layer = nullptr;
  EXPECT_EQ(database.getSymbolTable(table, AcDb::kForRead), Acad::eOk);
  table->getAt(name, layer, AcDb::kForRead);
  table->close();
  if (layer == nullptr) return "missing";
  std::string state = layer->isOff() ? "off" : "on";
  if (layer->isFrozen()) state += " frozen";
  if (layer->isLocked()) state += " locked";
  layer->close();
  return state;
}

std::string variable(const wchar_t* name) {
  const auto value = readVariable(*acDocManagerPtr()->curDocument(), name);
  return value ? win::toUtf8(variableText(value.value())) : value.error().message;
}

TEST(EditorLayer, OptionsChangeTheTable) {
  struct Case {
    std::vector<Step> steps;
    const wchar_t* layer;
    const char* state;
    const char* current;
    const char* failure = "";
  };
  const Case cases[] = {
      {{"-LAYER", "N", "X1,X2", ""}, L"X2", "on", "\"0\""},
      {{"-layer", "New", "\"with blank\"", ""}, L"with blank", "on", "\"0\""},
      {{"_-LAYER M NEW1 "}, L"new1", "on", "\"NEW1\""},
      {{"-LAYER", "S", "wires", ""}, L"WIRES", "on", "\"WIRES\""},
      {{"-LAYER S HIDDEN  "},
       L"HIDDEN",
       "on frozen",
       "\"0\"",
       "A frozen layer can't be made current."},
      {{"-LAYER S NONE  "}, L"NONE", "missing", "\"0\"", "Cannot find layer \"NONE\"."},
      {{"-LAYER LO W*,O* "}, L"WIRES", "on locked", "\"0\""},
      {{"-LAYER U * "}, L"FRAME", "on", "\"0\""},
      {{"-LAYER F WIRES T HIDDEN "}, L"WIRES", "on frozen", "\"0\""},
      {{"-LAYER T HIDDEN "}, L"HIDDEN", "on", "\"0\""},
      {{"-LAYER F 0 "}, L"0", "on", "\"0\"", "Cannot freeze layer \"0\". It is the CURRENT layer."},
      {{"-LAYER ON OFF "}, L"OFF", "on", "\"0\""},
      {{"-LAYER OFF 0 N "}, L"0", "on", "\"0\""},
      {{"-LAYER OFF 0 Y "}, L"0", "off", "\"0\""},
      {{"-LAYER", "N", "a|b", ""}, L"a|b", "missing", "\"0\"", "Invalid layer name \"a|b\"."},
      {{"-LAYER LO Q* "}, L"0", "on", "\"0\"", "No matching layer names found."},
      {{"-LAYER Q "}, L"0", "on", "\"0\"", "Invalid option keyword."},
  };
  for (const Case& one : cases) {
    EditorUser user;
    const std::string shown = user.run(one.steps);
    SCOPED_TRACE(shown);
    EXPECT_EQ(layerState(user.database(), one.layer), one.state);
    EXPECT_EQ(variable(L"CLAYER"), one.current);
    EXPECT_EQ(user.failure(), one.failure);
    EXPECT_TRUE(acDocManagerPtr()->curDocument()->isQuiescent());
  }
}

TEST(EditorStyle, MakesAndChanges) {
  EditorUser user;
  user.run({"-STYLE", "Gothic", "gothic.ttf", "3.5", "0.8", "-90", "15", "Y", "N"});
  EXPECT_EQ(user.failure(), "Value must be between -85 and 85.");
  EXPECT_EQ(variable(L"TEXTSTYLE"), "\"Gothic\"");
  user.run({"-STYLE standard txt 0 0.9 0 N N Y"});
  AcDbTextStyleTable* table = nullptr;
  ASSERT_EQ(user.database().getSymbolTable(table, AcDb::kForRead), Acad::eOk);
  AcDbTextStyleTableRecord* style = nullptr;
  ASSERT_EQ(table->getAt(L"GOTHIC", style, AcDb::kForRead), Acad::eOk);
  EXPECT_EQ(style->textSize(), 3.5);
  EXPECT_EQ(style->xScale(), 0.8);
  EXPECT_NEAR(style->obliquingAngle(), 15 * 3.14159265358979 / 180, 1e-9);
  style->close();
  ASSERT_EQ(table->getAt(L"Standard", style, AcDb::kForRead), Acad::eOk);
  EXPECT_TRUE(style->isVertical());
  EXPECT_EQ(style->xScale(), 0.9);
  style->close();
  table->close();
  EXPECT_NE(user.bytes().find("gothic.ttf"), std::string::npos);
  // Backwards is 2 in group 71, written before the last used height.
  EXPECT_NE(user.bytes().find("71\n2\n"), std::string::npos);
}

TEST(EditorVariables, TypedValues) {
  struct Case {
    const char* line;
    const wchar_t* name;
    const char* value;
    const char* failure = "";
  };
  const Case cases[] = {
      {"SETVAR TEXTSIZE 3.5", L"TEXTSIZE", "3.5"},
      {"TEXTSIZE 0\n", L"TEXTSIZE", "0.2", "Value must be positive and nonzero."},
      {"_.ORTHOMODE 1", L"ORTHOMODE", "1"},
      {"ORTHOMODE 2\n", L"ORTHOMODE", "0", "Requires a number between 0 and 1."},
      {"CLAYER wires", L"CLAYER", "\"WIRES\""},
      {"CLAYER nowhere\n", L"CLAYER", "\"0\"", "Cannot find layer \"nowhere\"."},
      {"TEXTSTYLE fixed", L"TEXTSTYLE", "\"FIXED\""},
      {"CECOLOR 7", L"CECOLOR", "\"7\""},
      {"CECOLOR red", L"CECOLOR", "\"1\""},
      {"CECOLOR 300\n", L"CECOLOR", "\"BYLAYER\"",
       "Invalid color: a number from 1 to 255, BYLAYER or BYBLOCK."},
      {"SNAPUNIT 5,10", L"SNAPUNIT", "5,10"},
      {"DWGNAME", L"DWGTITLED", "1"},
      {"DIMSCALE 12.5", L"DIMSCALE", "12.5"},
      {"SETVAR NOSUCH\n", L"DIMSCALE", "2",
       "Unknown variable name. Type SETVAR ? for a list of variables."},
  };
  for (const Case& one : cases) {
    EditorUser user;
    const std::string shown = user.run({one.line});
    SCOPED_TRACE(one.line + ("\n" + shown));
    EXPECT_EQ(variable(one.name), one.value);
    EXPECT_EQ(user.failure(), one.failure);
  }
}

TEST(EditorVariables, CommandsKeepTypesAndRules) {
  EditorUser user;
  resbuf value{};
  ASSERT_EQ(acedGetVar(L"clayer", &value), RTNORM);
  EXPECT_EQ(value.restype, RTSTR);
  EXPECT_STREQ(value.resval.rstring, L"0");
  acutDelString(value.resval.rstring);
  EXPECT_EQ(acedGetVar(L"NOSUCH", &value), RTERROR);
  value.restype = RTSHORT;
  value.resval.rint = 1;
  EXPECT_EQ(acedSetVar(L"DIMSCALE", &value), RTNORM);
  EXPECT_EQ(user.database().dimscale(), 1);
  EXPECT_EQ(acedSetVar(L"SCREENSIZE", &value), RTERROR);
  EXPECT_EQ(acedSetVar(L"CLAYER", &value), RTERROR);
  value.resval.rint = -3;
  EXPECT_EQ(acedSetVar(L"ORTHOMODE", &value), RTERROR);
  // Set and set back leaves the file as it was.
  const std::string before = user.bytes();
  value.resval.rint = 0;
  EXPECT_EQ(acedSetVar(L"ORTHOMODE", &value), RTNORM);
  value.resval.rint = 1;
  EXPECT_EQ(acedSetVar(L"SNAPMODE", &value), RTNORM);
  EXPECT_EQ(user.bytes(), before);
  // Numbers follow a precision that the drawing had none of.
  value.resval.rint = 2;
  EXPECT_EQ(acedSetVar(L"LUPREC", &value), RTNORM);
  wchar_t text[20];
  EXPECT_EQ(acdbRToS(1.5, -1, -1, text), RTNORM);
  EXPECT_STREQ(text, L"1.50");
}

TEST(EditorUndo, StepsMarksAndGroups) {
  struct Case {
    std::vector<Step> steps;
    const char* layer;
    const char* shown;
  };
  const Case cases[] = {
      {{"CLAYER WIRES", "CLAYER OFF", "U"}, "\"WIRES\"", "CLAYER\n"},
      {{"CLAYER WIRES", "CLAYER OFF", "U", "U", "REDO"}, "\"WIRES\"", ""},
      {{"CLAYER WIRES", "CLAYER OFF", "UNDO 2"}, "\"0\"", "CLAYER CLAYER\n"},
      {{"CLAYER WIRES", "UNDO BE", "CLAYER OFF", "CLAYER FRAME", "UNDO E", "U"}, "\"WIRES\"", ""},
      {{"CLAYER WIRES", "UNDO M", "CLAYER OFF", "CLAYER FRAME", "UNDO B"},
       "\"WIRES\"",
       "Mark encountered."},
      {{"CLAYER WIRES", "UNDO B Y"}, "\"0\"", "Everything has been undone."},
      {{"CLAYER WIRES", "REGEN", "REGEN", "U"}, "\"0\"", "CLAYER\n"},
      {{"U"}, "\"0\"", "Everything has been undone."},
      {{"CLAYER WIRES", "U", "CLAYER OFF", "REDO"}, "\"OFF\"", "Nothing to redo."},
  };
  for (const Case& one : cases) {
    EditorUser user;
    const std::string shown = user.run(one.steps);
    SCOPED_TRACE(shown);
    EXPECT_EQ(variable(L"CLAYER"), one.layer);
    EXPECT_NE(shown.find(one.shown), std::string::npos);
    EXPECT_EQ(user.failure(), "");
  }
}

TEST(EditorUndo, AllUndoneIsTheFirstFile) {
  EditorUser user(lineEntity(0x40, 0, 0, 10, 0));
  const std::string before = user.bytes();
  user.run({"-LAYER N A LO WIRES ", "TEXTSIZE 7", "MOVE", select({0x40}), "", "0,0", "5,5"});
  const std::string changed = user.bytes();
  EXPECT_NE(changed, before);
  user.run({"UNDO 3"});
  EXPECT_EQ(user.bytes(), before);
  user.run({"REDO"});
  EXPECT_EQ(user.bytes(), changed);
}

TEST(EditorTokens, RunToTheirEndOrAreCancelled) {
  EditorUser user(lineEntity(0x40, 0, 0, 10, 0));
  host::bindCommand(L"OUTER", [] {
    resbuf* list = acutBuildList(RTSTR, L"_.-LAYER", RTSTR, L"N", RTSTR, L"TOKEN", RTSTR, L"", 0);
    EXPECT_EQ(acedCmdS(list), RTNORM);
    acutRelRb(list);
    EXPECT_EQ(acedCommandS(RTSTR, L"-LAYER", RTSTR, L"S", RTNONE), RTCAN);
    EXPECT_EQ(acedCommandS(RTSTR, L"NOSUCH", RTNONE), RTERROR);
    const ads_point from{0, 0, 0};
    const ads_point to{3, 4, 0};
    ads_name line;
    AcDbObjectId id;
    acDocManagerPtr()->curDocument()->database()->getAcDbObjectId(id, false, AcDbHandle(0x40));
    acdbGetAdsName(line, id);
    EXPECT_EQ(
        acedCommandS(RTSTR, L"UCS", RTSTR, L"Z", RTSTR, L"90", RTSTR, L".MOVE", RTENAME, line,
                     RTSTR, L"", RTSTR, L"NON", RTPOINT, from, RTSTR, L"NON", RTPOINT, to, RTNONE),
        RTNORM);
  });
  const std::string before = user.bytes();
  user.run({"OUTER", "left over"});
  EXPECT_EQ(layerState(user.database(), L"TOKEN"), "on");
  std::string changes;
  for (const std::string& change : groupDiff(before, user.bytes())) changes += change + " ";
  EXPECT_NE(changes.find("+11=6.0 +21=3.0"), std::string::npos) << changes;
  // Unknown words of the user were not taken by the command that lacked answers.
  EXPECT_EQ(user.failure(), "Unknown command \"left\".");
  user.run({"U"});
  EXPECT_EQ(layerState(user.database(), L"TOKEN"), "missing");
  host::unbindCommand(L"OUTER");
}

TEST(EditorTokens, EchoDecidesWhatIsShown) {
  EditorUser user;
  host::bindCommand(L"OUTER", [] {
    acedCommandS(RTSTR, L"-LAYER", RTSTR, L"N", RTSTR, L"SHOWN", RTSTR, L"", RTNONE);
  });
  EXPECT_NE(user.run({"OUTER"}).find("Enter name list for new layer(s): SHOWN"), std::string::npos);
  EXPECT_EQ(user.run({"CMDECHO 0", "OUTER"}).find("Enter an option"), std::string::npos);
  user.run({"CMDECHO 1"});
  host::unbindCommand(L"OUTER");
}

TEST(EditorUcs, MovesAndTurns) {
  struct Case {
    std::vector<Step> steps;
    double ucs[2];
    double world[2];
  };
  const Case cases[] = {
      {{"UCS O 10,20"}, {1, 2}, {11, 22}},
      {{"UCS Z 90"}, {1, 0}, {0, 1}},
      {{"UCS O 10,0", "UCS Z 90", "UCS O 5,0"}, {1, 0}, {10, 6}},
      {{"UCS Z 90", "UCS W"}, {1, 2}, {1, 2}},
      {{"UCS 10,10 10,20 "}, {1, 0}, {10, 11}},
  };
  for (const Case& one : cases) {
    EditorUser user;
    SCOPED_TRACE(user.run(one.steps));
    ads_point point{one.ucs[0], one.ucs[1], 0};
    ads_point world;
    ASSERT_TRUE(acdbUcs2Wcs(point, world, false));
    EXPECT_NEAR(world[0], one.world[0], 1e-9);
    EXPECT_NEAR(world[1], one.world[1], 1e-9);
    resbuf wcs{nullptr, RTSHORT, {}};
    resbuf ucs{nullptr, RTSHORT, {}};
    wcs.resval.rint = 0;
    ucs.resval.rint = 1;
    ASSERT_EQ(acedTrans(world, &wcs, &ucs, 0, point), RTNORM);
    EXPECT_NEAR(point[0], one.ucs[0], 1e-9);
    EXPECT_NEAR(point[1], one.ucs[1], 1e-9);
  }
}

}  // namespace
}  // namespace kovra::arx::test
