#pragma once

#include <algorithm>
#include <string_view>

namespace kovra {

/// Upper case of a letter from A to Z; any other character stays. For the words of options and
/// codes, which have no other letters.
constexpr wchar_t upperLetter(wchar_t c) {
  return c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - L'a' + L'A') : c;
}

/// Compares the words of options and codes.
constexpr bool equalIgnoringCase(std::wstring_view a, std::wstring_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](wchar_t x, wchar_t y) { return upperLetter(x) == upperLetter(y); });
}

}  // namespace kovra
