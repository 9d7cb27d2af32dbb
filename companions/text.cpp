#include "companions/text.h"

#include <cstddef>

#include "platform/win/base/wide_text.h"

namespace kovra::companions {
namespace {

constexpr char32_t kEscapeBase = 0xDC00;
constexpr char32_t kReplacement = 0xFFFD;

bool isSurrogate(char32_t c) {
  return c >= 0xD800 && c <= 0xDFFF;
}

// A byte 0x80 to 0xFF that wide() found outside any UTF-8 sequence.
bool isEscapedByte(char32_t c) {
  return c >= kEscapeBase + 0x80 && c <= kEscapeBase + 0xFF;
}

struct Decoded {
  char32_t character;
  std::size_t length;  // 0: no UTF-8 sequence begins here
};

// Refuses overlong forms, surrogates and values beyond Unicode (RFC 3629).
Decoded decodeOne(std::string_view bytes) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  const unsigned first = byte(0);
  if (first < 0x80) return {first, 1};
  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || bytes.size() < length) return {0, 0};
  char32_t character = first & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0) != 0x80) return {0, 0};
    character = character << 6 | (byte(i) & 0x3FU);
  }
  const char32_t smallest = length == 4 ? 0x10000 : length == 3 ? 0x800 : 0x80;
  if (character < smallest || character > 0x10FFFF || isSurrogate(character)) return {0, 0};
  return {character, length};
}

void appendUtf8(std::string& out, char32_t c) {
  const auto put = [&](char32_t byte) { out.push_back(static_cast<char>(byte)); };
  if (c < 0x80) {
    put(c);
  } else if (c < 0x800) {
    put(0xC0 | c >> 6);
    put(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    put(0xE0 | c >> 12);
    put(0x80 | (c >> 6 & 0x3F));
    put(0x80 | (c & 0x3F));
  } else {
    put(0xF0 | c >> 18);
    put(0x80 | (c >> 12 & 0x3F));
    put(0x80 | (c >> 6 & 0x3F));
    put(0x80 | (c & 0x3F));
  }
}

}  // namespace

std::wstring wide(std::string_view bytes) {
  std::wstring text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    Decoded next = decodeOne(bytes);
    if (next.length == 0) next = {kEscapeBase + static_cast<unsigned char>(bytes[0]), 1};
    text.push_back(static_cast<wchar_t>(next.character));
    bytes.remove_prefix(next.length);
  }
  return text;
}

std::string narrow(std::wstring_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (const wchar_t unit : text) {
    const auto c = static_cast<char32_t>(unit);
    if (isEscapedByte(c))
      bytes.push_back(static_cast<char>(c - kEscapeBase));
    else
      appendUtf8(bytes, isSurrogate(c) || c > 0x10FFFF ? kReplacement : c);
  }
  return bytes;
}

std::string foldCase(std::string_view text) {
  // By way of upper case, so that letters with two lower forms meet.
  return narrow(win::lowerCase(win::upperCase(wide(text))));
}

std::string_view trimBlanks(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(" \t");
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(" \t") - begin + 1);
}

}  // namespace kovra::companions
