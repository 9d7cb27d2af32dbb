// The platform's wild-card language.
#pragma once
#include <string_view>

#include "platform/arx/base/adesk.h"

namespace kovra::arx {

/// Whether the text matches the pattern as a whole: `#` a digit, `@` a letter, `.` neither, `*`
/// anything (also nothing), `?` one character, `~` at the beginning of an alternative turns it
/// round, `[...]` one of these, `[~...]` none of these, `-` in brackets a range, `,` parts
/// alternatives, a back-quote takes the next character as it is. An empty alternative matches the
/// empty text. Takes time in proportion to text times pattern.
bool wildcardMatch(std::wstring_view text, std::wstring_view pattern, bool ignoreCase);

}  // namespace kovra::arx

bool acutWcMatchEx(const ACHAR* text, const ACHAR* pattern, bool ignoreCase);
/// Case counts. RTNORM for a match, RTERROR otherwise.
int acutWcMatch(const ACHAR* text, const ACHAR* pattern);
