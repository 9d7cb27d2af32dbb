#pragma once

#include <array>
#include <string>
#include <string_view>

namespace kovra {

/// Number of numbering systems; their order is that of the radix combo boxes.
inline constexpr int kRadixRows = 7;

/// Row of the decimal numbers.
inline constexpr int kDecimalRow = 1;

/// What the fields of a step do in one numbering system.
struct RadixRules {
  int code;                    ///< for RadixNumber
  std::wstring_view digits;    ///< what a step may be typed in
  bool stepIsShownInRadix;     ///< a decimal step can be spelled in the radix
  bool stepCanBeTypedInRadix;  ///< and the other way round
};

/// Rules by row.
extern const std::array<RadixRules, kRadixRows> kRadixRules;

/// Rules of a row; null for a number that is no row.
const RadixRules* radixRules(int row);

/// Code to count a text in: codes 80 and 160 take their dotted form if the text holds a ".".
int DottedRadixCode(int radixCode, std::wstring_view text);

/// Takes what isn't a digit of the row out of a step field's text; a leading "-" stays.
/// @return 1 when there was nothing to remove, 0 when the text now holds what to show
int FilterDigits(std::wstring& text, int row);

}  // namespace kovra
