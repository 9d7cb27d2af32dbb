#pragma once

#include <map>
#include <optional>

#include "platform/spread/spread.h"

namespace kovra::spread {

/// Where the cells are in the client area, in pixels. Rows are all as high.
struct GridLayout {
  SIZE client{};
  bool columnHeaders = true;
  bool rowHeaders = true;
  bool scrollBar = true;
  std::map<LONG, LONG> widths;  ///< of the columns that were given one
  LONG leftColumn = 1;          ///< the first ones in sight
  LONG topRow = 1;
  LONG columns = 0;
  LONG rows = 0;

  LONG widthOf(LONG col) const;
  /// The part that shows cells, without headers and scroll bar.
  RECT cellsArea() const;
  /// Rows that are seen as a whole, at least 1.
  LONG pageRows() const;
  /// The place of a cell or header, cut to what is in sight; empty for those that aren't.
  RECT placeOf(LONG col, LONG row) const;
  /// The cell or header (0) at a place; nothing where there is none.
  std::optional<SS_CELL> cellAt(POINT point) const;
  /// Scrolls as little as needed to show the cell.
  void scrollTo(SS_CELL cell);

  static constexpr LONG kRowHeight = 18;
  static constexpr LONG kHeaderWidth = 48;
  static constexpr LONG kColumnWidth = 64;
  static constexpr LONG kScrollBar = 17;
};

}  // namespace kovra::spread
