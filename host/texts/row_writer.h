#pragma once

#include <functional>
#include <ostream>
#include <string>

#include "host/program/options.h"
#include "host/texts/text_rows.h"

namespace kovra::host {

/// Calls its argument for every row; may be asked more than once.
using RowSource = std::function<void(const std::function<void(const TextRow&)>&)>;

/// Prints rows in one of the forms of `kovra list`:
/// a table with a head line, columns aligned by the width of the characters in a terminal (rows are
/// asked for twice, so that they needn't be kept);
/// comma separated values by RFC 4180 with a head line; JSON, one object a line.
/// With a drawing's name that name is the first column.
/// `head` is false for further drawings of the same list (tables always have their own).
void writeRows(std::ostream& out, ListFormat format, const std::string& drawing, bool head,
               const RowSource& rows);

}  // namespace kovra::host
