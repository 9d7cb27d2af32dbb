#include <gtest/gtest.h>

#include <climits>
#include <cmath>

#include "platform/win/base/message_format.h"
#include "platform/win/base/wide_format.h"
#include "platform/win/base/wide_text.h"

namespace kovra::win {
namespace {

TEST(WideFormat, FollowsThePlatformsRules) {
  const std::pair<std::wstring, const wchar_t*> cases[] = {
      {formatWide(L"%s|%10s|%-4s|%.2s|", L"ab", L"右寄せ", L"x", L"abc"),
       L"ab|       右寄せ|x   |ab|"},
      {formatWide(L"%S %hs %ls", "n\xC3\xA4", "h", L"w"), L"nä h w"},
      {formatWide(L"%d %5d %-5d| %05d %+d", 1, 2, 3, -4, 5), L"1     2 3    | -0004 +5"},
      {formatWide(L"%u %x %X %#o", 7U, 255U, 255U, 8U), L"7 ff FF 010"},
      {formatWide(L"%ld %lu", -3, 4U), L"-3 4"},
      {formatWide(L"%lld %I64d", -3LL, 1LL << 40), L"-3 1099511627776"},
      {formatWide(L"%.8f %g %e", 2.5, 0.1, 1.0), L"2.50000000 0.1 1.000000e+00"},
      {formatWide(L"%*d|%-*d|%.*f", 4, 1, 4, 2, 1, 0.25), L"   1|2   |0.2"},
      {formatWide(L"%c%c%%", L'字', 'x'), L"字x%"},
      {formatWide(L"%s %n!", nullptr, nullptr), L"(null) !"},
      {formatWide(L"100% %"), L"100%"},
  };
  for (const auto& [formatted, expected] : cases) EXPECT_EQ(formatted, expected);
  EXPECT_LE(formatWide(L"%999999999d", 1).size(), 10000U);
}

std::wstring numbered(const wchar_t* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  std::wstring text = formatNumberedV(format, arguments);
  va_end(arguments);
  return text;
}

TEST(WideFormat, NumberedArgumentsComeInAnyOrder) {
  EXPECT_EQ(numbered(L"%2!d! of %1, %1%n100%%", L"text", 7), L"7 of text, text\r\n100%");
  EXPECT_EQ(numbered(L"%1!04X!", 255), L"00FF");
  EXPECT_EQ(numbered(L"a%0b"), L"a");
}

TEST(WideFormat, MessagesFitTheirBufferOrFail) {
  constexpr DWORD kArray = FORMAT_MESSAGE_FROM_STRING | FORMAT_MESSAGE_ARGUMENT_ARRAY;
  DWORD_PTR inserts[] = {reinterpret_cast<DWORD_PTR>(L"図%1\n"), 7, 0,
                         reinterpret_cast<DWORD_PTR>(L"D")};
  const struct {
    const wchar_t* format;
    DWORD_PTR* inserts;
    DWORD capacity;
    const wchar_t* text;  ///< null: it fails
  } cases[] = {
      {L"\"%1\"%2!02d! 100%%%n%t%r%.%! %4!-3s!|%", inserts, 99,
       L"\"図%1\n\"07 100%\r\n\t\r.! D  |%"},
      {L"a\nb\r\nc%0d", nullptr, 99, L"a\r\nb\r\nc"},
      {L"%4%4", inserts, 3, L"DD"},
      {L"%4%4", inserts, 2, nullptr},
      {L"%1", nullptr, 99, nullptr},
      {nullptr, inserts, 99, nullptr},
  };
  for (const auto& c : cases) {
    wchar_t buffer[99] = L"before";
    const DWORD length = FormatMessageW(kArray, c.format, 0, 0, buffer, c.capacity,
                                        reinterpret_cast<std::va_list*>(c.inserts));
    EXPECT_STREQ(buffer, c.text != nullptr ? c.text : L"before");
    EXPECT_EQ(length, c.text != nullptr ? std::wcslen(c.text) : 0);
  }
}

TEST(WideFormat, IntoABufferCutsAndEndsTheText) {
  wchar_t buffer[4];
  EXPECT_EQ(formatWideInto(buffer, 4, L"%d", 123), 3);
  EXPECT_EQ(formatWideInto(buffer, 4, L"%d", 12345), -1);
  EXPECT_STREQ(buffer, L"123");
}

TEST(WideText, Numbers) {
  const std::pair<const wchar_t*, int> integers[] = {{L"12", 12},
                                                     {L" \t-7x", -7},
                                                     {L"+3", 3},
                                                     {L"", 0},
                                                     {L"x1", 0},
                                                     {L"- 1", 0},
                                                     {L"0x10", 0},
                                                     {L"１２", 0},
                                                     {L"007", 7},
                                                     {L"99999999999", INT_MAX},
                                                     {L"-99999999999", INT_MIN}};
  for (const auto& [text, value] : integers) EXPECT_EQ(_wtoi(text), value) << toUtf8(text);
  const std::pair<const wchar_t*, double> reals[] = {
      {L"2.5", 2.5},  {L" -.5", -0.5}, {L"1.2.3", 1.2}, {L"5.", 5},  {L".", 0},
      {L"1e2x", 100}, {L"1e", 1},      {L"1e+", 1},     {L"inf", 0}, {L"nan", 0},
      {L"0x1F", 0},   {L"", 0},        {L"-", 0},       {L"1,5", 1}};
  for (const auto& [text, value] : reals) EXPECT_EQ(_wtof(text), value) << toUtf8(text);
}

TEST(WideText, Utf8ThereAndBack) {
  for (const wchar_t* text : {L"", L"plain", L"左寄せ ÄÖ Ж", L"\U0001F600"}) {
    EXPECT_EQ(fromUtf8(toUtf8(text)), text);
  }
  EXPECT_EQ(fromUtf8("a\xFF\xE5\xB7z\xC0\x80"), L"a\xFFFD\xFFFD\xFFFDz\xFFFD\xFFFD");
  EXPECT_EQ(toUtf8(std::wstring(1, wchar_t(0xD800))), "\xEF\xBF\xBD");
  const std::string left = toUtf8(L"a左");
  EXPECT_EQ(utf8Cut(left, 3), 1U);
  EXPECT_EQ(utf8Cut(left, 4), 4U);
}

TEST(WideText, ConversionsAsThePlatformCallsThem) {
  wchar_t wide[8];
  EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "\xE5\xB7\xA6", -1, nullptr, 0), 2);
  EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "\xE5\xB7\xA6", -1, wide, 8), 2);
  EXPECT_STREQ(wide, L"左");
  EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "abc", 3, wide, 2), 0);
  char narrow[8];
  EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, L"左", 1, narrow, 8, nullptr, nullptr), 3);
}

TEST(WideText, CaseOfLettersInAllScriptsOfDrawings) {
  for (const auto& [a, b] : {std::pair{L"Name", L"nAME"},
                             {L"ЖЁ", L"жё"},
                             {L"ÄÑ", L"äñ"},
                             {L"Ａｂ", L"ａＢ"},
                             {L"ΑΩ", L"αω"},
                             {L"Ź", L"ź"}}) {
    EXPECT_EQ(lstrcmpiW(a, b), 0) << toUtf8(a);
    EXPECT_EQ(upperCase(a), upperCase(b));
  }
  EXPECT_LT(lstrcmpiW(L"a", L"B"), 0);
  EXPECT_GT(lstrcmpiW(L"ab", L"A"), 0);
  EXPECT_NE(lstrcmpiW(L"×", L"÷"), 0);
  EXPECT_EQ(upperCase(L"ß÷"), L"ß÷");
}

}  // namespace
}  // namespace kovra::win
