#include "platform/spread/grid_block.h"

#include <algorithm>

#include "platform/win/base/messages.h"

namespace kovra::spread {

void Selection::moveTo(SS_CELL cell) {
  active = lead = cell;
  block.reset();
}

void Selection::extendTo(SS_CELL cell) {
  lead = {cell.col > 0 ? cell.col : active.col, cell.row > 0 ? cell.row : active.row};
  block = blockBetween(active, lead);
  if (cell.col < 0) block->first.col = block->last.col = -1;
  if (cell.row < 0) block->first.row = block->last.row = -1;
}

Block blockBetween(SS_CELL one, SS_CELL other) {
  return {{std::min(one.col, other.col), std::min(one.row, other.row)},
          {std::max(one.col, other.col), std::max(one.row, other.row)}};
}

bool holds(const Block& block, SS_CELL cell) {
  const bool column =
      block.first.col < 0 || (cell.col >= block.first.col && cell.col <= block.last.col);
  const bool row =
      block.first.row < 0 || (cell.row >= block.first.row && cell.row <= block.last.row);
  return column && row;
}

Block bounded(const Block& block, const Extent& extent) {
  Block all = block;
  const auto bound = [](LONG& first, LONG& last, LONG count) {
    last = first < 0 ? count : std::min(last, count);
    first = std::max<LONG>(first, first < 0 ? 1 : 0);
  };
  bound(all.first.col, all.last.col, extent.columns);
  bound(all.first.row, all.last.row, extent.rows);
  return all;
}

SS_CELL boundedCell(SS_CELL cell, const Extent& extent) {
  return {std::clamp<LONG>(cell.col, 1, std::max<LONG>(1, extent.columns)),
          std::clamp<LONG>(cell.row, 1, std::max<LONG>(1, extent.rows))};
}

std::optional<SS_CELL> cellByKey(SS_CELL from, int key, bool control, const Extent& extent) {
  const LONG lastRow = std::max<LONG>(1, extent.filledRows);
  SS_CELL to = from;
  switch (key) {
    case VK_LEFT:
      to.col = control ? 1 : from.col - 1;
      break;
    case VK_RIGHT:
      to.col = control ? extent.columns : from.col + 1;
      break;
    case VK_UP:
      to.row = control ? 1 : from.row - 1;
      break;
    case VK_DOWN:
      to.row = !control ? from.row + 1 : from.row < lastRow ? lastRow : extent.rows;
      break;
    case VK_PRIOR:
      to.row = from.row - std::max<LONG>(1, extent.pageRows - 1);
      break;
    case VK_NEXT:
      to.row = from.row + std::max<LONG>(1, extent.pageRows - 1);
      break;
    case VK_HOME:
      to = {1, control ? 1 : from.row};
      break;
    case VK_END:
      to = {extent.columns, control ? lastRow : from.row};
      break;
    default:
      return std::nullopt;
  }
  return boundedCell(to, extent);
}

SS_CELL nextCell(SS_CELL from, bool back, const Extent& extent) {
  SS_CELL to{from.col + (back ? -1 : 1), from.row};
  if (to.col > extent.columns && to.row < extent.rows) to = {1, to.row + 1};
  if (to.col < 1 && to.row > 1) to = {extent.columns, to.row - 1};
  return boundedCell(to, extent);
}

}  // namespace kovra::spread
