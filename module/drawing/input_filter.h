#pragma once

#include "module/frame/seam.h"

namespace kovra {

/// Cleans what a field held when it lost the focus: characters that lead a double-byte character of
/// the thread's code page go with the one behind them.
/// @param numbersOnly also cuts the text at the first character that no number has
/// @return 1 if the text changed, else 0
int FilterInputText(CString& text, bool numbersOnly);

}  // namespace kovra
