#pragma once

#include <optional>

#include "platform/spread/spread.h"

/// Which cells are selected, and where keys lead. Arithmetic on numbers of columns and rows.
namespace kovra::spread {

/// First and last cell; in both -1 for whole rows or columns.
struct Block {
  SS_CELL first;
  SS_CELL last;
};

/// How far a grid goes.
struct Extent {
  LONG columns = 0;
  LONG rows = 0;
  LONG filledRows = 0;  ///< the last row with a text
  LONG pageRows = 1;    ///< rows in sight
};

struct Selection {
  SS_CELL active{1, 1};  ///< also the corner where a block begins
  SS_CELL lead{1, 1};    ///< the opposite corner, which moves
  std::optional<Block> block;

  void moveTo(SS_CELL cell);
  /// The block from the active cell to another one; a -1 there takes the whole row or column.
  void extendTo(SS_CELL cell);
};

/// The block with two cells as corners.
Block blockBetween(SS_CELL one, SS_CELL other);
bool holds(const Block& block, SS_CELL cell);
/// The same with the columns and rows that there are in the place of -1, and nothing beyond them.
Block bounded(const Block& block, const Extent& extent);
/// A cell that there is, the nearest one.
SS_CELL boundedCell(SS_CELL cell, const Extent& extent);

/// Where an arrow, Home, End or page key leads; nothing for other keys.
std::optional<SS_CELL> cellByKey(SS_CELL from, int key, bool control, const Extent& extent);
/// The next cell in reading order, or the one before; the last one is its own next.
SS_CELL nextCell(SS_CELL from, bool back, const Extent& extent);

}  // namespace kovra::spread
