// The arithmetic of columns, and what texts have in common.
#include <gtest/gtest.h>

#include <cmath>

#include "module/align/column_layout.h"
#include "module/align/text_values.h"

namespace kovra {
namespace {

constexpr double kTurn = 6.283185307179586;

TEST(ColumnLayout, DistancesFromTheBase) {
  const TextExtent even = {2, 1};
  const std::vector<TextExtent> uneven = {{2, 1}, {4, 0.5}, {1, 3}, {2, 0}};
  const struct {
    std::vector<TextExtent> extents;
    ColumnSpacing spacing;
    std::size_t base;
    std::vector<double> distances;
  } cases[] = {
      {{even, even, even}, {10, SpacingMode::pitch}, 0, {0, 10, 20}},
      {{even, even, even}, {10, SpacingMode::pitch}, 2, {-20, -10, 0}},
      {{even, even, even}, {0, SpacingMode::pitch}, 1, {0, 0, 0}},
      {{even, even, even}, {-2, SpacingMode::pitch}, 1, {2, 0, -2}},
      {{even, even, even}, {1, SpacingMode::gap}, 0, {0, 4, 8}},
      // Box to box: each anchor lies its own part of its box below the upper edge.
      {uneven, {1, SpacingMode::gap}, 0, {0, 6, 8.5, 14.5}},
      {uneven, {1, SpacingMode::gap}, 2, {-8.5, -2.5, 0, 6}},
      {uneven, {1, SpacingMode::gap}, 3, {-14.5, -8.5, -6, 0}},
      {uneven, {-1, SpacingMode::gap}, 1, {-4, 0, 0.5, 4.5}},
      {{even}, {7, SpacingMode::gap}, 0, {0}},
      {{even}, {7, SpacingMode::pitch}, 1, {}},
      {{}, {7, SpacingMode::gap}, 0, {}},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(ColumnDistances(each.extents, each.spacing, each.base), each.distances)
        << each.spacing.distance << " from " << each.base;
  }
}

TEST(ColumnLayout, DirectionsAndOrderByRotation) {
  const struct {
    double degrees;
    double x;
    double y;
    bool forward;
  } cases[] = {{0, 0, -1, true},
               {45, 0.7071, -0.7071, true},
               {90, 1, 0, true},
               {91, 0.9998, 0.01745, false},
               {180, 0, 1, false},
               {225, -0.7071, 0.7071, false},
               {270, -1, 0, false},
               {271, -0.9998, -0.01745, true},
               {359, -0.01745, -0.9998, true}};
  for (const auto& each : cases) {
    const double rotation = each.degrees * kTurn / 360;
    const ColumnDirection dragged = DraggedDirection(rotation);
    EXPECT_NEAR(dragged.x, each.x, 0.0001) << each.degrees;
    EXPECT_NEAR(dragged.y, each.y, 0.0001) << each.degrees;
    const ColumnDirection standing = StandingDirection(rotation);
    EXPECT_NEAR(standing.x, std::abs(each.x), 0.0001) << each.degrees;
    EXPECT_NEAR(standing.y, -std::abs(each.y), 0.0001) << each.degrees;
    EXPECT_EQ(StacksForward(rotation), each.forward) << each.degrees;
  }
  // The quarter turns themselves, as close as a number comes to them.
  EXPECT_TRUE(StacksForward(1.5707963267948966));
  EXPECT_FALSE(StacksForward(std::nextafter(1.5707963267948966, 2)));
  EXPECT_FALSE(StacksForward(4.71238898038469));
  EXPECT_TRUE(StacksForward(std::nextafter(4.71238898038469, 5)));
}

TEST(TextValues, SetsOfProperties) {
  const auto digits = [](const TextPropertyFlags& set) {
    std::string text;
    for (std::size_t i = 0; i < set.size(); ++i) text += set[i] ? static_cast<char>('0' + i) : '-';
    return text;
  };
  const std::pair<const ACHAR*, const char*> cases[] = {
      {L"", "------"}, {L"0245", "0-2-45"}, {L"012345", "012345"}, {L"5x60 -1", "01---5"}};
  for (const auto& [text, set] : cases) EXPECT_EQ(digits(ReadApplySet(text)), set);
}

TEST(TextValues, ShownRotation) {
  const std::pair<double, double> cases[] = {{0, 0}, {90, 90}, {180, 180}, {181, -179}, {270, -90}};
  for (const auto& [degrees, shown] : cases) {
    EXPECT_NEAR(ShownDegrees(degrees * kTurn / 360), shown, 1e-9);
  }
}

/// Property by property: the value that all have, or "-".
std::string common(const std::vector<std::pair<TextValues, TextFigures>>& texts,
                   std::size_t selected) {
  CommonValues values;
  for (const auto& [text, figures] : texts) values.add(text, figures);
  std::string line;
  for (const CString& value : values.result(selected)) {
    const std::wstring wide = value.GetString();
    line += (wide.empty() ? "-" : std::string(wide.begin(), wide.end())) + ' ';
  }
  return line;
}

TEST(TextValues, WhatTextsHaveInCommon) {
  const TextValues first = {L"Wire", L"Standard", L"2.0000", L"0.9000", L"-90.0000", L"Top left"};
  const TextFigures figures = {2.0, 0.9};
  const std::string all = "Wire Standard 2.0000 0.9000 -90.0000 Top left ";
  EXPECT_EQ(common({{first, figures}}, 1), all);
  EXPECT_EQ(common({{first, figures}}, 2), "- - - - - - ") << "an object that is no text";
  EXPECT_EQ(common({}, 1), "- - - - - - ");

  TextValues second = first;
  second[kLayerProperty] = L"WIRE";
  second[kAlignmentProperty] = L"TOP LEFT";
  second[kRotationProperty] = L"-90.00005";
  EXPECT_EQ(common({{first, figures}, {second, {2.00008, 0.9}}}, 2), all);
  // The numbers themselves are compared with what the first one shows.
  EXPECT_EQ(common({{first, {2.00004, 0.9}}, {first, {2.0002, 0.9}}}, 2),
            "Wire Standard - 0.9000 -90.0000 Top left ");
  second = {L"Wire2", L"Standard2", L"2.0000", L"0.9000", L"270.0000", L"Top"};
  EXPECT_EQ(common({{first, figures}, {second, {2.0, 0.8998}}}, 2), "- - 2.0000 - - - ");
  // Each is compared with the first, never with the last that agreed.
  EXPECT_EQ(common({{first, figures}, {first, {2.00008, 0.9}}, {first, {2.00016, 0.9}}}, 3),
            "Wire Standard - 0.9000 -90.0000 Top left ");
}

}  // namespace
}  // namespace kovra
