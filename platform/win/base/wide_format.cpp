#include "platform/win/base/wide_format.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <cwchar>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/win/base/wide_text.h"

namespace kovra::win {
namespace {

enum class Length { none, narrow, byte, wide, wide64, size };

/// One conversion of a format, taken apart.
struct Spec {
  bool left = false;
  bool plus = false;
  bool blank = false;
  bool alternate = false;
  bool zero = false;
  bool starWidth = false;
  bool starPrecision = false;
  int width = 0;
  int precision = -1;
  Length length = Length::none;
  wchar_t type = 0;
};

/// Fields wider than this are cut down to it: no caller means more, and the memory is bounded.
constexpr int kWidestField = 4096;

int readNumber(const wchar_t*& at) {
  int number = 0;
  for (; *at >= L'0' && *at <= L'9'; ++at) {
    number = std::min(kWidestField, number * 10 + *at - L'0');
  }
  return number;
}

bool readFlag(wchar_t c, Spec& spec) {
  switch (c) {
    case L'-':
      return spec.left = true;
    case L'+':
      return spec.plus = true;
    case L' ':
      return spec.blank = true;
    case L'#':
      return spec.alternate = true;
    case L'0':
      return spec.zero = true;
    default:
      return false;
  }
}

bool skip(const wchar_t*& at, std::wstring_view word) {
  if (std::wstring_view(at).substr(0, word.size()) != word) return false;
  at += word.size();
  return true;
}

Length readLength(const wchar_t*& at) {
  if (skip(at, L"hh")) return Length::byte;
  if (skip(at, L"h")) return Length::narrow;
  if (skip(at, L"ll") || skip(at, L"I64") || skip(at, L"j")) return Length::wide64;
  if (skip(at, L"I32") || skip(at, L"l") || skip(at, L"w")) return Length::wide;
  if (skip(at, L"z") || skip(at, L"t") || skip(at, L"I")) return Length::size;
  if (skip(at, L"L")) return Length::wide64;
  return Length::none;
}

/// Reads what stands behind a percent sign, up to and with the conversion's letter.
Spec readSpec(const wchar_t*& at) {
  Spec spec;
  while (readFlag(*at, spec)) ++at;
  spec.starWidth = skip(at, L"*");
  if (!spec.starWidth) spec.width = readNumber(at);
  if (skip(at, L".")) {
    spec.starPrecision = skip(at, L"*");
    spec.precision = spec.starPrecision ? -1 : readNumber(at);
  }
  spec.length = readLength(at);
  spec.type = *at;
  if (*at != 0) ++at;
  return spec;
}

/// The arguments of a format: `slots` if there are some, of a word each, else `list`. A va_list
/// can't be handed on by reference where it is an array, so it travels inside an object.
struct Arguments {
  std::va_list list;
  const std::uintptr_t* slots = nullptr;

  template <typename Value>
  Value next() {
    if (slots == nullptr) return va_arg(list, Value);
    static_assert(sizeof(Value) <= sizeof *slots);
    Value value;
    std::memcpy(&value, slots++, sizeof value);
    return value;
  }
  int integer() { return next<int>(); }
};

void readStars(Spec& spec, Arguments& arguments) {
  if (spec.starWidth) {
    spec.width = arguments.integer();
    if (spec.width < 0) {
      spec.left = true;
      spec.width = spec.width < -kWidestField ? kWidestField : -spec.width;
    }
    spec.width = std::min(spec.width, kWidestField);
  }
  if (spec.starPrecision) spec.precision = std::min(arguments.integer(), kWidestField);
}

std::wstring padded(std::wstring text, const Spec& spec) {
  const auto width = static_cast<std::size_t>(spec.width);
  if (text.size() >= width) return text;
  const std::wstring fill(width - text.size(), spec.zero && !spec.left ? L'0' : L' ');
  return spec.left ? text + fill : fill + text;
}

std::wstring cutText(std::wstring_view text, const Spec& spec) {
  if (spec.precision >= 0) text = text.substr(0, static_cast<std::size_t>(spec.precision));
  return padded(std::wstring(text), spec);
}

/// The same conversion for the narrow printf, whose digits are plain characters.
std::string narrowFormat(const Spec& spec, const char* lengthAndType) {
  std::string format = "%";
  if (spec.left) format += '-';
  if (spec.plus) format += '+';
  if (spec.blank) format += ' ';
  if (spec.alternate) format += '#';
  if (spec.zero) format += '0';
  format += std::to_string(spec.width);
  if (spec.precision >= 0) format += "." + std::to_string(spec.precision);
  return format + lengthAndType;
}

template <typename Number>
std::wstring printNumber(const std::string& format, Number number) {
// The format was put together from a checked conversion, which the compiler can't see.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
  const int length = std::snprintf(nullptr, 0, format.c_str(), number);
  if (length < 0) return {};
  std::string text(static_cast<std::size_t>(length) + 1, '\0');
  std::snprintf(text.data(), text.size(), format.c_str(), number);
#pragma GCC diagnostic pop
  text.pop_back();
  return std::wstring(text.begin(), text.end());
}

std::wstring formatSigned(const Spec& spec, Arguments& arguments) {
  long long number = 0;
  switch (spec.length) {
    case Length::wide64:
    case Length::size:
      number = arguments.next<long long>();
      break;
    case Length::narrow:
      number = static_cast<short>(arguments.integer());
      break;
    case Length::byte:
      number = static_cast<signed char>(arguments.integer());
      break;
    default:
      number = arguments.integer();
  }
  return printNumber(narrowFormat(spec, "lld"), number);
}

std::wstring formatUnsigned(const Spec& spec, Arguments& arguments) {
  unsigned long long number = 0;
  switch (spec.length) {
    case Length::wide64:
    case Length::size:
      number = arguments.next<unsigned long long>();
      break;
    case Length::narrow:
      number = static_cast<unsigned short>(arguments.integer());
      break;
    case Length::byte:
      number = static_cast<unsigned char>(arguments.integer());
      break;
    default:
      number = static_cast<unsigned>(arguments.integer());
  }
  const std::string type = {'l', 'l', static_cast<char>(spec.type)};
  return printNumber(narrowFormat(spec, type.c_str()), number);
}

std::wstring formatText(const Spec& spec, Arguments& arguments) {
  const bool narrow =
      spec.length == Length::narrow || (spec.type == L'S' && spec.length != Length::wide);
  if (narrow) {
    const char* text = arguments.next<const char*>();
    return cutText(fromUtf8(text != nullptr ? text : "(null)"), spec);
  }
  const wchar_t* text = arguments.next<const wchar_t*>();
  if (text == nullptr) return cutText(L"(null)", spec);
  // With a precision the text needs no null within it.
  std::size_t length = 0;
  const std::size_t limit =
      spec.precision >= 0 ? static_cast<std::size_t>(spec.precision) : static_cast<std::size_t>(-1);
  while (length < limit && text[length] != 0) ++length;
  return cutText(std::wstring_view(text, length), spec);
}

std::wstring formatOne(Spec spec, Arguments& arguments) {
  readStars(spec, arguments);
  switch (spec.type) {
    case L'd':
    case L'i':
      return formatSigned(spec, arguments);
    case L'u':
    case L'x':
    case L'X':
    case L'o':
      return formatUnsigned(spec, arguments);
    case L'c':
    case L'C':
      return padded(std::wstring(1, static_cast<wchar_t>(arguments.integer())), spec);
    case L's':
    case L'S':
      return formatText(spec, arguments);
    case L'f':
    case L'F':
    case L'e':
    case L'E':
    case L'g':
    case L'G':
    case L'a':
    case L'A': {
      const char type[] = {static_cast<char>(spec.type), '\0'};
      return printNumber(narrowFormat(spec, type), arguments.next<double>());
    }
    case L'p':
      spec.precision = 16;
      spec.type = L'X';
      spec.length = Length::wide64;
      return formatUnsigned(spec, arguments);
    case L'n':
      arguments.next<void*>();
      return {};
    default:
      return spec.type != 0 ? std::wstring(1, spec.type) : std::wstring();
  }
}

std::wstring formatAll(const wchar_t* at, Arguments& arguments) {
  std::wstring result;
  while (*at != 0) {
    if (*at != L'%') {
      result += *at++;
      continue;
    }
    ++at;
    result += formatOne(readSpec(at), arguments);
  }
  return result;
}

}  // namespace

std::wstring formatWideV(const wchar_t* format, std::va_list arguments) {
  if (format == nullptr) return {};
  Arguments own;
  va_copy(own.list, arguments);
  std::wstring result = formatAll(format, own);
  va_end(own.list);
  return result;
}

std::wstring formatWide(const wchar_t* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  std::wstring result = formatWideV(format, arguments);
  va_end(arguments);
  return result;
}

int formatWideInto(wchar_t* buffer, std::size_t capacity, const wchar_t* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  const std::wstring text = formatWideV(format, arguments);
  va_end(arguments);
  if (buffer == nullptr || capacity == 0) return -1;
  const std::size_t length = std::min(text.size(), capacity - 1);
  std::copy_n(text.data(), length, buffer);
  buffer[length] = 0;
  return length == text.size() ? static_cast<int>(length) : -1;
}

namespace {

/// A place of a numbered format: literal text, or the argument `number` in the form `format`.
struct Piece {
  std::wstring literal;
  int number = 0;
  std::wstring format;
};

std::wstring readPieceFormat(const wchar_t*& at) {
  const wchar_t* const end = *at == L'!' ? std::wcschr(at + 1, L'!') : nullptr;
  if (end == nullptr) return L"s";
  std::wstring format(at + 1, end);
  at = end + 1;
  return format;
}

/// What an escape other than an insert stands for.
std::wstring readEscape(const wchar_t*& at) {
  const wchar_t letter = *at++;
  if (letter == L'n') return L"\r\n";
  if (letter == L'r') return L"\r";
  if (letter == L't') return L"\t";
  return std::wstring(1, letter);
}

/// One line end of the format, whichever way it is written.
bool skipLineEnd(const wchar_t*& at) {
  return skip(at, L"\r\n") || skip(at, L"\n") || skip(at, L"\r");
}

std::vector<Piece> readPieces(const wchar_t* at) {
  std::vector<Piece> pieces;
  std::wstring literal;
  while (*at != 0) {
    if (skipLineEnd(at)) {
      literal += L"\r\n";
      continue;
    }
    if (*at != L'%' || at[1] == 0) {
      literal += *at++;
      continue;
    }
    ++at;
    if (*at == L'0') break;
    if (*at < L'1' || *at > L'9') {
      literal += readEscape(at);
      continue;
    }
    int number = (*at++ - L'0');
    if (*at >= L'0' && *at <= L'9') number = number * 10 + (*at++ - L'0');
    pieces.push_back({std::exchange(literal, {}), number, readPieceFormat(at)});
  }
  pieces.push_back({literal, 0, {}});
  return pieces;
}

std::wstring formatPieces(const std::vector<Piece>& pieces, Arguments& arguments) {
  int last = 0;
  for (const Piece& piece : pieces) last = std::max(last, piece.number);

  // An argument's type is known from its first use only, and each is to be fetched once, in order.
  std::vector<std::wstring> texts(static_cast<std::size_t>(last) + 1);
  for (int number = 1; number <= last; ++number) {
    const auto use = std::find_if(pieces.begin(), pieces.end(),
                                  [number](const Piece& p) { return p.number == number; });
    if (use == pieces.end()) {
      arguments.next<void*>();
      continue;
    }
    const wchar_t* at = use->format.c_str();
    texts[static_cast<std::size_t>(number)] = formatOne(readSpec(at), arguments);
  }

  std::wstring result;
  for (const Piece& piece : pieces) {
    result += piece.literal + texts[static_cast<std::size_t>(piece.number)];
  }
  return result;
}

}  // namespace

std::wstring formatNumberedV(const wchar_t* format, std::va_list arguments) {
  if (format == nullptr) return {};
  Arguments own;
  va_copy(own.list, arguments);
  std::wstring result = formatPieces(readPieces(format), own);
  va_end(own.list);
  return result;
}

std::optional<std::wstring> formatNumbered(const wchar_t* format, const std::uintptr_t* arguments) {
  if (format == nullptr) return std::nullopt;
  const std::vector<Piece> pieces = readPieces(format);
  const bool hasInserts = std::any_of(pieces.begin(), pieces.end(),
                                      [](const Piece& piece) { return piece.number != 0; });
  if (hasInserts && arguments == nullptr) return std::nullopt;
  Arguments own{};
  own.slots = arguments;
  return formatPieces(pieces, own);
}

}  // namespace kovra::win
