#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <numbers>

#include "module/drawing/angles.h"
#include "module/drawing/attachment.h"
#include "module/drawing/auto_var.h"
#include "module/drawing/layer_snapshot.h"
#include "module/drawing/layers.h"
#include "module/drawing/model_space.h"
#include "module/drawing/nested_text.h"
#include "module/drawing/symbol_tables.h"
#include "module/drawing/system_variables.h"
#include "module/drawing/text_entity.h"
#include "module/drawing/text_styles.h"
#include "module/drawing/undo_mark.h"
#include "platform/arx/editor/host_api.h"
#include "tests/module/module_run.h"
#include "tests/module/sheet.h"

namespace kovra::test {
namespace {

/// Runs code as a command in an open drawing.
class Drawing : public ::testing::Test {
 protected:
  Drawing() {
    run.open(sheet(text("T1", 1, 2,
                        "41 0.5|50 30.0|51 10.0|62 3|7 STANDARD|72 1|11 4.0|"
                        "21 5.0|31 6.0|73 2")));
  }

  void inCommand(std::function<void()> work) {
    bool ran = false;
    arx::host::bindCommand(L"PROBE", [&] {
      work();
      ran = true;
    });
    run.type("PROBE");
    arx::host::unbindCommand(L"PROBE");
    EXPECT_TRUE(ran);
  }

  ModuleRun run;
};

TEST_F(Drawing, ColorVariableIsANumber) {
  inCommand([] {
    const struct {
      int number;
      const wchar_t* text;
    } cases[] = {{0, L"BYBLOCK"}, {256, L"BYLAYER"}, {7, L"7"}, {1, L"1"}};
    for (const auto& each : cases) {
      EXPECT_EQ(SetVar(L"cecolor", each.number), 0);
      CString shown;
      EXPECT_EQ(GetVar(L"CECOLOR", shown), 0);
      EXPECT_EQ(shown.CompareNoCase(each.text), 0) << each.number;
      int number = -1;
      EXPECT_EQ(GetVar(L"CeColor", number), 0);
      EXPECT_EQ(number, each.number);
    }
  });
}

TEST_F(Drawing, VariablesOfEveryTypeAndFailures) {
  inCommand([] {
    int number = 5;
    double real = 5;
    CString shown = L"x";
    ACHAR buffer[256] = L"x";
    EXPECT_EQ(SetVar(L"SNAPMODE", 1), 0);
    EXPECT_EQ(GetVar(L"SNAPMODE", number), 0);
    EXPECT_EQ(number, 1);
    EXPECT_EQ(SetVar(L"TEXTSIZE", 3.5), 0);
    EXPECT_EQ(GetVar(L"TEXTSIZE", real), 0);
    EXPECT_EQ(real, 3.5);
    EXPECT_EQ(SetVar(L"CLAYER", L"FRAME"), 0);
    EXPECT_EQ(GetVar(L"CLAYER", buffer), 0);
    EXPECT_STREQ(buffer, L"FRAME");
    EXPECT_EQ(SetVar(L"CLAYER", L"NOSUCH"), -1);
    EXPECT_EQ(GetVar(L"NOSUCHVAR", number) + GetVar(L"NOSUCHVAR", real), -2);
    EXPECT_EQ(GetVar(L"NOSUCHVAR", shown) + GetVar(L"NOSUCHVAR", buffer), -2);
    EXPECT_EQ(number, 0);
    EXPECT_EQ(real, 0);
    EXPECT_TRUE(shown.IsEmpty());
    EXPECT_STREQ(buffer, L"");
    SetVar(L"ORTHOMODE", 1);
    {
      CAutoVar ortho;
      CAutoVar unused;
      ortho.Set(L"ORTHOMODE", 0);
      GetVar(L"ORTHOMODE", number);
      EXPECT_EQ(number, 0);
    }
    GetVar(L"ORTHOMODE", number);
    EXPECT_EQ(number, 1) << "given back";
  });
}

TEST_F(Drawing, LooksUpLayersAndStyles) {
  inCommand([] {
    AcDbObjectId id;
    AcDbObjectId same;
    EXPECT_EQ(GLayerId(L"frame", id), 0);
    EXPECT_TRUE(GLayerIdAt(same, L"FRAME"));
    EXPECT_EQ(id, same);
    EXPECT_EQ(GLayerId(L"NOSUCH", id), -1);
    EXPECT_FALSE(GLayerIdAt(same, L"NOSUCH"));
    EXPECT_EQ(GLayerExists(L"FRAME") * 10 + GLayerExists(L"NOSUCH"), 10);
    EXPECT_TRUE(IsLayerLocked(L"LOCKED"));
    EXPECT_FALSE(IsLayerLocked(L"NOSUCH"));
    EXPECT_FALSE(IsLayerLocked(nullptr));
    SetVar(L"CLAYER", L"LOCKED");
    EXPECT_TRUE(IsLayerLocked(L"")) << "the current layer";
    ACHAR name[256] = {};
    EXPECT_EQ(GTxtStyId(L"standard", id), 0);
    EXPECT_EQ(GTxtStyName(id, name), 0);
    EXPECT_STREQ(name, L"STANDARD");
    EXPECT_EQ(GTxtStyName(AcDbObjectId(), name), -1);
    EXPECT_STREQ(name, L"");
    TextList names;
    EXPECT_EQ(GTxtStyL(names), 0);
    ASSERT_EQ(names.size(), 1);
    EXPECT_EQ(TextStyleValue(L"STANDARD", 9, &AcDbTextStyleTableRecord::xScale), 1.0);
    EXPECT_EQ(TextStyleValue(L"NOSUCH", 9, &AcDbTextStyleTableRecord::textSize), 9.0);
    EXPECT_FALSE(IsVerticalStyle(L"STANDARD"));
    int count = 0;
    const auto counter = [](void* seen, AcDbTextStyleTableRecord*) { ++*static_cast<int*>(seen); };
    EXPECT_TRUE(ForEachTextStyle(&count, counter));
    EXPECT_EQ(count, 1);
  });
}

TEST_F(Drawing, SnapshotUnlocksAndRestores) {
  const std::string before = run.saved();
  inCommand([] {
    LayerSnapshot layers;
    ASSERT_TRUE(layers.Capture(CurrentDatabase()));
    EXPECT_TRUE(layers.IsLocked(L"locked"));
    EXPECT_FALSE(layers.IsLocked(L"NOSUCH"));
    layers.UnlockAll();
    EXPECT_FALSE(IsLayerLocked(L"LOCKED"));
    EXPECT_TRUE(layers.IsLocked(L"LOCKED")) << "as captured";
    layers.Restore();
    EXPECT_TRUE(IsLayerLocked(L"LOCKED"));
  });
  EXPECT_EQ(run.saved(), before);
}

TEST_F(Drawing, AddsTextsOfEveryAttachment) {
  inCommand([] {
    const TextCommonProps properties = {2, L"FRAME"};
    const ads_point point = {7, 8, 9};
    for (int index = 0; index < kAttachments; ++index) {
      ads_name entity = {};
      ASSERT_EQ(AddText(properties, {2.5, 0.8, 0.5, index}, L"STANDARD", L"VALUE", point, entity),
                0);
      AcDbObjectId id;
      AcDbText* added = nullptr;
      ASSERT_EQ(acdbGetObjectId(id, entity), Acad::eOk);
      ASSERT_EQ(acdbOpenObject(added, id, AcDb::kForRead), Acad::eOk);
      EXPECT_EQ(ModesToAttachCode(added->horizontalMode(), added->verticalMode()),
                AttachCodes[static_cast<std::size_t>(index)]);
      const AcGePoint3d fixed = index == 0 ? added->position() : added->alignmentPoint();
      EXPECT_EQ(fixed, AcGePoint3d(7, 8, 9));
      EXPECT_EQ(added->height(), 2.5);
      EXPECT_EQ(added->colorIndex(), 2);
      EXPECT_STREQ(added->layerName(), L"FRAME");
      added->close();
    }
    ads_name none = {};
    EXPECT_EQ(AddText(properties, {2.5, 1, 0, 13}, L"STANDARD", L"V", point, none), -3);
    EXPECT_EQ(AddText(properties, {2.5, 1, 0, -1}, L"STANDARD", L"V", point, none), -3);
    EXPECT_EQ(AddText(properties, {0, 1, 0, 0}, L"STANDARD", L"V", point, none), -2);
  });
}

TEST_F(Drawing, CopiesKeepEverythingButValueAndPlace) {
  inCommand([] {
    ads_name source = {};
    ads_name copy = {};
    ASSERT_EQ(acdbEntLast(source), RTNORM);
    ASSERT_NE(CopyTextEntity(source, copy, L"T2", 100, 200), 0);
    ads_name nothing = {};
    EXPECT_EQ(CopyTextEntity(nothing, copy, L"T3", 0, 0), 0);
  });
  const std::string saved = run.saved();
  for (const auto* group : {"  1\nT2\n", " 11\n104.0\n 21\n205.0\n", " 51\n10.0\n", " 62\n3\n"}) {
    EXPECT_NE(saved.find(group, saved.find("T1")), std::string::npos) << group;
  }
}

TEST(NestedText, HeightAndAngleInTheDrawing) {
  const struct {
    const char* what;
    double matrix[4][4];
    double angle;
    double newHeight;
    double newAngle;
  } cases[] = {
      {"identity",
       {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}},
       -kPi / 2,
       3,
       1.5 * kPi},
      {"twice as large, moved",
       {{2, 0, 0, 50}, {0, 2, 0, 60}, {0, 0, 2, 0}, {0, 0, 0, 1}},
       0.25,
       6,
       0.25},
      {"a quarter turn", {{0, -1, 0, 0}, {1, 0, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}, 0, 3, kPi / 2},
      {"wider than high",
       {{3, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}},
       kPi / 2,
       9,
       kPi / 2},
      {"a turn that takes the text's own back",
       {{std::sqrt(0.75), 0.5, 0, 1e6},
        {-0.5, std::sqrt(0.75), 0, 1e6},
        {0, 0, 1, 0},
        {0, 0, 0, 1}},
       RadiansOf(30),
       3,
       0},
      {"larger and turned, far away",
       {{std::sqrt(0.75) * 1.2, -0.6, 0, 1e6},
        {0.6, std::sqrt(0.75) * 1.2, 0, 1e6},
        {0, 0, 1.2, 0},
        {0, 0, 0, 1}},
       RadiansOf(33),
       3.6,
       RadiansOf(63)},
  };
  // No digit more than a person would write reaches the drawing.
  for (const auto& each : cases) {
    double height = 3;
    double angle = each.angle;
    TransformHeightAndAngle(&height, angle, each.matrix);
    EXPECT_EQ(height, each.newHeight) << each.what;
    EXPECT_EQ(angle, each.newAngle) << each.what;
    angle = each.angle;
    TransformHeightAndAngle(nullptr, angle, each.matrix);
    EXPECT_EQ(angle, each.newAngle) << each.what;
  }
}

TEST_F(Drawing, UndoMarkEndsAnOpenGroupAndKeepsTheEcho) {
  run.type("UNDO\nBegin");
  inCommand([] {
    int control = 0;
    GetVar(L"UNDOCTL", control);
    EXPECT_NE(control & 8, 0);
    MarkUndo();
    GetVar(L"UNDOCTL", control);
    EXPECT_EQ(control & 8, 0);
    int echo = 0;
    GetVar(L"CMDECHO", echo);
    EXPECT_EQ(echo, 1);
  });
}

TEST_F(Drawing, AppendsToModelSpace) {
  inCommand([] {
    AcDbEntity* const entities[] = {new AcDbText(AcGePoint3d(1, 1, 0), L"NEW1"),
                                    new AcDbText(AcGePoint3d(2, 2, 0), L"NEW2")};
    AppendToModelSpace(nullptr, entities, L"FRAME");
  });
  const std::string saved = run.saved();
  EXPECT_NE(saved.find("  1\nNEW1\n"), std::string::npos);
  EXPECT_NE(saved.find("  1\nNEW2\n"), std::string::npos);
}

}  // namespace
}  // namespace kovra::test
