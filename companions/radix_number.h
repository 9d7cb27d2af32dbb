#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kovra::companions {

/// How the digits of a radix code make a number. Digits are counted from the right; the value of a
/// digit lies between `first` and `first` + base - 1.
struct Numeration {
  int lowBase = 10;            // of the rightmost digit
  int highBase = 10;           // of all others
  int first = 0;               // 1: column names, which have no zero
  bool dotted = false;         // a "." stands before the rightmost digit
  std::wstring_view alphabet;  // upper case, from the value `first` on

  int base(std::size_t position) const { return position == 0 ? lowBase : highBase; }
};

/// Null for a code that isn't one.
const Numeration* findNumeration(int radixCode);

/// The digits of a number, least significant first; leading zeros count. A column name of no
/// letters is 0. All operations keep the number of digits unless the value needs more.
using Digits = std::vector<std::int8_t>;

/// Adds a count of either sign. False, with the digits unchanged, if the result would lie below the
/// first value.
bool shiftDigits(Digits& digits, const Numeration& numeration, std::int64_t count);

/// The same value in another numeration, without leading zeros.
Digits convertDigits(const Digits& digits, const Numeration& from, const Numeration& to);

/// Where the number stands in a text.
struct NumberSpan {
  std::size_t begin = 0;
  std::size_t length = 0;
};

/// The last run of digits of the numeration in the text; length 0 if there is none.
NumberSpan findNumber(std::wstring_view text, const Numeration& numeration);

}  // namespace kovra::companions
