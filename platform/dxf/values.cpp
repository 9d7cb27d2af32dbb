#include "platform/dxf/values.h"

#include <array>
#include <charconv>
#include <cmath>

namespace kovra::dxf {

namespace {

struct CodeRange {
  int first;
  int last;
  ValueType type;
};

// The published table of group code value types; what it leaves out is text.
constexpr CodeRange kRanges[] = {
    {5, 5, ValueType::kHandle},       {10, 59, ValueType::kReal},
    {60, 79, ValueType::kInt16},      {90, 99, ValueType::kInt32},
    {105, 105, ValueType::kHandle},   {110, 149, ValueType::kReal},
    {160, 169, ValueType::kInt64},    {170, 179, ValueType::kInt16},
    {210, 239, ValueType::kReal},     {270, 289, ValueType::kInt16},
    {290, 299, ValueType::kBool},     {310, 319, ValueType::kBinary},
    {320, 369, ValueType::kHandle},   {370, 389, ValueType::kInt16},
    {390, 399, ValueType::kHandle},   {400, 409, ValueType::kInt16},
    {420, 429, ValueType::kInt32},    {440, 459, ValueType::kInt32},
    {460, 469, ValueType::kReal},     {480, 481, ValueType::kHandle},
    {1004, 1004, ValueType::kBinary}, {1005, 1005, ValueType::kHandle},
    {1010, 1059, ValueType::kReal},   {1060, 1070, ValueType::kInt16},
    {1071, 1071, ValueType::kInt32},
};

constexpr int kCodes = 1072;

constexpr std::array<ValueType, kCodes> makeTypes() {
  std::array<ValueType, kCodes> types{};
  for (const CodeRange& range : kRanges) {
    for (int code = range.first; code <= range.last; ++code) {
      types[static_cast<std::size_t>(code)] = range.type;
    }
  }
  return types;
}

constexpr std::array<ValueType, kCodes> kTypes = makeTypes();

bool isBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r';
}

std::string_view withoutBlanks(std::string_view text) {
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

/// Digits around one point, as nearly all reals stand in drawings. Where a double holds the digits
/// as an integer, and the power of ten too, a single division rounds as the whole text would be
/// rounded (Clinger, "How to read floating point numbers accurately", 1990). False for any other
/// text, which may be a number all the same.
inline bool parsePlainReal(std::string_view text, double& value) {
  static constexpr double kPowers[] = {1e0, 1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,
                                       1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17};
  constexpr std::uint64_t kLargest = std::uint64_t{1} << 53U;
  constexpr std::size_t kLongest = 18;  // that many digits fit into 64 bits
  const char* at = text.data();
  const char* const end = at + text.size();
  const bool negative = at != end && *at == '-';
  if (negative) ++at;
  if (static_cast<std::size_t>(end - at) > kLongest) return false;
  std::uint64_t digits = 0;
  const auto readDigits = [&] {
    const char* const first = at;
    for (; at != end && static_cast<unsigned char>(*at - '0') < 10; ++at)
      digits = digits * 10 + static_cast<unsigned char>(*at - '0');
    return static_cast<std::size_t>(at - first);
  };
  if (readDigits() == 0) return false;
  std::size_t behind = 0;
  if (at != end) {
    if (*at++ != '.') return false;
    behind = readDigits();
    if (behind == 0) return false;
  }
  if (at != end || digits > kLargest) return false;
  const double size = static_cast<double>(static_cast<std::int64_t>(digits)) / kPowers[behind];
  value = negative ? -size : size;
  return true;
}

}  // namespace

ValueType valueType(int code) {
  if (code < 0 || code >= kCodes) return ValueType::kText;
  return kTypes[static_cast<std::size_t>(code)];
}

bool isPointCode(int code) {
  return (code >= 10 && code <= 18) || (code >= 110 && code <= 112) ||
         (code >= 210 && code <= 213) || (code >= 1010 && code <= 1013);
}

std::string_view trimmed(std::string_view text) {
  return withoutBlanks(text);
}

namespace {

/// Any other text than parsePlainReal() reads; apart from it, since few reals stand so.
[[gnu::noinline]] bool parseOtherReal(std::string_view text, double& value) {
  text = withoutBlanks(text);
  if (!text.empty() && text.front() == '+') text.remove_prefix(1);
  double parsed = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), parsed);
  const bool whole = error == std::errc() && end == text.data() + text.size();
  if (!whole || !std::isfinite(parsed)) return false;
  value = parsed;
  return true;
}

}  // namespace

bool parseReal(std::string_view text, double& value) {
  return parsePlainReal(text, value) || parseOtherReal(text, value);
}

bool parseInteger(std::string_view text, std::int64_t& value) {
  text = withoutBlanks(text);
  if (!text.empty() && text.front() == '+') text.remove_prefix(1);
  std::int64_t parsed = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), parsed);
  if (error == std::errc() && end == text.data() + text.size()) {
    value = parsed;
    return true;
  }
  double real = 0;
  constexpr double kLimit = 9.0e18;
  if (!parseReal(text, real) || std::trunc(real) != real || std::fabs(real) > kLimit) return false;
  value = static_cast<std::int64_t>(real);
  return true;
}

bool parseHandle(std::string_view text, std::uint64_t& value) {
  text = withoutBlanks(text);
  std::uint64_t parsed = 0;
  for (const char c : text) {
    const int digit = hexDigit(c);
    if (digit < 0 || parsed >> 60U != 0) return false;
    parsed = parsed << 4U | static_cast<unsigned>(digit);
  }
  if (text.empty()) return false;
  value = parsed;
  return true;
}

namespace {

/// Whole numbers so small that no exponent makes them shorter, of which drawings are full. A zero
/// with a sign is none of them.
bool isSmallInteger(double value) {
  constexpr double kLimit = 1e5;
  return value > -kLimit && value < kLimit && value == static_cast<int>(value) &&
         !(value == 0 && std::signbit(value));
}

void appendSmallInteger(std::string& out, int value) {
  std::array<char, 16> text;
  char* end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
  *end++ = '.';
  *end++ = '0';
  out.append(text.data(), static_cast<std::size_t>(end - text.data()));
}

/// Appends a fraction of few decimals, as most coordinates are. Of 15 digits no two decimals read
/// as the same double, so the digits that read back as the value are its only ones and, without the
/// zeros at their end, its shortest. False for other values: `out` is untouched then.
bool appendFewDecimals(std::string& out, double value) {
  constexpr double kScale = 1e6;
  constexpr double kSmallest = 1e-3;  // below, and for whole numbers, an exponent may be shorter
  constexpr double kLargest = 1e8;
  const double size = std::fabs(value);
  if (!(size >= kSmallest && size < kLargest)) return false;
  auto digits = static_cast<std::int64_t>(size * kScale + 0.5);
  constexpr std::int64_t kUnit = 1000000;
  if (static_cast<double>(digits) / kScale != size || digits % kUnit == 0) return false;
  std::array<char, 24> text;
  char* const end = text.data() + text.size();
  char* at = end;
  int decimals = 6;
  for (; digits % 10 == 0; --decimals) digits /= 10;
  const auto putDigit = [&] {
    *--at = static_cast<char>('0' + digits % 10);
    digits /= 10;
  };
  for (; decimals > 0; --decimals) putDigit();
  *--at = '.';
  do putDigit();
  while (digits != 0);
  if (value < 0) *--at = '-';
  out.append(at, static_cast<std::size_t>(end - at));
  return true;
}

}  // namespace

void appendReal(std::string& out, double value) {
  if (!std::isfinite(value)) value = 0;
  if (isSmallInteger(value)) return appendSmallInteger(out, static_cast<int>(value));
  if (appendFewDecimals(out, value)) return;
  std::array<char, 32> digits;
  const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), value);
  const std::string_view text(digits.data(), static_cast<std::size_t>(result.ptr - digits.data()));
  const std::size_t exponent = text.find('e');
  out.append(text.substr(0, exponent));
  if (text.substr(0, exponent).find('.') == std::string_view::npos) out.append(".0");
  if (exponent != std::string_view::npos) out.append(text.substr(exponent));
}

void appendInteger(std::string& out, std::int64_t value) {
  std::array<char, 24> digits;
  const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), value);
  out.append(digits.data(), static_cast<std::size_t>(result.ptr - digits.data()));
}

void appendHandle(std::string& out, std::uint64_t value) {
  std::array<char, 16> digits;
  std::size_t at = digits.size();
  do {
    digits[--at] = "0123456789ABCDEF"[value & 15U];
    value >>= 4U;
  } while (value != 0);
  out.append(digits.data() + at, digits.size() - at);
}

std::string formatReal(double value) {
  std::string out;
  appendReal(out, value);
  return out;
}

std::string formatHandle(std::uint64_t value) {
  std::string out;
  appendHandle(out, value);
  return out;
}

}  // namespace kovra::dxf
