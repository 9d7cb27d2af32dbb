#pragma once

#include <cstddef>
#include <string_view>

namespace kovra::arx {

/// Whether a character is wide or full-width by East Asian width (Unicode Standard Annex 11, data
/// of Unicode 14).
bool isFullWidth(wchar_t character);
/// Columns of a terminal that the text takes.
std::size_t columnsOf(std::wstring_view text);

}  // namespace kovra::arx
