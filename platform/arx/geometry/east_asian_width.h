#pragma once

namespace kovra::arx {

/// Whether a character is wide or full-width by East Asian width (Unicode Standard Annex 11, data
/// of Unicode 14).
bool isFullWidth(wchar_t character);

}  // namespace kovra::arx
