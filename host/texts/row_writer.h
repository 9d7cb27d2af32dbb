#pragma once

#include <functional>
#include <ostream>
#include <string>

#include "host/program/options.h"
#include "host/texts/text_rows.h"

namespace kovra::host {

/// Calls its argument for every row; may be asked more than once.
using RowSource = std::function<void(const std::function<void(const TextRow&)>&)>;

/// How rows are printed.
struct RowForm {
  ListFormat format = ListFormat::kTable;
  bool raw = false;  ///< comma separated values: texts as they are, also those that a spreadsheet
                     ///< would take for a formula
  bool extents = false;  ///< with the columns of the rows' extents
  bool many = false;     ///< the rows of several drawings: the first column is the drawing's name
};

/// What stands once before the rows of all drawings: the head line of comma separated values.
void writeListHead(std::ostream& out, const RowForm& form);

/// Prints the rows of a drawing in one of the forms of `kovra list`: a table with a head line,
/// columns aligned by the width of the characters in a terminal (rows are asked for twice, so that
/// they needn't be kept); comma separated values by RFC 4180; JSON, one object a line.
void writeRows(std::ostream& out, const RowForm& form, const std::string& drawing,
               const RowSource& rows);

}  // namespace kovra::host
