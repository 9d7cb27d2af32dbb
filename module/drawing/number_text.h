#pragma once

#include <string>

#include "module/frame/seam.h"

namespace kovra {

/// Takes the needless end off a number that holds a ".": zeros, then points, so "1.500" gives "1.5"
/// and "2.000" gives "2". A text without a "." stays.
void TrimNumberTail(std::wstring& text);

/// A decimal number with as many places as the drawing's LUPREC has.
CString DecimalText(double number);

/// The same as the fields of the dialogs show it: without the needless end.
CString FormatDistance(double distance);

}  // namespace kovra
