#include <gtest/gtest.h>

#include "module/countup/char_width.h"
#include "module/countup/pattern_layout.h"
#include "module/countup/radix_rules.h"
#include "module/countup/step_conversion.h"

namespace kovra {
namespace {

constexpr StepConversionRules kCountUpDialog = {true, false};
constexpr StepConversionRules kTextDialog = {false, true};

TEST(CharWidth, ExchangesBothHalves) {
  const struct {
    std::wstring text;
    std::wstring flipped;
  } cases[] = {
      {L"X1.z", L"\xFF38\xFF11\xFF0E\xFF5A"},
      {L"A\xFF10",
       L"\xFF21"
       L"0"},
      {L"\x30A2 -", L"\x30A2 -"},
      {L"", L""},
  };
  for (const auto& each : cases) {
    std::wstring text = each.text;
    EXPECT_EQ(FlipCharWidth(text), each.text != each.flipped);
    EXPECT_EQ(text, each.flipped);
    FlipCharWidth(text);
    EXPECT_EQ(text, each.text) << "twice restores";
  }
}

TEST(RadixRules, DottedCodes) {
  EXPECT_EQ(DottedRadixCode(80, L"12.7"), 11856);
  EXPECT_EQ(DottedRadixCode(160, L"12.F"), 11936);
  EXPECT_EQ(DottedRadixCode(80, L"127"), 80);
  for (const int code : {8, 10, 16, 24, 26}) EXPECT_EQ(DottedRadixCode(code, L"1.5"), code);
}

TEST(RadixRules, FilterDigits) {
  const struct {
    std::wstring text;
    int row;
    int result;
    std::wstring kept;
  } cases[] = {
      {L"-178", 0, 0, L"-17"}, {L"-1f", 2, 1, L"-1f"}, {L"1g2", 2, 0, L"12"},
      {L"--5", 1, 0, L"-5"},   {L"1-5", 1, 0, L"15"},  {L"", 1, 1, L""},
      {L"9A", 6, 0, L"9"},     {L"12", 42, 1, L"12"},  {L"-", 1, 1, L"-"},
  };
  for (auto each : cases) {
    const std::wstring original = each.text;
    EXPECT_EQ(FilterDigits(each.text, each.row), each.result) << original;
    EXPECT_EQ(each.text, each.kept) << original;
  }
}

using Converted = std::optional<std::wstring>;

TEST(StepConversion, BetweenDecimalAndRadix) {
  const struct {
    const wchar_t* step;
    int row;
    Converted inRadix;
    Converted inDecimal;
  } cases[] = {
      {L"-8", 0, L"-10", std::nullopt},
      {L"31", 2, L"1F", L"49"},
      {L"0", 2, L"0", L"0"},
      {L"-31", 2, L"-1F", L"-49"},
      {L"17", 0, L"21", L"15"},
      {L"12", 1, L"12", std::nullopt},
      {L"", 2, std::nullopt, std::nullopt},
      {L"-", 2, std::nullopt, std::nullopt},
      {L"5", 3, std::nullopt, std::nullopt},
      {L"5", -1, std::nullopt, std::nullopt},
      {L"123456789012345678901234567890", 2, L"18EE90FF6C373E0EE4E3F0AD2", std::nullopt},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(stepToRadix(each.step, each.row, kCountUpDialog), each.inRadix) << each.step;
    if (each.inDecimal) {
      EXPECT_EQ(stepToDecimal(each.step, each.row, kCountUpDialog), each.inDecimal) << each.step;
    }
  }
  EXPECT_EQ(stepToDecimal(L"-1F", 2, kCountUpDialog), L"-31");
}

TEST(StepConversion, WhereTheTextDialogDiffers) {
  EXPECT_EQ(stepToRadix(L"-", 2, kTextDialog), L"");
  EXPECT_EQ(stepToRadix(L"x", 2, kTextDialog), L"");
  EXPECT_EQ(stepToRadix(L"5", 4, kTextDialog), L"");
  EXPECT_EQ(stepToDecimal(L"-", 2, kTextDialog), L"");
  EXPECT_EQ(stepToDecimal(L"5", 4, kTextDialog), std::nullopt);
  EXPECT_EQ(stepToDecimal(L"-1F", 2, kTextDialog), L"-31");
}

struct Place {
  int row;
  int column;
};

TEST(PatternLayout, OrderAndPlaces) {
  const struct {
    int direction;
    int rows;
    int columns;
    std::vector<Place> copies;
  } cases[] = {
      {0, 3, 9, {{1, 0}, {2, 0}}},
      {1, 9, 3, {{0, 1}, {0, 2}}},
      {2, 3, 2, {{1, 0}, {2, 0}, {0, 1}, {1, 1}, {2, 1}}},
      {3, 3, 2, {{0, 1}, {1, 0}, {1, 1}, {2, 0}, {2, 1}}},
      {0, 1, 4, {}},
  };
  constexpr double kScale = 2;
  for (const auto& each : cases) {
    const Pattern pattern{each.direction, each.rows, each.columns, 5, 7};
    ASSERT_EQ(placeCount(pattern), static_cast<std::int64_t>(each.copies.size()) + 1);
    for (std::size_t i = 0; i < each.copies.size(); ++i) {
      const Offset offset = placeOffset(pattern, static_cast<std::int64_t>(i) + 1, kScale);
      EXPECT_EQ(offset.x, 14.0 * each.copies[i].column) << each.direction << ' ' << i;
      EXPECT_EQ(offset.y, -10.0 * each.copies[i].row) << each.direction << ' ' << i;
    }
  }
  EXPECT_EQ(placeOffset({0, 3, 1, -5, 0}, 1, 1).y, 5) << "a negative height runs upward";
  EXPECT_EQ(placeCount({3, 100000, 100000, 1, 1}), 10000000000);
}

}  // namespace
}  // namespace kovra
