#pragma once

#include "module/countup/radix_rules.h"
#include "module/frame/seam.h"

namespace kovra {

/// Combo box of the numbering systems, in every dialog that has one.
inline constexpr int kRadixCombo = 1978;

/// One numbering system as dialogs offer it.
struct RadixRow {
  ACHAR Label[256];  ///< empty until a dialog loads it
  int RadixCode;     ///< for RadixNumber; never changes
};

/// The numbering systems of the process. Dialogs store the row, never the code.
extern RadixRow RadixTable[kRadixRows];

/// Code of a row; that of decimal numbers for a number that is no row.
int RadixCodeOf(int row);

/// Loads the labels in the user's language and fills the combo box of a dialog with them.
void FillRadixCombo(CWnd& dialog);

}  // namespace kovra
