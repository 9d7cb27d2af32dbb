#pragma once

#include <string>

namespace kovra {

/// Takes the needless end off a number that holds a ".": zeros, then points, so "1.500" gives "1.5"
/// and "2.000" gives "2". A text without a "." stays.
void TrimNumberTail(std::wstring& text);

}  // namespace kovra
