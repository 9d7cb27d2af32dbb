#include "platform/win/base/wide_text.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cwchar>
#include <cwctype>
#include <vector>

namespace kovra::win {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
// Where wchar_t has 16 bits, characters beyond U+FFFF are pairs in a wide text.
constexpr bool kPairs = sizeof(wchar_t) == 2;

bool isHighSurrogate(char32_t c) {
  return c >= 0xD800 && c <= 0xDBFF;
}
bool isLowSurrogate(char32_t c) {
  return c >= 0xDC00 && c <= 0xDFFF;
}

char32_t joinSurrogates(char32_t high, char32_t low) {
  return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}

void appendUtf8(std::string& bytes, char32_t c) {
  const auto put = [&bytes](char32_t unit) { bytes += static_cast<char>(unit); };
  if (c < 0x80) {
    put(c);
  } else if (c < 0x800) {
    put(0xC0 | (c >> 6));
    put(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    put(0xE0 | (c >> 12));
    put(0x80 | ((c >> 6) & 0x3F));
    put(0x80 | (c & 0x3F));
  } else {
    put(0xF0 | (c >> 18));
    put(0x80 | ((c >> 12) & 0x3F));
    put(0x80 | ((c >> 6) & 0x3F));
    put(0x80 | (c & 0x3F));
  }
}

void appendWide(std::wstring& text, char32_t c) {
  if (kPairs && c > 0xFFFF) {
    text += static_cast<wchar_t>(0xD800 + ((c - 0x10000) >> 10));
    text += static_cast<wchar_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
  } else {
    text += static_cast<wchar_t>(c);
  }
}

/// Bytes that a lead byte announces; 0 for a byte that can't lead.
std::size_t sequenceLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xF0 && lead <= 0xF4) return 4;
  return 0;
}

/// One character at the beginning of `bytes`, which isn't empty, and its length.
char32_t decode(std::string_view bytes, std::size_t& length) {
  const auto lead = static_cast<unsigned char>(bytes[0]);
  length = 1;
  const std::size_t wanted = sequenceLength(lead);
  if (wanted == 1) return lead;
  if (wanted == 0 || bytes.size() < wanted) return kReplacement;
  char32_t c = lead & (0xFFU >> (wanted + 1));
  for (std::size_t i = 1; i < wanted; ++i) {
    const auto next = static_cast<unsigned char>(bytes[i]);
    if ((next & 0xC0) != 0x80) return kReplacement;
    c = (c << 6) | (next & 0x3FU);
  }
  const bool overlong = (wanted == 3 && c < 0x800) || (wanted == 4 && c < 0x10000);
  if (overlong || c > 0x10FFFF || isHighSurrogate(c) || isLowSurrogate(c)) return kReplacement;
  length = wanted;
  return c;
}

}  // namespace

std::string toUtf8(std::wstring_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    auto c = static_cast<char32_t>(text[i]);
    if (isHighSurrogate(c) && i + 1 < text.size() &&
        isLowSurrogate(static_cast<char32_t>(text[i + 1]))) {
      c = joinSurrogates(c, static_cast<char32_t>(text[++i]));
    }
    if (c > 0x10FFFF || isHighSurrogate(c) || isLowSurrogate(c)) c = kReplacement;
    appendUtf8(bytes, c);
  }
  return bytes;
}

std::wstring fromUtf8(std::string_view bytes) {
  std::wstring text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    std::size_t length = 0;
    appendWide(text, decode(bytes, length));
    bytes.remove_prefix(length);
  }
  return text;
}

std::wstring fromUtf16(const char16_t* units, std::size_t count) {
  std::wstring text;
  text.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    char32_t c = units[i];
    if (isHighSurrogate(c) && i + 1 < count && isLowSurrogate(units[i + 1])) {
      c = joinSurrogates(c, units[++i]);
    } else if (isHighSurrogate(c) || isLowSurrogate(c)) {
      c = kReplacement;
    }
    appendWide(text, c);
  }
  return text;
}

std::size_t utf8Cut(std::string_view text, std::size_t limit) {
  if (text.size() <= limit) return text.size();
  while (limit > 0 && (static_cast<unsigned char>(text[limit]) & 0xC0) == 0x80) --limit;
  return limit;
}

namespace {

/// Case folding of one character without the process's locale, for the scripts that drawings and
/// projects are written in: Latin, Greek, Cyrillic and the full-width Latin letters.
wchar_t lowerCharacter(wchar_t c) {
  const auto u = static_cast<char32_t>(c);
  const auto shifted = [u](char32_t by) { return static_cast<wchar_t>(u + by); };
  if (u < 0x80) return u >= 'A' && u <= 'Z' ? shifted(32) : c;
  if (u >= 0xC0 && u <= 0xDE && u != 0xD7) return shifted(32);
  if (u >= 0x100 && u <= 0x17E) {
    if (u == 0x130 || u == 0x131 || u == 0x138 || u == 0x149 || u == 0x178) return c;
    const bool oddIsUpper = (u >= 0x139 && u <= 0x148) || u >= 0x179;
    return (u % 2 == 1) == oddIsUpper ? shifted(1) : c;
  }
  if (u >= 0x391 && u <= 0x3A9 && u != 0x3A2) return shifted(32);
  if (u >= 0x410 && u <= 0x42F) return shifted(32);
  if (u >= 0x400 && u <= 0x40F) return shifted(80);
  if (u >= 0xFF21 && u <= 0xFF3A) return shifted(32);
  return c;
}

wchar_t upperCharacter(wchar_t c) {
  const auto u = static_cast<char32_t>(c);
  if (u < 0x80) return u >= 'a' && u <= 'z' ? static_cast<wchar_t>(u - 32) : c;
  for (const char32_t by : {32U, 1U, 80U}) {
    if (u < by) continue;
    const auto candidate = static_cast<wchar_t>(u - by);
    if (candidate != c && lowerCharacter(candidate) == c) return candidate;
  }
  return c;
}

}  // namespace

int compareNoCase(std::wstring_view a, std::wstring_view b) {
  const std::size_t common = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < common; ++i) {
    if (a[i] == b[i]) continue;
    const wchar_t x = lowerCharacter(a[i]);
    const wchar_t y = lowerCharacter(b[i]);
    if (x != y) return x < y ? -1 : 1;
  }
  if (a.size() == b.size()) return 0;
  return a.size() < b.size() ? -1 : 1;
}

bool equalNoCase(std::wstring_view a, std::wstring_view b) {
  return a.size() == b.size() && compareNoCase(a, b) == 0;
}

std::wstring upperCase(std::wstring_view text) {
  std::wstring result(text);
  std::transform(result.begin(), result.end(), result.begin(), upperCharacter);
  return result;
}

std::wstring lowerCase(std::wstring_view text) {
  std::wstring result(text);
  std::transform(result.begin(), result.end(), result.begin(), lowerCharacter);
  return result;
}

namespace {

bool isBlank(wchar_t c) {
  return c == L' ' || (c >= L'\t' && c <= L'\r');
}
bool isDigit(wchar_t c) {
  return c >= L'0' && c <= L'9';
}

template <typename Character>
int parseInteger(const Character* text) {
  const auto at = [&text] { return static_cast<wchar_t>(*text); };
  if (text == nullptr) return 0;
  while (isBlank(at())) ++text;
  const bool negative = at() == L'-';
  if (negative || at() == L'+') ++text;
  long long value = 0;
  for (; isDigit(at()) && value <= INT_MAX; ++text) value = value * 10 + (at() - L'0');
  if (negative) value = -value;
  return static_cast<int>(std::clamp<long long>(value, INT_MIN, INT_MAX));
}

/// Takes digits over and gives where they end.
const wchar_t* copyDigits(const wchar_t* text, std::string& number) {
  for (; isDigit(*text); ++text) number += static_cast<char>(*text);
  return text;
}

/// The decimal number at the beginning of `text` in plain characters; `end` stands behind it, or at
/// `text` when there is none.
std::string scanDecimal(const wchar_t* text, const wchar_t*& end) {
  std::string number;
  end = text;
  while (isBlank(*text)) ++text;
  if (*text == L'-') number = "-";
  if (*text == L'-' || *text == L'+') ++text;
  const std::size_t signLength = number.size();
  text = copyDigits(text, number);
  const std::size_t whole = number.size() - signLength;
  if (*text == L'.') {
    number += '.';
    text = copyDigits(text + 1, number);
  }
  if (number.size() == signLength || (whole == 0 && number.size() == signLength + 1)) return {};
  end = text;
  if (*text != L'e' && *text != L'E') return number;
  std::string exponent = "e";
  ++text;
  if (*text == L'-' || *text == L'+') exponent += static_cast<char>(*text++);
  const std::size_t before = exponent.size();
  text = copyDigits(text, exponent);
  if (exponent.size() == before) return number;
  end = text;
  return number + exponent;
}

}  // namespace
}  // namespace kovra::win

int _wtoi(const wchar_t* text) {
  return kovra::win::parseInteger(text);
}
int _atoi(const char* text) {
  return kovra::win::parseInteger(text);
}

double _wcstod(const wchar_t* text, wchar_t** end) {
  if (text == nullptr) return 0;
  const wchar_t* behind = nullptr;
  const std::string number = kovra::win::scanDecimal(text, behind);
  if (end != nullptr) *end = const_cast<wchar_t*>(behind);
  return number.empty() ? 0.0 : std::strtod(number.c_str(), nullptr);
}

double _wtof(const wchar_t* text) {
  return _wcstod(text, nullptr);
}

namespace {

std::wstring_view viewOf(const wchar_t* text) {
  return text != nullptr ? std::wstring_view(text) : std::wstring_view();
}

}  // namespace

int lstrcmpW(const wchar_t* a, const wchar_t* b) {
  const int order = viewOf(a).compare(viewOf(b));
  return order == 0 ? 0 : (order < 0 ? -1 : 1);
}
int lstrcmpiW(const wchar_t* a, const wchar_t* b) {
  return kovra::win::compareNoCase(viewOf(a), viewOf(b));
}
int _wcsicmp(const wchar_t* a, const wchar_t* b) {
  return lstrcmpiW(a, b);
}
int _wcsnicmp(const wchar_t* a, const wchar_t* b, std::size_t count) {
  return kovra::win::compareNoCase(viewOf(a).substr(0, count), viewOf(b).substr(0, count));
}
int lstrlenW(const wchar_t* text) {
  return static_cast<int>(viewOf(text).size());
}

int _ismbblead(unsigned int /*byte*/) {
  return 0;
}

namespace {

/// The shared end of both conversions: hands over what fits, or says how much is needed.
template <typename Text, typename Character>
int handOver(const Text& text, Character* buffer, int capacity) {
  const int length = static_cast<int>(text.size());
  if (capacity == 0) return length;
  if (buffer == nullptr || capacity < length) return 0;
  std::copy(text.begin(), text.end(), buffer);
  return length;
}

}  // namespace

int MultiByteToWideChar(UINT /*codePage*/, DWORD /*flags*/, const char* text, int length,
                        wchar_t* wide, int capacity) {
  if (text == nullptr || length == 0) return 0;
  const std::string_view bytes =
      length < 0 ? std::string_view(text, std::char_traits<char>::length(text) + 1)
                 : std::string_view(text, static_cast<std::size_t>(length));
  return handOver(kovra::win::fromUtf8(bytes), wide, capacity);
}

int WideCharToMultiByte(UINT /*codePage*/, DWORD /*flags*/, const wchar_t* text, int length,
                        char* bytes, int capacity, const char* /*replacement*/, BOOL* replaced) {
  if (replaced != nullptr) *replaced = FALSE;
  if (text == nullptr || length == 0) return 0;
  const std::wstring_view wide = length < 0
                                     ? std::wstring_view(text, std::wcslen(text) + 1)
                                     : std::wstring_view(text, static_cast<std::size_t>(length));
  return handOver(kovra::win::toUtf8(wide), bytes, capacity);
}
