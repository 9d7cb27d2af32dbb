#include "platform/spread/cell_text.h"

#include <algorithm>
#include <charconv>

namespace kovra::spread {
namespace {

/// A decimal number in its parts.
struct Decimal {
  bool negative = false;
  std::string whole;
  std::string fraction;
};

/// Characters of full width as the ones of half width that they stand for; 0 for what has no place
/// in a number.
char numberCharacter(wchar_t c) {
  constexpr wchar_t kFullWidthOffset = 0xFEE0;
  if (c >= 0xFF0D && c <= 0xFF19) c = static_cast<wchar_t>(c - kFullWidthOffset);
  const bool known = (c >= L'0' && c <= L'9') || c == L'-' || c == L'.';
  return known ? static_cast<char>(c) : '\0';
}

std::string_view trimmed(std::string_view text) {
  while (text.starts_with(' ')) text.remove_prefix(1);
  while (text.ends_with(' ')) text.remove_suffix(1);
  return text;
}

/// The beginning of a number, perhaps without a digit yet; nothing for other texts.
std::optional<Decimal> decimalOf(std::wstring_view text) {
  std::string plain;
  for (const wchar_t c : text) {
    const char known = c == L' ' ? ' ' : numberCharacter(c);
    if (known == '\0') return std::nullopt;
    plain += known;
  }
  std::string_view rest = trimmed(plain);
  Decimal number;
  number.negative = rest.starts_with('-');
  if (number.negative) rest.remove_prefix(1);
  const std::size_t point = std::min(rest.find('.'), rest.size());
  number.whole = rest.substr(0, point);
  if (point < rest.size()) number.fraction = rest.substr(point + 1);
  const auto onlyDigits = [](const std::string& part) {
    return part.find_first_not_of("0123456789") == std::string::npos;
  };
  if (!onlyDigits(number.whole) || !onlyDigits(number.fraction)) return std::nullopt;
  return number;
}

bool hasDigits(const Decimal& number) {
  return !number.whole.empty() || !number.fraction.empty();
}

double valueOf(const Decimal& number) {
  const std::string text = "0" + number.whole + "." + number.fraction + "0";
  double value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return number.negative ? -value : value;
}

/// Rounds half away from zero to so many digits behind the point.
void roundTo(Decimal& number, std::size_t digits) {
  const bool up = number.fraction.size() > digits && number.fraction[digits] >= '5';
  number.fraction.resize(digits, '0');
  std::string all = "0" + number.whole + number.fraction;
  for (auto digit = all.rbegin(); up && digit != all.rend(); ++digit) {
    if (*digit != '9') {
      ++*digit;
      break;
    }
    *digit = '0';
  }
  number.whole = all.substr(0, all.size() - digits);
  number.fraction = all.substr(all.size() - digits);
  number.whole.erase(0, std::min(number.whole.find_first_not_of('0'), number.whole.size()));
}

std::wstring numberText(const SS_CELLTYPE& type, Decimal number) {
  roundTo(number, static_cast<std::size_t>(std::max<SHORT>(type.digits, 0)));
  const bool zero =
      number.whole.empty() && number.fraction.find_first_not_of('0') == std::string::npos;
  std::string text = number.negative && !zero ? "-" : "";
  const bool leadingZero = (type.style & SS_NUMBER_LEADING_ZERO) != 0 || number.fraction.empty();
  text += number.whole.empty() && leadingZero ? "0" : number.whole;
  if (!number.fraction.empty()) text += "." + number.fraction;
  return {text.begin(), text.end()};
}

}  // namespace

std::wstring shownText(const SS_CELLTYPE& type, std::wstring_view data) {
  if (type.type != SS_TYPE_NUMBER) return std::wstring(data);
  const std::optional<Decimal> number = decimalOf(data);
  return number && hasDigits(*number) ? numberText(type, *number) : std::wstring(data);
}

bool mayBeTyped(const SS_CELLTYPE& type, std::wstring_view text) {
  if (type.type != SS_TYPE_NUMBER) return true;
  const std::optional<Decimal> number = decimalOf(text);
  if (!number || (number->negative && (type.style & SS_NUMBER_NEGATIVE) == 0)) return false;
  // More digits lead away from zero only: a number beyond the range never comes back into it.
  const double value = valueOf(*number);
  return number->negative ? value >= std::min(type.min, 0.0) : value <= std::max(type.max, 0.0);
}

std::optional<std::wstring> enteredText(const SS_CELLTYPE& type, std::wstring_view text) {
  if (type.type != SS_TYPE_NUMBER || text.empty()) return std::wstring(text);
  const std::optional<Decimal> number = decimalOf(text);
  if (!number || !hasDigits(*number) || !mayBeTyped(type, text)) return std::nullopt;
  std::wstring entered = numberText(type, *number);
  const double value = valueOf(*decimalOf(entered));
  if (value < type.min || value > type.max) return std::nullopt;
  return entered;
}

}  // namespace kovra::spread
