#include "module/countup/pattern_layout.h"

namespace kovra {
namespace {

constexpr int kOneColumn = 0;
constexpr int kOneRow = 1;
constexpr int kColumnByColumn = 2;

struct Grid {
  std::int64_t rows = 1;
  std::int64_t columns = 1;
  double rowStep = 0;
  double columnStep = 0;
};

Grid gridOf(const Pattern& pattern) {
  Grid grid;
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

}  // namespace

std::int64_t placeCount(const Pattern& pattern) {
  const Grid grid = gridOf(pattern);
  return grid.rows * grid.columns;
}

Offset placeOffset(const Pattern& pattern, std::int64_t place, double scale) {
  const Grid grid = gridOf(pattern);
  const bool downFirst = pattern.direction == kOneColumn || pattern.direction == kColumnByColumn;
  const std::int64_t row = downFirst ? place % grid.rows : place / grid.columns;
  const std::int64_t column = downFirst ? place / grid.rows : place % grid.columns;
  return {scale * grid.columnStep * static_cast<double>(column),
          scale * grid.rowStep * static_cast<double>(row)};
}

}  // namespace kovra
