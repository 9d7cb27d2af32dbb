#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <random>
#include <string>

#include "module/frame/companions/numbering_lib.h"

namespace {

__extension__ using Wide = unsigned __int128;

constexpr int kDottedOctal = 11856;
constexpr int kDottedHex = 11936;
constexpr const wchar_t* kRefused = nullptr;

// Counts a text as the text commands do, without the rule for lost digits; null when refused.
std::optional<std::wstring> count(int radix, const std::wstring& text, int steps) {
  RadixNumber number(radix);
  if (!number.Parse(text.c_str(), 0, -1)) return std::nullopt;
  if (steps >= 0)
    number.Step(steps);
  else if (!number.StepBack(-steps))
    return std::nullopt;
  return number.Result();
}

struct CountCase {
  int radix;
  const wchar_t* text;
  int steps;
  const wchar_t* counted;
};

TEST(RadixNumber, CountsInEveryRadix) {
  const CountCase cases[] = {
      // Decimal: the last run of digits; what stands round it stays; zeros are used up first.
      {10, L"X001", 1, L"X002"},
      {10, L"099", 1, L"100"},
      {10, L"0999", 1, L"1000"},
      {10, L"999", 1, L"1000"},
      {10, L"W12-34a", 7, L"W12-41a"},
      {10, L"-5", 1, L"-6"},
      {10, L"100", -1, L"099"},
      {10, L"0100", -1, L"0099"},
      {10, L"1", -1, L"0"},
      {10, L"1", -2, kRefused},
      {10, L"A100B", -101, kRefused},
      {10, L"MOTOR", 1, kRefused},
      {10, L"", 1, kRefused},
      {10, L"１２", 1, kRefused},  // full-width digits aren't digits
      {10, L"999999999999999999999999999999", 1, L"1000000000000000000000000000000"},
      {10, L"1000000000000000000000000000000", -1, L"0999999999999999999999999999999"},
      {10, L"端子7番", 2147483647, L"端子2147483654番"},
      // Octal and hexadecimal.
      {8, L"X077", 1, L"X100"},
      {8, L"7", 9, L"20"},
      {8, L"98", 1, kRefused},
      {16, L"0F", 1, L"10"},
      {16, L"09", 1, L"0A"},
      {16, L"ff", 1, L"100"},
      {16, L"a9", 1, L"aa"},
      {16, L"9f", 11, L"aa"},
      {16, L"X-Fe", 1, L"X-Ff"},
      {16, L"1A", -1, L"19"},
      // Column names: no zero, and no leading zeros to keep.
      {26, L"A", 1, L"B"},
      {26, L"Z", 1, L"AA"},
      {26, L"AZ", 1, L"BA"},
      {26, L"ZZ", 1, L"AAA"},
      {26, L"zz", 1, L"aaa"},
      {26, L"12z3", 1, L"12aa3"},
      {26, L"AA", -1, L"Z"},
      {26, L"AAA", -1, L"ZZ"},
      {26, L"A", -1, kRefused},
      {26, L"AB", -28, kRefused},
      {26, L"AB", -27, L"A"},
      {26, L"123", 1, kRefused},
      {24, L"H", 1, L"J"},
      {24, L"N", 1, L"P"},
      {24, L"Z", 1, L"AA"},
      {24, L"AA", -1, L"Z"},
      {24, L"AI", 1, L"BI"},  // I is no digit here
      // Word and bit: the bit is the last digit, the word before it decimal.
      {80, L"X7", 1, L"X10"},
      {80, L"X0097", 1, L"X0100"},
      {80, L"99.7", 1, L"99.10"},
      {80, L"18", 1, kRefused},
      {80, L"10", -1, L"07"},
      {80, L"0", -1, kRefused},
      {160, L"D12F", 1, L"D130"},
      {160, L"d9e", 2, L"d100"},
      {160, L"B00f", 10, L"B019"},
      {160, L"129", 1, L"12A"},
      // The same with a point before the bit.
      {kDottedOctal, L"D100.7", 1, L"D101.0"},
      {kDottedOctal, L"9.7X", 1, L"10.0X"},
      {kDottedOctal, L"D010.0", -1, L"D009.7"},
      {kDottedOctal, L"0.0", -1, kRefused},
      {kDottedOctal, L"10.8", 1, kRefused},
      {kDottedOctal, L"10.10", 1, kRefused},
      {kDottedOctal, L"D.7", 1, kRefused},
      {kDottedOctal, L"107", 1, kRefused},
      {kDottedHex, L"D100.F", 1, L"D101.0"},
      {kDottedHex, L"w0.e", 1, L"w0.f"},
      {kDottedHex, L"1.2.9", 1, L"1.2.A"},
      {kDottedHex, L"10.FF", 1, kRefused},
      {kDottedHex, L"10.", 1, kRefused},
      {kDottedHex, L"99.F", 16, L"100.F"},
      {7, L"1", 1, kRefused},  // no such radix
  };
  for (const CountCase& c : cases) {
    const std::optional<std::wstring> expected =
        c.counted ? std::optional<std::wstring>(c.counted) : std::nullopt;
    EXPECT_EQ(count(c.radix, c.text, c.steps), expected)
        << "radix " << c.radix << ", steps " << c.steps << ", text "
        << ::testing::PrintToString(std::wstring(c.text));
  }
}

struct ConversionCase {
  int from;
  const wchar_t* text;
  int to;
  const wchar_t* spelled;
};

TEST(RadixNumber, KeepsTheValueInAnotherRadixWithoutLeadingZeros) {
  const ConversionCase cases[] = {
      {10, L"8", 8, L"10"},
      {10, L"0", 8, L"0"},
      {10, L"000", 16, L"0"},
      {10, L"0255", 16, L"FF"},
      {16, L"00ff", 10, L"255"},
      {16, L"0ff", 16, L"ff"},
      {10, L"28", 26, L"AB"},
      {26, L"AB", 10, L"28"},
      {24, L"J", 26, L"I"},
      {10, L"0", 26, L""},
      {10, L"100", 80, L"124"},
      {10, L"7", kDottedOctal, L"0.7"},
      {kDottedHex, L"12.F", 10, L"207"},
      {10, L"340282366920938463463374607431768211456", 16, L"100000000000000000000000000000000"},
  };
  for (const ConversionCase& c : cases) {
    RadixNumber number(c.from);
    ASSERT_TRUE(number.Parse(c.text, 0, -1));
    number.SetRadix(c.to);
    EXPECT_EQ(std::wstring(number.Text()), c.spelled) << c.from << " to " << c.to;
  }
}

TEST(RadixNumber, CountsOnFromAZeroThatAColumnNameCannotSpell) {
  RadixNumber number(10);
  ASSERT_TRUE(number.Parse(L"X0", 0, -1));
  number.SetRadix(26);
  EXPECT_EQ(number.Result(), nullptr);
  EXPECT_FALSE(number.StepBack(1));
  number.Step(27);
  EXPECT_STREQ(number.Result(), L"XAA");
}

// A caller that counted down takes the zeros off that the number didn't have before.
TEST(RadixNumber, TakesAShorterFormAfterCountingDown) {
  const CountCase cases[] = {
      {10, L"A100B", 1, L"A99B"},
      {10, L"100", 100, L"0"},
      {80, L"X10", 1, L"X7"},
      {26, L"AA", 1, L"Z"},
      {kDottedOctal, L"10.0", 1, L"9.7"},
      {kDottedHex, L"D1.0", 1, L"D0.F"},
  };
  for (const CountCase& c : cases) {
    RadixNumber number(c.radix);
    ASSERT_TRUE(number.Parse(c.text, 0, -1));
    ASSERT_TRUE(number.StepBack(c.steps));
    std::wstring form = number.Text();
    while (form.size() >= 2 && form[0] == L'0') form.erase(0, 1);
    number.SetFormat(form.c_str());
    EXPECT_STREQ(number.Result(), c.counted);
  }
}

TEST(RadixNumber, HasNoValueBeforeAndAfterAFailedParse) {
  RadixNumber number(10);
  EXPECT_EQ(number.Result(), nullptr);
  ASSERT_TRUE(number.Parse(L"12", 0, -1));
  EXPECT_FALSE(number.StepBack(13));
  EXPECT_STREQ(number.Result(), L"12");
  EXPECT_FALSE(number.Parse(L"none", 0, -1));
  EXPECT_EQ(number.Result(), nullptr);
  EXPECT_FALSE(number.StepBack(1));
  EXPECT_STREQ(number.Text(), L"");
}

// Random numbers of all radices, against the same sums in 128 bits.
TEST(RadixNumber, AgreesWithBinaryArithmeticAndCountsBack) {
  std::mt19937_64 random(4711);
  std::uniform_int_distribution<int> steps(1, 2147483647);
  for (const int radix : {8, 10, 16, 24, 26, 80, 160, kDottedOctal, kDottedHex}) {
    for (int round = 0; round < 300; ++round) {
      const std::wstring start = std::to_wstring(random() >> (random() % 60) | 1);
      const int a = steps(random) >> (random() % 31);
      const int b = steps(random) >> (random() % 31);
      RadixNumber number(10);
      ASSERT_TRUE(number.Parse(start.c_str(), 0, -1));
      number.SetRadix(radix);
      const std::wstring before = number.Result();
      number.Step(a);
      number.Step(b);
      const std::wstring after = number.Result();
      RadixNumber read(radix);
      ASSERT_TRUE(read.Parse(after.c_str(), 0, -1));
      read.SetRadix(10);
      std::wstring expected;
      for (auto sum = static_cast<Wide>(std::stoull(start)) + static_cast<unsigned>(a) +
                      static_cast<unsigned>(b);
           sum > 0; sum /= 10)
        expected.insert(expected.begin(), static_cast<wchar_t>(L'0' + static_cast<int>(sum % 10)));
      EXPECT_EQ(std::wstring(read.Text()), expected) << "radix " << radix;
      ASSERT_TRUE(number.StepBack(b));
      ASSERT_TRUE(number.StepBack(a));
      number.SetFormat(before.c_str());
      EXPECT_EQ(std::wstring(number.Result()), before) << "radix " << radix;
    }
  }
}

}  // namespace
