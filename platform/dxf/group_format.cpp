#include "platform/dxf/group_format.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>

namespace kovra::dxf {

namespace {

static_assert(std::endian::native == std::endian::little, "binary DXF is read as it lies");

template <class T>
T load(std::string_view bytes) {
  T value{};
  if (bytes.size() == sizeof value) std::memcpy(&value, bytes.data(), sizeof value);
  return value;
}

template <class T>
void store(T value, std::string& out) {
  char bytes[sizeof value];
  std::memcpy(bytes, &value, sizeof value);
  out.append(bytes, sizeof value);
}

template <class T>
void storeClamped(std::int64_t value, std::string& out) {
  constexpr std::int64_t kLow = std::numeric_limits<T>::min();
  constexpr std::int64_t kHigh = std::numeric_limits<T>::max();
  store(static_cast<T>(std::clamp(value, kLow, kHigh)), out);
}

/// Bytes of a binary file's value of fixed size; 0 for texts and chunks.
std::size_t fixedSize(ValueType type) {
  switch (type) {
    case ValueType::kReal:
    case ValueType::kInt64:
      return 8;
    case ValueType::kInt32:
      return 4;
    case ValueType::kInt16:
      return 2;
    case ValueType::kBool:
      return 1;
    case ValueType::kText:
    case ValueType::kHandle:
    case ValueType::kBinary:
      break;
  }
  return 0;
}

std::int64_t loadInteger(std::string_view bytes) {
  switch (bytes.size()) {
    case 1:
      return load<std::uint8_t>(bytes);
    case 2:
      return load<std::int16_t>(bytes);
    case 4:
      return load<std::int32_t>(bytes);
    case 8:
      return load<std::int64_t>(bytes);
    default:
      return 0;
  }
}

/// Nearest integer; 0 for what an integer can't hold.
std::int64_t toInteger(double value) {
  constexpr double kLimit = 9.0e18;
  return value > -kLimit && value < kLimit ? static_cast<std::int64_t>(value) : 0;
}

/// Equal hexadecimal digits in either case.
bool equalDigits(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(), [](char a, char b) {
    return a == b || (hexDigit(a) >= 0 && hexDigit(a) == hexDigit(b));
  });
}

}  // namespace

bool parseAnyCode(const char* begin, const char* end, std::int32_t& code) {
  while (begin != end && (*begin == ' ' || *begin == '\t')) ++begin;
  const bool negative = begin != end && *begin == '-';
  if (negative) ++begin;
  const char* digits = begin;
  std::int32_t value = 0;
  while (begin != end && static_cast<unsigned char>(*begin - '0') < 10) {
    value = value * 10 + (*begin++ - '0');
    if (value > 9999) return false;
  }
  if (begin == digits) return false;
  while (begin != end && (*begin == ' ' || *begin == '\t' || *begin == '\r')) ++begin;
  code = negative ? -value : value;
  return begin == end;
}

bool onlyBlanks(std::string_view rest) {
  return rest.find_first_not_of(std::string_view(" \t\r\n\x1a\0", 6)) == std::string_view::npos;
}

bool BinaryReader::readCode(const char*& at, std::int32_t& code) const {
  if (!wideCodes_ && *at != '\xff') {
    code = static_cast<unsigned char>(*at++);
    return true;
  }
  if (!wideCodes_) ++at;
  if (end_ - at < 2) return false;
  code = load<std::int16_t>({at, 2});
  at += 2;
  return true;
}

GroupStatus BinaryReader::next(GroupView& group) {
  if (at_ == end_) return GroupStatus::kEnd;
  const char* at = at_;
  if (!readCode(at, group.code)) {
    const std::string_view rest(at_, static_cast<std::size_t>(end_ - at_));
    return onlyBlanks(rest) ? GroupStatus::kEnd : GroupStatus::kCut;
  }
  constexpr std::int32_t kLastCode = 1071;
  if (group.code < 0 || group.code > kLastCode) return GroupStatus::kBadCode;
  const ValueType type = valueType(group.code);
  std::size_t size = fixedSize(type);
  std::size_t terminator = 0;
  if (type == ValueType::kBinary) {
    if (at == end_) return GroupStatus::kCut;
    size = static_cast<unsigned char>(*at++);
  } else if (size == 0) {
    const void* nul =
        at == end_ ? nullptr : std::memchr(at, 0, static_cast<std::size_t>(end_ - at));
    if (nul == nullptr) return GroupStatus::kCut;
    size = static_cast<std::size_t>(static_cast<const char*>(nul) - at);
    terminator = 1;
  }
  if (static_cast<std::size_t>(end_ - at) < size) return GroupStatus::kCut;
  group.begin = at_;
  group.valueBegin = at;
  group.valueEnd = at + size;
  at_ = group.valueEnd + terminator;
  group.end = at_;
  return GroupStatus::kOk;
}

double decodeReal(const Dialect& dialect, int code, std::string_view value) {
  if (dialect.binary && fixedSize(valueType(code)) != 0) {
    if (valueType(code) == ValueType::kReal) return load<double>(value);
    return static_cast<double>(loadInteger(value));
  }
  double real = 0;
  parseReal(value, real);
  return real;
}

std::int64_t decodeInteger(const Dialect& dialect, int code, std::string_view value) {
  if (dialect.binary && fixedSize(valueType(code)) != 0) {
    if (valueType(code) == ValueType::kReal) return toInteger(load<double>(value));
    return loadInteger(value);
  }
  std::int64_t integer = 0;
  if (parseInteger(value, integer)) return integer;
  double real = 0;
  return parseReal(value, real) ? toInteger(real) : 0;
}

std::uint64_t decodeHandle(std::string_view value) {
  std::uint64_t handle = 0;
  parseHandle(value, handle);
  return handle;
}

std::string decodeBinary(const Dialect& dialect, std::string_view value) {
  if (dialect.binary) return std::string(value);
  const std::string_view digits = trimmed(value);
  std::string bytes;
  bytes.reserve(digits.size() / 2);
  for (std::size_t n = 0; n + 1 < digits.size(); n += 2) {
    const int high = hexDigit(digits[n]);
    const int low = hexDigit(digits[n + 1]);
    if (high < 0 || low < 0) break;
    bytes.push_back(static_cast<char>(high << 4 | low));
  }
  return bytes;
}

bool sameValue(const Dialect& dialect, int code, std::string_view left, std::string_view right) {
  if (left == right) return true;
  if (dialect.binary) return false;
  double leftReal = 0;
  double rightReal = 0;
  std::uint64_t leftHandle = 0;
  std::uint64_t rightHandle = 0;
  std::int64_t leftInteger = 0;
  std::int64_t rightInteger = 0;
  switch (valueType(code)) {
    case ValueType::kReal:
      return parseReal(left, leftReal) && parseReal(right, rightReal) && leftReal == rightReal;
    case ValueType::kHandle:
      return parseHandle(left, leftHandle) && parseHandle(right, rightHandle) &&
             leftHandle == rightHandle;
    case ValueType::kText:
      return code == 0 && trimmed(left) == trimmed(right);
    case ValueType::kBinary:
      return equalDigits(trimmed(left), trimmed(right));
    default:
      return parseInteger(left, leftInteger) && parseInteger(right, rightInteger) &&
             leftInteger == rightInteger;
  }
}

void encodeReal(const Dialect& dialect, int code, double value, std::string& out) {
  const ValueType type = valueType(code);
  if (type != ValueType::kReal && fixedSize(type) != 0) {
    encodeInteger(dialect, code, toInteger(value), out);
  } else if (dialect.binary && type == ValueType::kReal) {
    store(value, out);
  } else {
    appendReal(out, value);
  }
}

void encodeInteger(const Dialect& dialect, int code, std::int64_t value, std::string& out) {
  const ValueType type = valueType(code);
  if (type == ValueType::kReal) return encodeReal(dialect, code, static_cast<double>(value), out);
  if (!dialect.binary || fixedSize(type) == 0) return appendInteger(out, value);
  if (type == ValueType::kBool) return storeClamped<std::uint8_t>(value, out);
  if (type == ValueType::kInt16) return storeClamped<std::int16_t>(value, out);
  if (type == ValueType::kInt32) return storeClamped<std::int32_t>(value, out);
  store(value, out);
}

void encodeHandle(const Dialect& dialect, int code, std::uint64_t value, std::string& out) {
  std::string digits;
  appendHandle(digits, value);
  encodeAscii(dialect, code, digits, out);
}

void encodeBinary(const Dialect& dialect, std::string_view bytes, std::string& out) {
  if (dialect.binary) {
    constexpr std::size_t kLongestChunk = 255;
    out.append(bytes.substr(0, kLongestChunk));
    return;
  }
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    out.push_back("0123456789ABCDEF"[byte >> 4U]);
    out.push_back("0123456789ABCDEF"[byte & 15U]);
  }
}

void encodeAscii(const Dialect& dialect, int code, std::string_view text, std::string& out) {
  const ValueType type = valueType(code);
  if (!dialect.binary || type == ValueType::kText || type == ValueType::kHandle) {
    out.append(text);
  } else if (type == ValueType::kBinary) {
    encodeBinary(dialect, decodeBinary(Dialect{}, text), out);
  } else if (type == ValueType::kReal) {
    encodeReal(dialect, code, decodeReal(Dialect{}, code, text), out);
  } else {
    encodeInteger(dialect, code, decodeInteger(Dialect{}, code, text), out);
  }
}

GroupStyle groupStyle(const Dialect& dialect) {
  return {dialect.binary, dialect.wideCodes, dialect.crlf, dialect.paddedCodes ? 3U : 1U};
}

GroupStyle groupStyle(const Dialect& dialect, std::string_view record) {
  GroupStyle style = groupStyle(dialect);
  const std::size_t feed = record.find('\n');
  if (dialect.binary || feed == std::string_view::npos || feed == 0) return style;
  style.crlf = record[feed - 1] == '\r';
  const std::size_t digit = record.substr(0, feed).find_first_not_of(" \t");
  constexpr std::size_t kWidest = 6;
  if (digit < kWidest) style.codeWidth = digit + 1;
  return style;
}

namespace {

void appendBinaryCode(bool wideCodes, int code, std::string& out) {
  if (!wideCodes && code >= 0 && code < 0xff) {
    out.push_back(static_cast<char>(code));
    return;
  }
  if (!wideCodes) out.push_back('\xff');
  store(static_cast<std::int16_t>(code), out);
}

/// What belongs together is appended at once, where it is short.
void append(std::string_view first, std::string_view second, std::string_view third,
            std::string& out) {
  constexpr std::size_t kShort = 64;
  const std::size_t size = first.size() + second.size() + third.size();
  if (size > kShort) {
    out.append(first).append(second).append(third);
    return;
  }
  char bytes[kShort];
  char* to = std::copy(first.begin(), first.end(), bytes);
  to = std::copy(second.begin(), second.end(), to);
  std::copy(third.begin(), third.end(), to);
  out.append(bytes, size);
}

/// A group whose code is aligned to the right; its line is written from the end.
void appendAsciiGroup(const GroupStyle& style, int code, std::string_view value, std::string& out) {
  constexpr std::size_t kLongest = 16;
  const std::string_view lineEnd = style.lineEnd();
  char line[kLongest];
  char* const end = line + kLongest;
  char* at = std::copy_backward(lineEnd.begin(), lineEnd.end(), end);
  const char* const digitsEnd = at;
  unsigned left = static_cast<unsigned>(code < 0 ? -code : code);
  do {
    *--at = static_cast<char>('0' + left % 10);
    left /= 10;
  } while (left != 0);
  if (code < 0) *--at = '-';
  while (at != line && static_cast<std::size_t>(digitsEnd - at) < style.codeWidth) *--at = ' ';
  append({at, static_cast<std::size_t>(end - at)}, value, lineEnd, out);
}

void appendBinaryGroup(bool wideCodes, int code, std::string_view value, std::string& out) {
  const ValueType type = valueType(code);
  appendBinaryCode(wideCodes, code, out);
  if (type == ValueType::kBinary) out.push_back(static_cast<char>(value.size()));
  out.append(value);
  if (type == ValueType::kText || type == ValueType::kHandle) out.push_back('\0');
}

}  // namespace

void appendGroup(const GroupStyle& style, int code, std::string_view value, std::string& out) {
  if (style.binary) return appendBinaryGroup(style.wideCodes, code, value, out);
  appendAsciiGroup(style, code, value, out);
}

void appendRevalued(const GroupView& group, std::string_view value, const GroupStyle& style,
                    std::string& out) {
  const auto stretch = [](const char* begin, const char* end) {
    return std::string_view(begin, static_cast<std::size_t>(end - begin));
  };
  const bool lost = value.empty() && group.valueEnd == group.end;
  append(stretch(group.begin, group.valueBegin), value,
         lost ? style.lineEnd() : stretch(group.valueEnd, group.end), out);
}

}  // namespace kovra::dxf
