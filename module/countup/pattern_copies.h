#pragma once

#include "module/countup/pattern_layout.h"
#include "module/drawing/selection_set.h"

namespace kovra {

/// How the values of copies are counted.
struct CountRule {
  int radixCode;  ///< not dotted
  int step;       ///< from one copy to the next; 0: the values stay
};

/// Says on the command line how many copies the drawing didn't take; nothing for 0.
void TellMissingCopies(std::int64_t count);

/// Copies the texts of a selection into rows and columns, each copy counted on from its original.
/// @param scale drawing units for a distance of 1 in the pattern
void CopyIntoPattern(const SelectionSet& originals, const Pattern& pattern, double scale,
                     const CountRule& rule);

}  // namespace kovra
