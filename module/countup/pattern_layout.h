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

/// Number of places, the one of the originals included; below 2 there is nothing to copy.
std::int64_t placeCount(const Pattern& pattern);

/// Distance of a place from the originals in drawing units; place 0 is theirs.
Offset placeOffset(const Pattern& pattern, std::int64_t place, double scale);

}  // namespace kovra
