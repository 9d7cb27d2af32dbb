#pragma once

#include <ostream>

#include "host/compare/drawing_diff.h"

namespace kovra::host {

/// "added", "erased", "changed", "moved".
const char* changeName(ChangeKind kind);

/// Prints a change for people: a line for the record, an indented one for each group, "40: 2.5 ->
/// 3". Control characters become blanks.
void writeChangeText(std::ostream& out, const RecordChange& change);

/// Prints a change as one JSON object in a line: change, type, handle, name, place, and groups,
/// each with code, before and after; what isn't there is null.
void writeChangeJson(std::ostream& out, const RecordChange& change);

}  // namespace kovra::host
