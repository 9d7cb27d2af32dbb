#include <gtest/gtest.h>

#include "platform/dxf/text_codec.h"

namespace kovra::dxf::test {
namespace {

TextCodec codecFor(const std::string& page, int release = kR2000) {
  Dialect dialect;
  dialect.release = release;
  dialect.codePage = page;
  return TextCodec(dialect);
}

TEST(TextCodec, ReadsAndWritesEveryPage) {
  struct Case {
    const char* page;
    std::string bytes;
    std::wstring text;
  };
  const Case cases[] = {
      {"ANSI_1252", "\xe4\x80", L"\u00e4\u20ac"},
      {"ansi_1251", "\xcf\xf0", L"\u041f\u0440"},
      {"ANSI_1253", "\xe1", L"\u03b1"},
      {"ANSI_874", "\xa1", L"\u0e01"},
      {"dos850", "\x84", L"\u00e4"},
      {"DOS437", "\xe1", L"\u00df"},
      {"dos866", "\x8f", L"\u041f"},
      {"MAC-ROMAN", "\x8a", L"\u00e4"},
      {"ISO8859-2", "\xb1", L"\u0105"},
      // The second bytes of these are 0x5c: no backslash, and no escape begins there.
      {"ANSI_932", "\x95\x5cU+0041\x83\x5c", L"\u8868U+0041\u30bd"},
      {"dos932", "\xb1\x82\xa0~", L"\uff71\u3042~"},
      {"ANSI_950", "\xa5\x5c", L"\u529f"},
      {"ANSI_936", "\xd6\xd0", L"\u4e2d"},
      {"ANSI_949", "\xc7\xd1", L"\ud55c"},
      {"johab", "\x88\x61", L"\uac00"},
      {"ASCII", "\xe4\xff", L"\u00e4\u00ff"},
      {"UNDEFINED", "\xe4", L"\u00e4"},
      {"", "\x80\xa0", L"\u0080\u00a0"},
      {"no such page", "\xe4", L"\u00e4"},
  };
  for (const Case& test : cases) {
    const TextCodec codec = codecFor(test.page);
    EXPECT_EQ(codec.decode(test.bytes), test.text) << test.page;
    EXPECT_EQ(codec.encode(test.text), test.bytes) << test.page;
  }
  const TextCodec utf8 = codecFor("ANSI_1252", kR2007);
  EXPECT_EQ(utf8.decode("\xc3\xa4\xe4\xb8\xad\xf0\x9f\x98\x80"), L"\u00e4\u4e2d\U0001f600");
  EXPECT_EQ(utf8.encode(L"\u00e4\u4e2d\U0001f600"), "\xc3\xa4\xe4\xb8\xad\xf0\x9f\x98\x80");
}

TEST(TextCodec, ReadsEscapesInAllPages) {
  const std::pair<const char*, const wchar_t*> cases[] = {
      {"\\U+00E4x", L"\u00e4x"},
      {"\\u+4e2D", L"\u4e2d"},
      {"\\U+D83D\\U+DE00", L"\U0001f600"},
      {"\\M+182A0", L"\u3042"},
      {"\\M+1955C", L"\u8868"},
      {"\\M+2A5CD", L"\u751f"},
      {"\\M+3C7D1", L"\ud55c"},
      {"\\m+48861", L"\uac00"},
      {"\\M+5D6D0", L"\u4e2d"},
      // What is no escape stays as it is.
      {"\\U+00E", L"\\U+00E"},
      {"\\U+00EX", L"\\U+00EX"},
      {"\\U+D83D", L"\\U+D83D"},
      {"\\U+DE00x", L"\\U+DE00x"},
      {"\\M+682A0", L"\\M+682A0"},
      {"\\M+1FFFF", L"\\M+1FFFF"},
      {"\\\\U+", L"\\\\U+"},
      {"\\", L"\\"},
      {"\\P\\fArial;", L"\\P\\fArial;"},
  };
  for (const int release : {kR2000, kR2018}) {
    const TextCodec codec = codecFor("ANSI_1252", release);
    for (const auto& [bytes, text] : cases) EXPECT_EQ(codec.decode(bytes), text) << bytes;
  }
}

TEST(TextCodec, EscapesWhatThePageDoesntHave) {
  const TextCodec latin = codecFor("ANSI_1252");
  EXPECT_EQ(latin.encode(L"a\u4e2d\U0001f600\u20ac"), "a\\U+4E2D\\U+D83D\\U+DE00\x80");
  EXPECT_EQ(codecFor("ANSI_932").encode(L"\u8868\u00e4"), "\x95\x5c\\U+00E4");
  EXPECT_EQ(latin.encode(L"a\r\nb"), "a^M^Jb") << "a value is one line";
}

TEST(TextCodec, KeepsBytesThatDontDecode) {
  const std::pair<const char*, const char*> cases[] = {
      {"ANSI_1252", "a\x81z\x9d"},   {"ANSI_932", "\x95"},  // half a character at the end
      {"ANSI_932", "\x85\x20\xfd"},                         // no characters
      {"utf8", "\xff\xc3(\xe4\xb8"}, {"utf8", "\xc0\x80\xed\xa0\x80"},  // a long form, a surrogate
  };
  for (const auto& [page, bytes] : cases) {
    const bool utf8 = std::string(page) == "utf8";
    const TextCodec codec = codecFor(page, utf8 ? kR2007 : kR2000);
    EXPECT_EQ(codec.encode(codec.decode(bytes)), bytes) << page;
    EXPECT_EQ(codec.encode(codec.decode(bytes) + L"!"), std::string(bytes) + "!") << page;
  }
}

TEST(TextCodec, FoldsNamesWithoutTheLocale) {
  EXPECT_TRUE(
      equalNames(L"W\u00c4NDE \u0428\u041a\u0410\u0424", L"w\u00e4nde \u0448\u043a\u0430\u0444"));
  EXPECT_TRUE(equalNames(L"\u8868", L"\u8868"));
  EXPECT_FALSE(equalNames(L"a", L"ab"));
  EXPECT_FALSE(equalNames(L"a", L"\u00e4"));
  EXPECT_EQ(foldCase(L"W\u00c4"), foldCase(L"w\u00e4"));
}

TEST(TextCodec, CaretsStandForControlCharacters) {
  EXPECT_EQ(decodeCarets(L"a^Jb^Ic^ d^"), L"a\nb\tc^d^");
  EXPECT_EQ(decodeCarets(L"^a"), L"^a");
  EXPECT_EQ(encodeCarets(L"a\nb\tc^d"), L"a^Jb^Ic^ d");
}

}  // namespace
}  // namespace kovra::dxf::test
