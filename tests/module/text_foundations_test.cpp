// What the text dialogs build on: parameter tables, stored settings, the drags of texts.
#include <gtest/gtest.h>

#include <fstream>
#include <optional>
#include <sstream>

#include "module/frame/attach.h"
#include "module/frame/companions/dialog_state_lib.h"
#include "module/frame/companions/string_res_lib.h"
#include "module/frame/gates.h"
#include "module/params/param_file.h"
#include "module/params/param_tables.h"
#include "module/textcmd/entity_jig.h"
#include "module/textcmd/text_jig.h"
#include "module/textcmd/text_settings.h"
#include "platform/arx/drawing/sketch.h"
#include "platform/win/base/run_settings.h"
#include "platform/win/base/wide_text.h"
#include "tests/arx/editor_user.h"
#include "tests/module/module_run.h"

namespace kovra::test {
namespace {

/// A run with a project whose parameter file a test writes.
class TextFoundations : public ::testing::Test {
 protected:
  TextFoundations() {
    run.project("12.0");
    speak(win::Language::english);
  }
  ~TextFoundations() override { ResourceModule = nullptr; }

  static void speak(win::Language language) {
    win::runSettings().language = language;
    ResourceModule = GetResourceModule();
  }

  static std::filesystem::path paramFile() { return win::runSettings().projectFolder / kParamFile; }
  static void writeParams(std::string_view text) { std::ofstream(paramFile()) << text; }

  static std::string joined(const TextList& list) {
    std::string line;
    for (const auto& text : list) {
      if (!line.empty()) line += '|';
      line += win::toUtf8(text.get());
    }
    return line;
  }

  ModuleRun run;
};

constexpr const char* kLayers = "CMNT|JCMNT|ECMNT|NEWJIS|OLDJIS|SYMBOL|AUX|<Current layer>";
constexpr const char* kHeights = "1.5|2.0|2.5|3.0|3.5|4.0|4.5|5.0";

TEST_F(TextFoundations, TablesMixTheFileAndTheBuiltinValuesRowByRow) {
  const struct {
    const char* file;
    const char* layers = kLayers;
    const char* heights = kHeights;
    const char* widthFactors = "1.0|0.9|0.8|0.7";
    const char* rotations = "0.0|90.0|-90.0|180.0";
    const char* rowRatios = "1.0|1.2|1.5|1.6666|2.0";
  } cases[] = {
      {"[TEXT]\n"},
      {"[OTHER]\nTEXT_H_CNT=1\n"},
      {"\xFF\xFE"},
      {"[text]\nlayer_cnt=0\nTEXT_H_CNT=3\nTEXT_WF_CNT=none\n", "<Current layer>", "1.5|2.0|2.5",
       ""},
      {"[TEXT]\nTEXT_H_CNT=10\nTEXT_H1=9\nTEXT_H10=11\nTEXT_H2=\n", kLayers,
       "9|2.0|2.5|3.0|3.5|4.0|4.5|5.0|11"},
      {"[TEXT]\nTEXT_H_CNT=-1\nTEXT_ROT_CNT=2\nTEXT_ROT2=45\n", kLayers, "", "1.0|0.9|0.8|0.7",
       "0.0|45"},
      // A damaged number of rows doesn't hold up the start.
      {"[TEXT]\nLAYER_CNT=2147483647\nLAYER900=FAR\nTEXT_H_CNT=99999999999\n",
       "CMNT|JCMNT|ECMNT|NEWJIS|OLDJIS|SYMBOL|AUX|FAR|<Current layer>"},
  };
  ParamTables tables;
  EXPECT_EQ(LoadParamTables(tables), 0) << "a project without the file";
  EXPECT_EQ(joined(tables.layers), kLayers);
  for (const auto& each : cases) {
    writeParams(each.file);
    ASSERT_EQ(LoadParamTables(tables), 0) << each.file;
    EXPECT_EQ(joined(tables.layers), each.layers) << each.file;
    EXPECT_EQ(joined(tables.heights), each.heights) << each.file;
    EXPECT_EQ(joined(tables.widthFactors), each.widthFactors) << each.file;
    EXPECT_EQ(joined(tables.rotations), each.rotations) << each.file;
    EXPECT_EQ(joined(tables.rowRatios), each.rowRatios) << each.file;
  }
  EXPECT_EQ(run.takeTranscript(), "");
  ClearParamTables(tables);
  EXPECT_EQ(tables.layers.size() + tables.rowRatios.size(), 0);
}

TEST_F(TextFoundations, ParameterFilesThatCannotBeHad) {
  ProjectHandle project;
  ASSERT_TRUE(FetchCurrentProject(project, true));
  {
    ConfigFile file;
    EXPECT_FALSE(OpenParamFileForEdit(file, project, kParamFile, kTextSection, false, true));
    ASSERT_TRUE(OpenParamFileForEdit(file, project, kParamFile, kTextSection, true, true));
    EXPECT_TRUE(file.WriteInt(ParamCountKey(kHeightTable), 0) && file.Save());
    EXPECT_TRUE(std::filesystem::exists(paramFile()));
  }
  EXPECT_EQ(run.takeTranscript(), "");
  std::filesystem::remove_all(win::runSettings().projectFolder);
  ConfigFile file;
  bool exists = true;
  EXPECT_FALSE(OpenParamFile(file, exists, project, kParamFile, nullptr, true, false));
  EXPECT_FALSE(exists);
  EXPECT_EQ(run.takeTranscript(), "");
  EXPECT_FALSE(OpenParamFile(file, exists, project, kParamFile, nullptr, true, true));
  EXPECT_NE(run.takeTranscript().find("parameter file"), std::string::npos);

  ParamTables tables;
  TextListAdd(tables.heights, L"kept");
  run.project("");
  EXPECT_EQ(LoadParamTables(tables), -1);
  EXPECT_EQ(joined(tables.heights), "kept");
  EXPECT_NE(run.takeTranscript(), "");
}

std::string stored(const wchar_t* key) {
  DialogStateStore store;
  StateStringRef text;
  if (!store.OpenSection(L"KOVRA_TEXT") || !store.GetString(key, text)) return "none";
  std::string value = win::toUtf8(text.text);
  DialogStateStore::ReleaseString(text);
  return value;
}

TEST_F(TextFoundations, SettingsComeBackAsTheyWereSaved) {
  TextSettings settings{1, 2, 3, L"PANEL", 2.5, 1.6666, 2.0, -90.123456789, 12};
  EXPECT_EQ(LoadTextSettings(settings, false), -1) << "nothing is stored yet";
  EXPECT_TRUE(settings.layerText.IsEmpty() && settings.height == 0);
  EXPECT_EQ(run.takeTranscript(), "");
  EXPECT_EQ(LoadTextSettings(settings, true), -1);
  EXPECT_NE(run.takeTranscript().find("saved settings"), std::string::npos);

  EXPECT_EQ(WriteDefaultTextSettings(), 0);
  ASSERT_EQ(LoadTextSettings(settings, true), 0);
  EXPECT_EQ(settings.x * 1000 + settings.y, 800400);
  EXPECT_EQ(stored(L"TEXT_H") + stored(L"TEXT_WF") + stored(L"TEXT_ROT"), "1.51.00.0");
  EXPECT_EQ(stored(L"TEXT_LAYER_VALUE") + stored(L"TEXT_COEFFICIENT"), "nonenone");

  settings = {-5, 2, 3, CString(L'漢', 300), 2.5, 1.6666, 2.0, -90.123456789, -1};
  EXPECT_EQ(SaveTextSettings(settings), 0);
  EXPECT_EQ(stored(L"TEXT_COEFFICIENT"), "1.6666");
  EXPECT_EQ(stored(L"TEXT_ROT"), "-90.12345679");
  TextSettings loaded;
  ASSERT_EQ(LoadTextSettings(loaded, true), 0);
  EXPECT_EQ(loaded.x, -5);
  EXPECT_EQ(loaded.layerText.GetLength(), 257);
  EXPECT_EQ(loaded.height + loaded.coefficient + loaded.widthFactor, 2.5 + 1.6666 + 2.0);
  EXPECT_EQ(loaded.attachmentIndex, -1);
}

TEST_F(TextFoundations, CoefficientBelongsToTheDataVersion) {
  run.project("11.9");
  TextSettings settings{1, 2, 3, L"PANEL", 2.5, 1.2, 0.8, 0, 0};
  EXPECT_EQ(SaveTextSettings(settings), 0);
  EXPECT_EQ(stored(L"TEXT_COEFFICIENT"), "none");
  run.project("12.0");
  settings.coefficient = 7;
  ASSERT_EQ(LoadTextSettings(settings, true), 0);
  EXPECT_EQ(settings.coefficient, 0);
  EXPECT_EQ(SaveTextSettings({1, 2, 3, L"", 2.5, 1.2, 0.8, 0, 0}), 0);
  run.project("11.9");
  ASSERT_EQ(LoadTextSettings(settings, true), 0);
  EXPECT_EQ(settings.coefficient, 0);
}

TEST_F(TextFoundations, CurrentLayerInEitherLanguage) {
  TextSettings settings;
  settings.layerText = L"<CURRENT layer>";
  EXPECT_EQ(SaveTextSettings(settings), 0);
  speak(win::Language::japanese);
  ASSERT_EQ(LoadTextSettings(settings, true), 0);
  EXPECT_STREQ(settings.layerText, L"<現在の画層>");
  EXPECT_EQ(SaveTextSettings(settings), 0);
  speak(win::Language::english);
  ASSERT_EQ(LoadTextSettings(settings, true), 0);
  EXPECT_STREQ(settings.layerText, L"<Current layer>");
}

using arx::test::click;
using arx::test::EditorUser;
using arx::test::enter;
using arx::test::escape;
using arx::test::moveTo;
using arx::test::Step;

std::string place(const AcGePoint3d& point) {
  std::ostringstream text;
  text << point.x << ',' << point.y << ',' << point.z;
  return text.str();
}

/// Runs `work` as a command that the steps answer.
template <typename Work>
std::string answered(EditorUser& user, std::vector<Step> steps, Work work) {
  arx::host::bindCommand(L"PROBE", work);
  steps.insert(steps.begin(), "PROBE");
  const std::string shown = user.run(std::move(steps));
  arx::host::unbindCommand(L"PROBE");
  return shown;
}

TEST(TextJigs, PointPromptWithThePreview) {
  const struct {
    std::vector<Step> steps;
    std::string result;  ///< result, request, point in the UCS
    std::string preview = "-3,0,0";
  } cases[] = {
      {{click(5, 6)}, "0 0 5,6,0", "15,6,0"},
      {{click(5, 6)}, "0 0 5,6,0", "15,6,0"},  // where the prompt before ended
      {{moveTo(1, 1), "7,8,9"}, "0 0 7,8,9", "17,8,9"},
      {{"-10,0"}, "0 0 -10,0,0", "0,0,0"},
      {{moveTo(2, 3), moveTo(2, 3.00005), escape()}, "1 0 7,7,7", "12,3,0"},
      {{"_. .3"}, "2 3 7,7,7"},
      {{"_. .-1"}, "2 -1 7,7,7"},
      {{"_. .0"}, "1 0 7,7,7"},
      {{"_. 3"}, "-1 0 7,7,7"},
      {{enter()}, "-1 0 7,7,7"},
      {{"other"}, "-1 0 7,7,7"},
  };
  for (const auto& each : cases) {
    EditorUser user;
    user.run({"UCS O 10,0"});
    AcDbText preview({-3, 0, 0}, L"K1", AcDbObjectId::kNull, 2.5);
    preview.setHorizontalMode(AcDb::kTextMid);
    preview.setAlignmentPoint({-3, 0, 0});
    TextPreview = &preview;
    std::string result;
    const std::string shown = answered(user, each.steps, [&] {
      ads_point point = {7, 7, 7};
      int request = 9;
      const int status = GetInsertPoint(L"\n100%s? ", point, request, kCrosshairCursor);
      result = std::to_string(status) + " " + std::to_string(request) + " " +
               place({point[0], point[1], point[2]});
    });
    TextPreview = nullptr;
    EXPECT_EQ(result, each.result) << shown;
    EXPECT_EQ(place(preview.alignmentPoint()), each.preview) << each.result;
    EXPECT_NE(shown.find("100%s? "), std::string::npos) << shown;
  }
}

TEST(TextJigs, PromptWithoutATextOrWithAnotherEntity) {
  EditorUser user;
  TextJigEnt other({}, {});
  for (AcDbEntity* entity : {static_cast<AcDbEntity*>(nullptr), static_cast<AcDbEntity*>(&other)}) {
    AcGePoint3d point;
    int status = 0;
    answered(user, {moveTo(1, 2), click(3, 4)},
             [&] { status = JigPoint(L"?", entity, point, kEntitySelectCursor); });
    EXPECT_EQ(status, RTNORM);
    EXPECT_EQ(place(point), "3,4,0");
  }
}

/// A batch of texts of all kinds of modes, a unit apart.
class Batch : public ::testing::Test {
 protected:
  Batch() {
    const AcDb::TextHorzMode modes[] = {AcDb::kTextLeft, AcDb::kTextAlign, AcDb::kTextMid,
                                        AcDb::kTextCenter};
    for (int i = 0; i < 5; ++i) {
      auto text = std::make_unique<AcDbText>(AcGePoint3d(), L"K1", AcDbObjectId::kNull, 2.0);
      text->setHorizontalMode(modes[i % 4]);
      if (i == 4) text->setVerticalMode(AcDb::kTextTop);
      batch.push_back(text.get());
      offsets.push_back({1.0 * i, -2.0 * i, 3});
      texts.push_back(std::move(text));
    }
  }

  std::string places() const {
    std::string line;
    for (const AcDbText* text : batch) {
      const bool byPosition = text == batch[0] || text == batch[1];
      line += place(byPosition ? text->position() : text->alignmentPoint()) + ' ';
    }
    return line;
  }

  std::optional<bool> run(std::vector<Step> steps) {
    std::optional<bool> placed;
    shown = answered(user, std::move(steps), [&] {
      TextJig jig(batch, offsets);
      placed = RunTextJig(jig, L"100%s? ");
    });
    return placed;
  }

  EditorUser user;
  std::string shown;
  std::vector<std::unique_ptr<AcDbText>> texts;
  std::vector<AcDbText*> batch;
  std::vector<AcGeVector3d> offsets;
};

TEST_F(Batch, FollowsTheCursorWithItsOffsets) {
  EXPECT_EQ(run({moveTo(50, 50), moveTo(70, 80), click(10, 20)}), true);
  EXPECT_EQ(places(), "10,20,3 11,18,3 12,16,3 13,14,3 14,12,3 ");
  EXPECT_NE(shown.find("100%s? "), std::string::npos);
  // Half of two characters left of the alignment point, and the height below it.
  EXPECT_NEAR(texts[4]->position().y, 10, 1e-9);
  EXPECT_LT(texts[3]->position().x, 13);
  EXPECT_EQ(run({click(0, 0)}), true) << "where the jig's own point starts";
  EXPECT_EQ(places(), "0,0,3 1,-2,3 2,-4,3 3,-6,3 4,-8,3 ");
  EXPECT_EQ(run({moveTo(1, 1), "garbage", escape()}), false);
  EXPECT_EQ(run({enter()}), false);
}

TEST_F(Batch, ShowsItsTextsAndTakesPairsOnly) {
  offsets.resize(3);
  TextJig jig(batch, offsets);
  std::vector<AcDbText*> shownTexts;
  EXPECT_TRUE(jig.appendTexts(shownTexts));
  EXPECT_EQ(shownTexts, std::vector<AcDbText*>(batch.begin(), batch.begin() + 3));
  arx::Sketch sketch;
  EXPECT_TRUE(jig.entity()->worldDraw(&sketch));
  EXPECT_EQ(sketch.texts().size(), 3U);
  TextJig nothing({}, offsets);
  EXPECT_FALSE(nothing.appendTexts(shownTexts));
  sketch.clear();
  EXPECT_TRUE(nothing.entity()->worldDraw(&sketch));
  EXPECT_TRUE(sketch.texts().empty());
}

}  // namespace
}  // namespace kovra::test
