#include "platform/spread/grid_layout.h"

#include <algorithm>

#include "platform/win/windows/window_api.h"

namespace kovra::spread {

LONG GridLayout::widthOf(LONG col) const {
  const auto found = widths.find(col);
  return found != widths.end() ? found->second : kColumnWidth;
}

RECT GridLayout::cellsArea() const {
  const LONG left = rowHeaders ? kHeaderWidth : 0;
  const LONG top = columnHeaders ? kRowHeight : 0;
  const LONG right = client.cx - (scrollBar ? kScrollBar : 0);
  return {left, top, std::max(left, right), std::max(top, client.cy)};
}

LONG GridLayout::pageRows() const {
  const RECT area = cellsArea();
  return std::max<LONG>(1, (area.bottom - area.top) / kRowHeight);
}

RECT GridLayout::placeOf(LONG col, LONG row) const {
  if (col < 0 || row < 0 || col > columns || row > rows) return {};
  const RECT area = cellsArea();
  RECT place{0, 0, area.left, area.top};
  if (col > 0) {
    if (col < leftColumn) return {};
    place.left = area.left;
    for (LONG before = leftColumn; before < col && place.left < area.right; ++before)
      place.left += widthOf(before);
    place.right = std::min(area.right, place.left + widthOf(col));
  }
  if (row > 0) {
    if (row < topRow || row - topRow > client.cy / kRowHeight) return {};
    place.top = area.top + (row - topRow) * kRowHeight;
    place.bottom = std::min(area.bottom, place.top + kRowHeight);
  }
  return place.left < place.right && place.top < place.bottom ? place : RECT{};
}

std::optional<SS_CELL> GridLayout::cellAt(POINT point) const {
  const RECT area = cellsArea();
  if (point.x < 0 || point.y < 0 || point.x >= area.right || point.y >= area.bottom) return {};
  SS_CELL cell{0, 0};
  if (point.x >= area.left) {
    LONG right = area.left;
    for (cell.col = leftColumn; cell.col <= columns; ++cell.col) {
      right += widthOf(cell.col);
      if (point.x < right) break;
    }
  }
  if (point.y >= area.top) cell.row = topRow + (point.y - area.top) / kRowHeight;
  return cell.col <= columns && cell.row <= rows ? std::optional(cell) : std::nullopt;
}

void GridLayout::scrollTo(SS_CELL cell) {
  const RECT area = cellsArea();
  if (cell.row > 0) {
    topRow = std::clamp(topRow, std::max<LONG>(1, cell.row - pageRows() + 1), cell.row);
  }
  if (cell.col <= 0) return;
  leftColumn = std::min(leftColumn, cell.col);
  const auto reach = [&] {
    LONG right = area.left;
    for (LONG col = leftColumn; col <= cell.col; ++col) right += widthOf(col);
    return right;
  };
  while (leftColumn < cell.col && reach() > area.right) ++leftColumn;
}

}  // namespace kovra::spread
