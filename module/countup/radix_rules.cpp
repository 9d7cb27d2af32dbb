#include "module/countup/radix_rules.h"

#include <algorithm>
#include <iterator>

namespace kovra {
namespace {

constexpr std::wstring_view kOctalDigits = L"01234567";
constexpr std::wstring_view kDecimalDigits = L"0123456789";
constexpr std::wstring_view kHexadecimalDigits = L"0123456789abcdefABCDEF";

// The character code of "." in the high byte marks the dotted form of a code.
constexpr int kDotted = L'.' << 8;

constexpr bool hasDottedForm(int radixCode) {
  return radixCode == 80 || radixCode == 160;
}

}  // namespace

const std::array<RadixRules, kRadixRows> kRadixRules = {{
    {8, kOctalDigits, true, true},
    {10, kDecimalDigits, true, false},
    {16, kHexadecimalDigits, true, true},
    {24, kDecimalDigits, false, false},
    {26, kDecimalDigits, false, false},
    {80, kDecimalDigits, false, false},
    {160, kDecimalDigits, false, false},
}};

const RadixRules* radixRules(int row) {
  return row >= 0 && row < kRadixRows ? &kRadixRules[static_cast<std::size_t>(row)] : nullptr;
}

int DottedRadixCode(int radixCode, std::wstring_view text) {
  const bool dotted = hasDottedForm(radixCode) && text.find(L'.') != std::wstring_view::npos;
  return dotted ? radixCode | kDotted : radixCode;
}

int FilterDigits(std::wstring& text, int row) {
  const RadixRules* rules = radixRules(row);
  const std::wstring_view digits = rules != nullptr ? rules->digits : kDecimalDigits;
  const auto sign = text.starts_with(L'-') ? std::next(text.begin()) : text.begin();
  const auto kept = std::remove_if(
      sign, text.end(), [digits](wchar_t c) { return digits.find(c) == std::wstring_view::npos; });
  if (kept == text.end()) return 1;
  text.erase(kept, text.end());
  return 0;
}

}  // namespace kovra
