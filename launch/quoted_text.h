#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kovra::launch {

/// Of \n \t \b \e (code 3) \" \\ in a text in quotes: the character that a letter behind the
/// backslash stands for; nothing for other letters.
std::optional<wchar_t> escapedCharacter(wchar_t letter);

/// The text in quotes with these escapes, as lines are read back. A line break of a field, which
/// has a carriage return too, is written as it is typed.
std::wstring quotedText(std::wstring_view text);

}  // namespace kovra::launch
