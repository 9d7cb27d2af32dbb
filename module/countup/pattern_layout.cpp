#include "module/countup/pattern_layout.h"

namespace kovra {
namespace {

constexpr int kOneColumn = 0;
constexpr int kOneRow = 1;
constexpr int kColumnByColumn = 2;

}  // namespace

PatternGrid gridOf(const Pattern& pattern) {
  PatternGrid grid;
  if (pattern.direction != kOneRow) {
    grid.rows = pattern.rows;
    grid.rowStep = -pattern.rowHeight;
  }
  if (pattern.direction != kOneColumn) {
    grid.columns = pattern.columns;
    grid.columnStep = pattern.columnWidth;
  }
  return grid;
}

std::int64_t placeCount(const Pattern& pattern) {
  const PatternGrid grid = gridOf(pattern);
  return grid.rows * grid.columns;
}

PatternCell cellOf(const Pattern& pattern, std::int64_t place) {
  const PatternGrid grid = gridOf(pattern);
  const bool downFirst = pattern.direction == kOneColumn || pattern.direction == kColumnByColumn;
  if (downFirst) return {place % grid.rows, place / grid.rows};
  return {place / grid.columns, place % grid.columns};
}

Offset placeOffset(const Pattern& pattern, std::int64_t place, double scale) {
  const PatternGrid grid = gridOf(pattern);
  const PatternCell cell = cellOf(pattern, place);
  return {scale * grid.columnStep * static_cast<double>(cell.column),
          scale * grid.rowStep * static_cast<double>(cell.row)};
}

}  // namespace kovra
