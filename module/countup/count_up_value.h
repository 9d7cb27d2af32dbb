#pragma once

#include <cstdint>

#include "module/drawing/text_entity.h"

namespace kovra {

/// Counts a text by `count` (not 0) in the numbering system of a code that isn't dotted yet. From
/// data version "10.0" on also a number in full-width characters. A downward count that isn't
/// possible says so on the command line.
/// @return false, with the text as it was, for a text that is no number and a count that is refused
bool CountUpValue(CString& text, int radixCode, std::int64_t count);

/// Counts the value of a TEXT.
/// @param value receives the counted value, or the unchanged one when it can't be counted. Stays as
///        it is when the entity is no TEXT or has no value.
/// @return 1 when the value was counted or the count is 0, else 0
int CountUpText(const TextSource& text, int radixCode, std::int64_t count, CString& value);

}  // namespace kovra
