#include <gtest/gtest.h>

#include <cstdlib>
#include <cwchar>

#include "module/drawing/attachment.h"
#include "module/propcopy/alignment_codes.h"
#include "module/propcopy/line_options.h"
#include "module/propcopy/tag_patterns.h"

namespace kovra {
namespace {

double readNumber(const wchar_t* text) {
  return std::wcstod(text, nullptr);
}

std::optional<CopyJob> read(std::wstring_view line, bool scaleByDefault = true) {
  return readLineOptions(splitLine(line), scaleByDefault, readNumber);
}

TEST(TagPatterns, SplitsListsAndPreparesPatterns) {
  const struct {
    std::wstring list;
    TagPatterns patterns;
  } cases[] = {
      {L"NAME+", {L"NAME,NAME[0-9]"}},
      {L"SEN*,NAME+", {L"SEN*", L"NAME,NAME[0-9]"}},
      {L"A,,B,", {L"A", L"", L"B"}},
      {L"+", {L",[0-9]"}},
      {L"A+B", {L"A+B"}},
      {L"", {}},
      {std::wstring(254, L'X') + L",YZ", {std::wstring(254, L'X')}},
      {std::wstring(300, L'X'), {std::wstring(255, L'X')}},
  };
  for (const auto& each : cases) EXPECT_EQ(splitTagList(each.list), each.patterns);
}

TEST(LineOptions, CutsLinesAtRunsOfBlanks) {
  const std::vector<std::wstring> expected = {L"NAME+", L"/H", L"2.5"};
  EXPECT_EQ(splitLine(L"NAME+ /H 2.5"), expected);
  EXPECT_EQ(splitLine(L"NAME+   /H  2.5"), expected);
  EXPECT_EQ(splitLine(L"NAME+ \t/H 2.5"), expected);
  EXPECT_EQ(splitLine(L"NAME+\t/H 2.5").size(), 2U) << "a tab alone doesn't separate";
}

TEST(LineOptions, RefusesFewerThanThreeTokens) {
  for (const auto* line : {L"", L"NAME+", L"NAME+ /H", L"NAME+ /SC", L"NAME+ /SC "}) {
    EXPECT_FALSE(read(line)) << line;
  }
}

TEST(LineOptions, ReadsEveryOption) {
  const auto request = read(L"NAME+,SENBAN1 /l FRAME /h 2.5 /W 0.8 /A -90 /J MC /NSC");
  ASSERT_TRUE(request);
  EXPECT_EQ(request->patterns, (TagPatterns{L"NAME,NAME[0-9]", L"SENBAN1"}));
  EXPECT_EQ(request->settings.Layer, L"FRAME");
  EXPECT_EQ(request->settings.Height, 2.5);
  EXPECT_EQ(request->settings.WidthFactor, 0.8);
  EXPECT_EQ(request->settings.Rotation, -90);
  EXPECT_EQ(request->settings.Alignment, L"MC");
  EXPECT_FALSE(request->useDimensionScale);
}

TEST(LineOptions, LastOneCountsAndOddOnesAreDropped) {
  const struct {
    const wchar_t* line;
    double height;
    bool scaled;
  } cases[] = {
      {L"N /H 1 /H 2", 2, true},     {L"N /X 1 /H 2.5", 2.5, true},
      {L"N /H 2.5 /X", 2.5, true},   {L"N /NSC /H", PropertySettings::kKeepSize, false},
      {L"N /NSC /SC /H 3", 3, true}, {L"N /SC /nsc /H 3", 3, false},
      {L"N /H word", 0, true},       {L"N /X /NSC /H 4", 4, true},
      {L"N /H /NSC", 0, true},
  };
  for (const auto& each : cases) {
    const auto request = read(each.line);
    ASSERT_TRUE(request) << each.line;
    EXPECT_EQ(request->settings.Height, each.height) << each.line;
    EXPECT_EQ(request->useDimensionScale, each.scaled) << each.line;
    EXPECT_EQ(request->settings.Rotation, PropertySettings::kKeepRotation);
  }
  EXPECT_FALSE(read(L"N /H 1", false)->useDimensionScale);
  EXPECT_EQ(read(L"N /J MCX")->settings.Alignment, L"MC");
}

TEST(PropertySettings, ValuesThatLeavePropertiesAlone) {
  EXPECT_FALSE(isSizeGiven(-1));
  EXPECT_FALSE(isSizeGiven(-0.0001));
  EXPECT_TRUE(isSizeGiven(-0.00009));
  EXPECT_TRUE(isSizeGiven(0));
  EXPECT_TRUE(isRotationGiven(99999.99));
  EXPECT_TRUE(isRotationGiven(-99999.99));
  EXPECT_FALSE(isRotationGiven(99999.9999));
  EXPECT_FALSE(isRotationGiven(-100000));
}

TEST(AlignmentCodes, SetModes) {
  const struct {
    const wchar_t* code;
    int vertical;
    int horizontal;
  } cases[] = {
      {L"TL", 3, 0},
      {L"TC", 3, 1},
      {L"TR", 3, 2},
      {L"ML", 2, 0},
      {L"mc", 2, 1},
      {L"MR", 2, 2},
      {L"BL", 1, 0},
      {L"Bc", 1, 1},
      {L"BR", 1, 2},
      {L"R", 0, 2},
      {L"C", 0, 1},
      {L"M", 0, 4},
      {L"L", 0, 0},
      {L"XY", 0, 0},
      {L"A", 0, kKeepHorizontal},
      {L"f", 0, kKeepHorizontal},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(alignmentModes(each.code), (CodeModes{each.vertical, each.horizontal})) << each.code;
  }
}

TEST(AlignmentCodes, EachRowOfTheComboBoxHasTheCodeOfItsModes) {
  for (int row = 0; row < kAttachments; ++row) {
    int horizontal = 0;
    int vertical = 0;
    AttachIndexToModes(row, horizontal, vertical);
    EXPECT_FALSE(AlignmentCode(row).empty()) << row;
    EXPECT_EQ(alignmentModes(AlignmentCode(row)), (CodeModes{vertical, horizontal})) << row;
  }
  EXPECT_TRUE(AlignmentCode(-1).empty() && AlignmentCode(kAttachments).empty());
}

TEST(AlignmentCodes, AnchorIsThePositionOnTheBaseLineOnly) {
  for (int vertical = 0; vertical <= 3; ++vertical) {
    for (int horizontal = 0; horizontal <= 5; ++horizontal) {
      const bool atPosition =
          vertical == 0 && (horizontal == 0 || horizontal == 3 || horizontal == 5);
      EXPECT_EQ(anchorOf({vertical, horizontal}) == Anchor::position, atPosition)
          << vertical << ' ' << horizontal;
    }
  }
}

}  // namespace
}  // namespace kovra
