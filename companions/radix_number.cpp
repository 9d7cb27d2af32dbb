#include "companions/radix_number.h"

#include <algorithm>

namespace kovra::companions {
namespace {

constexpr std::wstring_view kDigits = L"0123456789ABCDEF";
constexpr std::wstring_view kLetters = L"ABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::wstring_view kLettersWithoutIO = L"ABCDEFGHJKLMNPQRSTUVWXYZ";
constexpr int kDottedFlag = '.' << 8;  // the point's character code in the high byte

struct CodedNumeration {
  int code;
  Numeration numeration;
};

constexpr CodedNumeration kNumerations[] = {
    {8, {8, 8, 0, false, kDigits}},
    {10, {10, 10, 0, false, kDigits}},
    {16, {16, 16, 0, false, kDigits}},
    {24, {24, 24, 1, false, kLettersWithoutIO}},
    {26, {26, 26, 1, false, kLetters}},
    {80, {8, 10, 0, false, kDigits}},
    {160, {16, 10, 0, false, kDigits}},
    {kDottedFlag | 80, {8, 10, 0, true, kDigits}},
    {kDottedFlag | 160, {16, 10, 0, true, kDigits}},
};

std::int64_t floorDivide(std::int64_t value, std::int64_t divisor) {
  const std::int64_t quotient = value / divisor;
  return value % divisor < 0 ? quotient - 1 : quotient;
}

// Puts a sum into the digit and gives what is carried to the next one; digits from 0 on in any
// case.
std::int64_t storeDigit(std::int8_t& digit, std::int64_t sum, std::size_t position,
                        const Numeration& numeration) {
  const int base = numeration.base(position);
  const std::int64_t carry = floorDivide(sum, base);
  digit = static_cast<std::int8_t>(sum - carry * base);
  return carry;
}

void appendCarry(Digits& digits, std::int64_t carry, const Numeration& numeration) {
  while (carry > 0) {
    digits.push_back(0);
    carry = storeDigit(digits.back(), carry, digits.size() - 1, numeration);
  }
}

// The digits become digits * factor + addend.
void scaleDigits(Digits& digits, int factor, int addend, const Numeration& numeration) {
  std::int64_t carry = addend;
  for (std::size_t i = 0; i < digits.size(); ++i)
    carry = storeDigit(digits[i], std::int64_t{digits[i]} * factor + carry, i, numeration);
  appendCarry(digits, carry, numeration);
}

// Sums leave zeros, which column names don't have: each becomes the last letter, at the cost of one
// in the next place. Letters stand for 1 to the base, so a sum's digits need no other change.
void removeZeros(Digits& digits, const Numeration& numeration) {
  for (std::size_t i = 0; i < digits.size(); ++i) {
    while (!digits.empty() && digits.back() == 0) digits.pop_back();
    if (i + 1 >= digits.size() || digits[i] > 0) continue;
    digits[i] = static_cast<std::int8_t>(digits[i] + numeration.base(i));
    --digits[i + 1];
  }
  while (!digits.empty() && digits.back() == 0) digits.pop_back();
}

bool isDigit(wchar_t c, int base, const Numeration& numeration) {
  const wchar_t upper = c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - L'a' + L'A') : c;
  return numeration.alphabet.substr(0, static_cast<std::size_t>(base)).find(upper) !=
         std::wstring_view::npos;
}

// "12.7": the bit is the one digit behind the last point of the text, decimal digits stand before
// it.
NumberSpan findDotted(std::wstring_view text, const Numeration& numeration) {
  const auto isDecimal = [&](wchar_t c) { return isDigit(c, numeration.highBase, numeration); };
  const auto isBit = [&](wchar_t c) { return isDigit(c, numeration.lowBase, numeration); };
  const std::size_t point = text.rfind(L'.');
  if (point == std::wstring_view::npos || point + 1 == text.size() || !isBit(text[point + 1]))
    return {};
  const std::size_t end = point + 2;
  if (end < text.size() && (isDecimal(text[end]) || isBit(text[end]))) return {};
  std::size_t begin = point;
  while (begin > 0 && isDecimal(text[begin - 1])) --begin;
  if (begin == point) return {};
  return {begin, end - begin};
}

}  // namespace

const Numeration* findNumeration(int radixCode) {
  const auto found =
      std::find_if(std::begin(kNumerations), std::end(kNumerations),
                   [&](const CodedNumeration& entry) { return entry.code == radixCode; });
  return found == std::end(kNumerations) ? nullptr : &found->numeration;
}

bool shiftDigits(Digits& digits, const Numeration& numeration, std::int64_t count) {
  Digits shifted = digits;
  std::int64_t carry = count;
  for (std::size_t i = 0; i < shifted.size() && carry != 0; ++i)
    carry = storeDigit(shifted[i], shifted[i] + carry, i, numeration);
  if (carry < 0) return false;
  appendCarry(shifted, carry, numeration);
  if (numeration.first == 1) {
    removeZeros(shifted, numeration);
    if (shifted.empty() && count < 0) return false;
  }
  digits = std::move(shifted);
  return true;
}

Digits convertDigits(const Digits& digits, const Numeration& from, const Numeration& to) {
  Digits converted;
  for (std::size_t i = digits.size(); i > 0; --i)
    scaleDigits(converted, from.base(i - 1), digits[i - 1], to);
  if (to.first == 1) removeZeros(converted, to);
  return converted;
}

NumberSpan findNumber(std::wstring_view text, const Numeration& numeration) {
  if (numeration.dotted) return findDotted(text, numeration);
  const auto isHigh = [&](wchar_t c) { return isDigit(c, numeration.highBase, numeration); };
  const auto isLow = [&](wchar_t c) { return isDigit(c, numeration.lowBase, numeration); };
  std::size_t end = text.size();
  while (end > 0 && !isHigh(text[end - 1]) && !isLow(text[end - 1])) --end;
  // An address whose bit is no digit of its base ("18" in octal bits) isn't a number.
  if (end == 0 || !isLow(text[end - 1])) return {};
  std::size_t begin = end - 1;
  while (begin > 0 && isHigh(text[begin - 1])) --begin;
  return {begin, end - begin};
}

}  // namespace kovra::companions
