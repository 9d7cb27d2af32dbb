#include <gtest/gtest.h>

#include "module/drawing/attachment.h"
#include "module/drawing/number_text.h"
#include "module/drawing/text_list.h"

namespace kovra {
namespace {

TEST(Attachment, IndexModesAndCodeAgree) {
  const struct {
    int code;
    int horizontal;
    int vertical;
  } rows[kAttachments] = {
      {10, 0, 0}, {11, 1, 0}, {12, 2, 0}, {14, 4, 0}, {1, 0, 3}, {2, 1, 3}, {3, 2, 3},
      {4, 0, 2},  {5, 1, 2},  {6, 2, 2},  {7, 0, 1},  {8, 1, 1}, {9, 2, 1},
  };
  for (int index = 0; index < kAttachments; ++index) {
    const auto& row = rows[index];
    int horizontal = -1;
    int vertical = -1;
    EXPECT_EQ(AttachIndexToModes(index, horizontal, vertical), 0) << index;
    EXPECT_EQ(horizontal, row.horizontal) << index;
    EXPECT_EQ(vertical, row.vertical) << index;
    EXPECT_EQ(ModesToAttachIndex(row.horizontal, row.vertical), index);
    EXPECT_EQ(ModesToAttachCode(row.horizontal, row.vertical), row.code) << index;
    EXPECT_EQ(AttachCodes[static_cast<std::size_t>(index)], row.code) << index;
  }
}

TEST(Attachment, OtherNumbers) {
  for (const int index : {-1, 13, 1000}) {
    int horizontal = 7;
    int vertical = 7;
    EXPECT_EQ(AttachIndexToModes(index, horizontal, vertical), -1);
    EXPECT_EQ(horizontal + vertical, 0);
  }
  for (int vertical = 0; vertical <= 3; ++vertical) {
    EXPECT_EQ(ModesToAttachCode(3, vertical), 13);
    EXPECT_EQ(ModesToAttachCode(5, vertical), 15);
    EXPECT_EQ(ModesToAttachIndex(3, vertical), -1);
    EXPECT_EQ(ModesToAttachIndex(4, vertical), vertical == 0 ? 3 : -1);
  }
  EXPECT_EQ(ModesToAttachCode(4, 1), 8);
  EXPECT_EQ(ModesToAttachCode(4, 2), 5);
  EXPECT_EQ(ModesToAttachCode(4, 3), 2);
  EXPECT_EQ(ModesToAttachCode(6, 0), -1);
  EXPECT_EQ(ModesToAttachCode(0, 4), -2);
}

TEST(TextList, GrowsByEightThenByItsLengthThenBy8192) {
  TextList list;
  for (const std::size_t allocated : {8U, 16U, 32U}) {
    while (static_cast<std::size_t>(list.size()) < allocated) TextListAdd(list, L"x");
    EXPECT_EQ(list.allocated(), allocated);
  }
  EXPECT_EQ(grownLength(8192), 16384U);
  EXPECT_EQ(grownLength(16384), 24576U);
}

TEST(TextList, CopiesShareTheStringsAndEmptyOnesCanBeCleared) {
  TextList list;
  EXPECT_EQ(TextListAdd(list, L"first"), 0);
  EXPECT_EQ(TextListAdd(list, nullptr), 1);
  TextList copy = list;
  EXPECT_EQ(copy[0].get(), list[0].get());
  ClearTextList(list);
  EXPECT_EQ(list.size(), 0);
  EXPECT_STREQ(copy[0].get(), L"first");
  EXPECT_STREQ(copy[1].get(), L"");
  TextList empty;
  TextList second = empty;
  ClearTextList(second);
  EXPECT_EQ(second.size(), 0);
}

TEST(NumberText, TrimsOnlyBehindAPoint) {
  const struct {
    std::wstring text;
    std::wstring trimmed;
  } cases[] = {{L"1.500", L"1.5"}, {L"2.000", L"2"}, {L"100", L"100"}, {L"0.0", L"0"}, {L"", L""}};
  for (auto each : cases) {
    TrimNumberTail(each.text);
    EXPECT_EQ(each.text, each.trimmed);
  }
}

}  // namespace
}  // namespace kovra
