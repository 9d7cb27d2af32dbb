#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "module/propcopy/copy_job.h"

namespace kovra {

/// Cuts a line at blanks. White space at its beginning and behind a cut counts for nothing.
std::vector<std::wstring> splitLine(std::wstring_view line);

/// Reads a number as the platform's _wtof does.
using NumberReader = double (*)(const wchar_t* text);

/// Reads the tokens of a line: a tag list, then options, "/L NAME", "/H NUMBER", "/W NUMBER",
/// "/A DEGREES", "/J CODE", "/SC" and "/NSC". The last of a repeated option counts; an unknown one
/// is dropped together with the token behind it, one without its value ends the line.
/// @param scaleByDefault what holds when neither "/SC" nor "/NSC" is given
/// @return nothing for fewer than three tokens
std::optional<CopyJob> readLineOptions(const std::vector<std::wstring>& tokens, bool scaleByDefault,
                                       NumberReader readNumber);

}  // namespace kovra
