#pragma once

#include "module/frame/seam.h"

namespace kovra {

class COptionPage1;

/// A table of the parameter file as the page shows it.
struct OptionTable {
  const ACHAR* name;
  UINT grid;     ///< the control
  UINT tabText;  ///< the string
  SHORT digits;  ///< of its numbers behind the point; kTextCells: it holds texts
  const ACHAR* const* builtinRows;
  int builtinCount;
};

inline constexpr SHORT kTextCells = -1;
inline constexpr int kOptionTables = 5;

/// `index`: from 0 in the order of the tabs.
const OptionTable& OptionTableAt(int index);

/// Fills the page's grids from the current project's parameter file. A table that the file doesn't
/// count is filled with built-in rows as a whole; a row that the file lacks leaves its cell as it
/// was.
/// @return 0 when all tables came from the file, otherwise the number of those that it doesn't
///         count, or 1 when it can't be used
int LoadOptionTables(COptionPage1& page);

/// Writes the page's grids to the file: rows that aren't empty, numbered without gaps, and their
/// number. False, with the file as it was, when that fails; a project that is missing or out of
/// reach is said on the command line.
bool SaveOptionTables(COptionPage1& page);

}  // namespace kovra
