// What the text dialog works out without its window: lines of a text, places of an array.
#include <gtest/gtest.h>

#include "module/text7/array_layout.h"
#include "module/text7/split_lines.h"

namespace kovra {
namespace {

using Texts = std::vector<std::wstring>;

Texts wide(const std::vector<CString>& lines) {
  return {lines.begin(), lines.end()};
}

TEST(SplitLines, LineBreaksAndTabsDivide) {
  const struct {
    const wchar_t* field;
    Texts lines;
    bool several;
  } cases[] = {
      {L"", {L""}, false},
      {L"one", {L"one"}, false},
      {L"one\r\n", {L"one", L""}, false},
      {L"one\r\n\r\nthree", {L"one", L"", L"three"}, true},
      {L"\r\ntwo", {L"", L"two"}, true},
      {L"a\tb\r\nc", {L"a", L"b", L"c"}, true},
      {L"a\tb", {L"a", L"b"}, false},
      {L"a \r\n b", {L"a ", L" b"}, true},
      {L"a\nb", {L"a\nb"}, true},
  };
  for (const auto& each : cases) {
    std::vector<CString> lines = {L"before"};
    CString text = each.field;
    EXPECT_EQ(SplitFieldLines(text, lines), static_cast<int>(each.lines.size())) << each.field;
    EXPECT_EQ(wide(lines), each.lines) << each.field;
    EXPECT_EQ(text.Find(L"\r\n"), -1) << "the field's text has tabs from then on";
    EXPECT_EQ(HasSeveralLines(each.field), each.several) << each.field;
  }
}

TEST(SplitLines, SeparatorsOfSeveralCharacters) {
  std::vector<CString> lines;
  EXPECT_EQ(SplitLines(L"a--b---c", L"--", lines), 3);
  EXPECT_EQ(wide(lines), (Texts{L"a", L"b", L"-c"}));
}

/// "A1 (0, 0)": the text and its place.
Texts shown(const std::vector<GroupText>& texts) {
  Texts result;
  for (const GroupText& each : texts) {
    CString line;
    line.Format(L"%s (%g, %g)", each.text.GetString(), each.offset.x + 0, each.offset.y + 0);
    result.emplace_back(line.GetString());
  }
  return result;
}

TEST(ArrayLayout, EmptyLinesKeepTheirRoom) {
  EXPECT_EQ(shown(layOutLines({L"one", L"", L"three"}, 2.5, 1.2, 10)),
            (Texts{L"one (0, 0)", L"three (0, -60)"}));
  EXPECT_TRUE(layOutLines({L"", L""}, 2.5, 1.2, 1).empty());
}

TEST(ArrayLayout, CountsInTheOrderOfFilling) {
  const struct {
    int direction;
    Texts texts;
  } cases[] = {
      {0, {L"A7b (0, 0)", L"A8b (0, -10)"}},
      {1, {L"A7b (0, 0)", L"A8b (6, 0)", L"A9b (12, 0)"}},
      {2,
       {L"A7b (0, 0)", L"A8b (0, -10)", L"A9b (6, 0)", L"A10b (6, -10)", L"A11b (12, 0)",
        L"A12b (12, -10)"}},
      {3,
       {L"A7b (0, 0)", L"A8b (6, 0)", L"A9b (12, 0)", L"A10b (0, -10)", L"A11b (6, -10)",
        L"A12b (12, -10)"}},
  };
  const CountOn byOne = [](CString& value) {
    value.Format(L"%d", _wtoi(value) + 1);
    return true;
  };
  for (const auto& each : cases) {
    ArrayValue value = {L"A", L"7", L"b"};
    const Pattern pattern = {each.direction, 2, 3, 5, 3};
    EXPECT_EQ(shown(layOutArray(pattern, 2, value, byOne)), each.texts) << each.direction;
    const int next = 7 + static_cast<int>(each.texts.size());
    EXPECT_EQ(_wtoi(value.value), next) << "the next value to be placed";
  }
}

TEST(ArrayLayout, AValueThatCannotBeCountedIsTheLastOne) {
  ArrayValue value = {L"", L"2", L""};
  const CountOn downToZero = [](CString& text) {
    if (text == L"0") return false;
    text.Format(L"%d", _wtoi(text) - 1);
    return true;
  };
  EXPECT_EQ(shown(layOutArray({0, 9, 1, 1, 1}, 1, value, downToZero)),
            (Texts{L"2 (0, 0)", L"1 (0, -1)", L"0 (0, -2)"}));
  EXPECT_STREQ(value.value, L"0");
  EXPECT_EQ(shown(layOutArray({1, 1, 2, 0, 4}, 1, value, {})), (Texts{L"0 (0, 0)", L"0 (4, 0)"}));
}

TEST(ArrayLayout, NegativeDistancesAndRounding) {
  const Pattern pattern = {3, 4, 4, -0.1, 0.1};
  EXPECT_EQ(arrayOffset(pattern, 15, 10).y, 3 * 0.1 * 10) << "upward";
  EXPECT_EQ(arrayOffset(pattern, 15, 10).x, 3 * 0.1 * 10) << "not 10 * 0.1 * 3";
}

}  // namespace
}  // namespace kovra
