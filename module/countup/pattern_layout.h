#pragma once

#include <cstdint>

namespace kovra {

/// How copies are laid out in rows and columns. Rows run downward, columns to the right.
struct Pattern {
  int direction = 0;  ///< 0 one column, 1 one row, 2 column by column, 3 row by row
  int rows = 1;
  int columns = 1;
  double rowHeight = 0;    ///< distance of rows before the scale
  double columnWidth = 0;  ///< distance of columns before the scale
};

struct Offset {
  double x;
  double y;
};

/// The sizes that a direction makes use of: a single column has no use for the number of columns.
struct PatternGrid {
  std::int64_t rows = 1;
  std::int64_t columns = 1;
  double rowStep = 0;     ///< upward, before the scale
  double columnStep = 0;  ///< to the right, before the scale
};
PatternGrid gridOf(const Pattern& pattern);

struct PatternCell {
  std::int64_t row;     ///< downward from 0
  std::int64_t column;  ///< to the right from 0
};

/// Number of places, the one of the originals included; below 2 there is nothing to copy.
std::int64_t placeCount(const Pattern& pattern);

/// Where a place lies, in the order in which places are filled.
PatternCell cellOf(const Pattern& pattern, std::int64_t place);

/// Distance of a place from the originals in drawing units; place 0 is theirs.
Offset placeOffset(const Pattern& pattern, std::int64_t place, double scale);

}  // namespace kovra
