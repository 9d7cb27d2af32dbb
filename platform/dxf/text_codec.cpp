#include "platform/dxf/text_codec.h"

#include <algorithm>

#include "platform/dxf/code_page.h"

namespace kovra::dxf {

namespace {

// Bytes that don't decode travel as these lone surrogates.
constexpr char32_t kRawFirst = 0xdc80;
constexpr char32_t kRawLast = 0xdcff;

bool isHighSurrogate(char32_t c) {
  return c >= 0xd800 && c <= 0xdbff;
}
bool isLowSurrogate(char32_t c) {
  return c >= 0xdc00 && c <= 0xdfff;
}

/// Reads one character of UTF-8 at `at`; false (and `at` unmoved) for a malformed one, for
/// surrogates and for longer forms than needed.
bool decodeUtf8(std::string_view bytes, std::size_t& at, char32_t& character) {
  const auto byte = [&](std::size_t n) { return static_cast<unsigned char>(bytes[n]); };
  const unsigned char first = byte(at);
  std::size_t size = 1;
  char32_t value = first;
  if (first >= 0xf0 && first < 0xf8) {
    size = 4;
    value = first & 0x07U;
  } else if (first >= 0xe0 && first < 0xf0) {
    size = 3;
    value = first & 0x0fU;
  } else if (first >= 0xc0 && first < 0xe0) {
    size = 2;
    value = first & 0x1fU;
  } else if (first >= 0x80) {
    return false;
  }
  if (bytes.size() - at < size) return false;
  for (std::size_t n = 1; n < size; ++n) {
    if ((byte(at + n) & 0xc0U) != 0x80) return false;
    value = value << 6U | (byte(at + n) & 0x3fU);
  }
  constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  if (value < kSmallest[size] || value > 0x10ffff) return false;
  if (isHighSurrogate(value) || isLowSurrogate(value)) return false;
  character = value;
  at += size;
  return true;
}

void encodeUtf8(char32_t c, std::string& out) {
  const auto put = [&out](char32_t byte) { out.push_back(static_cast<char>(byte)); };
  if (c < 0x80) {
    put(c);
  } else if (c < 0x800) {
    put(0xc0U | c >> 6U);
    put(0x80U | (c & 0x3fU));
  } else if (c < 0x10000) {
    put(0xe0U | c >> 12U);
    put(0x80U | (c >> 6U & 0x3fU));
    put(0x80U | (c & 0x3fU));
  } else {
    put(0xf0U | c >> 18U);
    put(0x80U | (c >> 12U & 0x3fU));
    put(0x80U | (c >> 6U & 0x3fU));
    put(0x80U | (c & 0x3fU));
  }
}

/// Four hexadecimal digits at `at`; false if there aren't four.
bool fourDigits(std::string_view bytes, std::size_t at, char32_t& value) {
  if (bytes.size() < at + 4) return false;
  value = 0;
  for (const char c : bytes.substr(at, 4)) {
    const bool digit = c >= '0' && c <= '9';
    const char letter = static_cast<char>(c | 0x20);
    if (!digit && (letter < 'a' || letter > 'f')) return false;
    value = value << 4U | static_cast<char32_t>(digit ? c - '0' : letter - 'a' + 10);
  }
  return true;
}

bool startsEscape(std::string_view bytes, std::size_t at, char lowerLetter) {
  return bytes.size() > at + 2 && bytes[at] == '\\' && (bytes[at + 1] | 0x20) == lowerLetter &&
         bytes[at + 2] == '+';
}

/// Reads \U+XXXX, also two that make one character. A lone surrogate is no character: it is left as
/// the letters that it is written with.
bool readUnicodeEscape(std::string_view bytes, std::size_t& at, char32_t& character) {
  constexpr std::size_t kSize = 7;
  char32_t value = 0;
  if (!startsEscape(bytes, at, 'u') || !fourDigits(bytes, at + 3, value)) return false;
  std::size_t size = kSize;
  if (isHighSurrogate(value)) {
    char32_t low = 0;
    const bool second =
        startsEscape(bytes, at + kSize, 'u') && fourDigits(bytes, at + kSize + 3, low);
    if (!second || !isLowSurrogate(low)) return false;
    value = 0x10000 + ((value - 0xd800) << 10U) + (low - 0xdc00);
    size += kSize;
  }
  if (isLowSurrogate(value) || value == 0) return false;
  character = value;
  at += size;
  return true;
}

/// Reads \M+NXXXX.
bool readMultibyteEscape(std::string_view bytes, std::size_t& at, char32_t& character) {
  constexpr std::size_t kSize = 8;
  char32_t value = 0;
  if (!startsEscape(bytes, at, 'm') || bytes.size() < at + kSize) return false;
  const CodePage* page = multibytePage(bytes[at + 3]);
  if (page == nullptr || !fourDigits(bytes, at + 4, value)) return false;
  const char pair[] = {static_cast<char>(value >> 8U), static_cast<char>(value & 0xffU)};
  // A character of one byte is written with a leading zero byte.
  const std::string_view coded =
      pair[0] == 0 ? std::string_view(pair + 1, 1) : std::string_view(pair, 2);
  std::size_t used = 0;
  if (!page->decode(coded, used, character) || used != coded.size()) return false;
  at += kSize;
  return true;
}

void appendEscape(char32_t c, std::string& out) {
  out.append("\\U+");
  for (int shift = 12; shift >= 0; shift -= 4) {
    out.push_back("0123456789ABCDEF"[c >> shift & 0xfU]);
  }
}

void appendEscapes(char32_t c, std::string& out) {
  if (c < 0x10000) return appendEscape(c, out);
  appendEscape(0xd800 + ((c - 0x10000) >> 10U), out);
  appendEscape(0xdc00 + ((c - 0x10000) & 0x3ffU), out);
}

}  // namespace

/// The encoding of one drawing.
class TextCodec::Page {
 public:
  explicit Page(const Dialect& dialect)
      : utf8_(dialect.utf8()), page_(converterName(dialect.codePage)) {}

  bool decode(std::string_view bytes, std::size_t& at, char32_t& character) const {
    return utf8_ ? decodeUtf8(bytes, at, character) : page_.decode(bytes, at, character);
  }

  void encode(char32_t c, std::string& out) const {
    if (c >= kRawFirst && c <= kRawLast) {
      out.push_back(static_cast<char>(c & 0xffU));
    } else if (isHighSurrogate(c) || isLowSurrogate(c) || c > 0x10ffff) {
      out.push_back('?');
    } else if (utf8_) {
      encodeUtf8(c, out);
    } else if (!page_.encode(c, out)) {
      appendEscapes(c, out);
    }
  }

 private:
  bool utf8_;
  CodePage page_;
};

TextCodec::TextCodec(const Dialect& dialect) : page_(std::make_unique<Page>(dialect)) {}
TextCodec::~TextCodec() = default;
TextCodec::TextCodec(TextCodec&&) noexcept = default;
TextCodec& TextCodec::operator=(TextCodec&&) noexcept = default;

bool isPlainText(std::string_view bytes) {
  for (const char c : bytes)
    if (static_cast<unsigned char>(c) >= 0x80 || c == '\\') return false;
  return true;
}

void TextCodec::decode(std::string_view bytes, std::wstring& out) const {
  if (isPlainText(bytes)) {
    // Not assign(): between types of character it makes a string for itself first.
    out.resize(bytes.size());
    std::copy(bytes.begin(), bytes.end(), out.begin());
    return;
  }
  out.clear();
  std::size_t at = 0;
  while (at < bytes.size()) {
    char32_t character = 0;
    const bool escape = bytes[at] == '\\' && (readUnicodeEscape(bytes, at, character) ||
                                              readMultibyteEscape(bytes, at, character));
    if (!escape && !page_->decode(bytes, at, character)) {
      character = 0xdc00U + static_cast<unsigned char>(bytes[at++]);
    }
    out.push_back(static_cast<wchar_t>(character));
  }
}

std::wstring TextCodec::decode(std::string_view bytes) const {
  std::wstring out;
  decode(bytes, out);
  return out;
}

std::string TextCodec::encode(std::wstring_view text) const {
  std::string out;
  out.reserve(text.size());
  for (const wchar_t c : text) {
    if (c == L'\n') {
      out.append("^J");
    } else if (c == L'\r') {
      out.append("^M");
    } else if (c != 0) {
      page_->encode(static_cast<char32_t>(c), out);
    }
  }
  return out;
}

bool TextCodec::sameText(std::string_view left, std::string_view right) const {
  if (left == right) return true;
  if (isPlainText(left) && isPlainText(right)) return false;
  return decode(left) == decode(right);
}

}  // namespace kovra::dxf
