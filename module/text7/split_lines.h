#pragma once

#include <vector>

#include "module/frame/seam.h"

namespace kovra {

/// Divides a text at a separator. Empty lines are lines too, and an empty text is one.
/// @param separator not empty
/// @param lines receives the lines in place of what it held
/// @return the number of lines
int SplitLines(CString text, const ACHAR* separator, std::vector<CString>& lines);

/// Divides what a multi-line field holds. Its line breaks become tabs in `text`; a tab that the
/// user typed divides as well.
/// @return the number of lines
int SplitFieldLines(CString& text, std::vector<CString>& lines);

/// Whether something stands behind a line break; line breaks at the end don't count.
bool HasSeveralLines(CString text);

}  // namespace kovra
