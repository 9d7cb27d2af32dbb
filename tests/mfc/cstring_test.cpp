#include "platform/mfc/cstring.h"

#include <gtest/gtest.h>

#include <cwchar>

#include "platform/mfc/collections.h"
#include "platform/mfc/extension_module.h"

namespace {

TEST(CStringTest, PiecesAndPlaces) {
  const CString text(L"abcdef");
  const std::pair<CString, const wchar_t*> pieces[] = {
      {text.Mid(2), L"cdef"},
      {text.Mid(2, 2), L"cd"},
      {text.Mid(9), L""},
      {text.Mid(4, 9), L"ef"},
      {text.Left(2), L"ab"},
      {text.Left(-1), L""},
      {text.Left(99), L"abcdef"},
      {text.Right(2), L"ef"},
      {text.Right(99), L"abcdef"},
      {text.SpanIncluding(L"abx"), L"ab"},
      {text.SpanExcluding(L"dx"), L"abc"},
  };
  for (const auto& [piece, expected] : pieces) EXPECT_STREQ(piece, expected);
  EXPECT_EQ(text.Find(L'c'), 2);
  EXPECT_EQ(text.Find(L"cd", 3), -1);
  EXPECT_EQ(text.ReverseFind(L'f'), 5);
  EXPECT_EQ(text.FindOneOf(L"xe"), 4);
  EXPECT_EQ(text.GetAt(9), 0);
}

TEST(CStringTest, Changes) {
  struct Case {
    const wchar_t* start;
    void (*change)(CString&);
    const wchar_t* result;
  };
  const Case cases[] = {
      {L" \t a b \r\n", [](CString& s) { s.Trim(); }, L"a b"},
      {L"\x3000左\x3000右\x3000", [](CString& s) { s.Trim(); }, L"左\x3000右"},
      {L"  a ", [](CString& s) { s.TrimRight(); }, L"  a"},
      {L"  a ", [](CString& s) { s.TrimLeft(); }, L"a "},
      {L"00120", [](CString& s) { s.Trim(L'0'); }, L"12"},
      {L"2.500", [](CString& s) { s.TrimRight(L"0").TrimRight(L'.'); }, L"2.5"},
      {L"xx", [](CString& s) { s.Trim(L'x'); }, L""},
      {L"a,b,,c", [](CString& s) { s.Replace(L",,", L";"); }, L"a,b;c"},
      {L"aaa", [](CString& s) { s.Replace(L"a", L"aa"); }, L"aaaaaa"},
      {L"a-b-c", [](CString& s) { s.Remove(L'-'); }, L"abc"},
      {L"abc", [](CString& s) { s.Insert(1, L"xy"); }, L"axybc"},
      {L"abc", [](CString& s) { s.Insert(99, L'z'); }, L"abcz"},
      {L"abc", [](CString& s) { s.Delete(1, 99); }, L"a"},
      {L"ab", [](CString& s) { s += s; }, L"abab"},
      {L"ab", [](CString& s) { s = s.GetString() + 1; }, L"b"},
      {L"Ab左", [](CString& s) { s.MakeUpper(); }, L"AB左"},
      {L"abc", [](CString& s) { s.MakeReverse(); }, L"cba"},
      {L"", [](CString& s) { s.Format(L"%s-%d", L"右", 7); }, L"右-7"},
      {L"n=", [](CString& s) { s.AppendFormat(L"%.2f", 0.5); }, L"n=0.50"},
      {L"", [](CString& s) { s.FormatMessage(L"%2!d! %1", L"x", 4); }, L"4 x"},
      {L"abc", [](CString& s) { s.SetAt(1, L'-'); }, L"a-c"},
  };
  for (const Case& c : cases) {
    CString text(c.start);
    c.change(text);
    EXPECT_STREQ(text, c.result) << "from " << CString(c.start).GetLength();
  }
}

TEST(CStringTest, TokensSkipEmptyPieces) {
  const CString text(L",a,,b,");
  int at = 0;
  EXPECT_STREQ(text.Tokenize(L",", at), L"a");
  EXPECT_STREQ(text.Tokenize(L",", at), L"b");
  EXPECT_STREQ(text.Tokenize(L",", at), L"");
  EXPECT_EQ(at, -1);
}

TEST(CStringTest, BuffersKeepTheTextAndTakeANewOne) {
  CString text(L"abc");
  wchar_t* buffer = text.GetBuffer(10);
  EXPECT_STREQ(buffer, L"abc");
  std::wcscpy(buffer, L"longer");
  text.ReleaseBuffer();
  EXPECT_EQ(text.GetLength(), 6);
  text.GetBuffer(20);
  text.ReleaseBuffer(2);
  EXPECT_STREQ(text, L"lo");
}

TEST(CStringTest, ComparesAndJoins) {
  EXPECT_TRUE(CString(L"a") == L"a" && L"a" == CString(L"a") && CString(L"a") != L"b");
  EXPECT_EQ(CString(L"ABC").CompareNoCase(L"abc"), 0);
  EXPECT_LT(CString(L"a").Compare(L"b"), 0);
  EXPECT_STREQ(L"<" + CString(L"x") + L'>' + CString(L"y"), L"<x>y");
  EXPECT_STREQ(CString("\xE5\xB7\xA6"), L"左");
  EXPECT_TRUE(CString(static_cast<const wchar_t*>(nullptr)).IsEmpty());
}

TEST(CStringArrayTest, GrowsCopiesAndChecksItsIndexes) {
  CStringArray texts;
  EXPECT_EQ(texts.Add(L"a"), 0);
  EXPECT_EQ(texts.Add(L"b"), 1);
  texts.InsertAt(1, L"x");
  texts.RemoveAt(0);
  texts.SetAtGrow(3, L"d");
  ASSERT_EQ(texts.GetSize(), 4);
  EXPECT_STREQ(texts[0], L"x");
  EXPECT_STREQ(texts[2], L"");
  CStringArray copy;
  copy.Copy(texts);
  texts.RemoveAll();
  EXPECT_STREQ(copy.GetAt(3), L"d");
  EXPECT_THROW(texts.GetAt(0), std::out_of_range);
}

}  // namespace
