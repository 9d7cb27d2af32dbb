// Columns of a multi-line text, as its embedded object keeps them (release 2018 on).
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "platform/dxf/record_draft.h"

namespace kovra::arx {

struct MTextColumns {
  double width = 0;
  double gap = 0;                 ///< between two columns
  std::size_t count = 0;          ///< 0: as many as the text fills
  double height = 0;              ///< of each column; 0: without end
  std::vector<double> heights{};  ///< of single ones, in place of `height`
  bool leftward = false;          ///< the first one is the rightmost

  /// The last one takes all that is left.
  bool isLast(std::size_t column) const { return count > 0 && column + 1 >= count; }
  /// Whether a line with its base so far below the column's top has no room in it.
  bool isPast(std::size_t column, double depth) const;
  /// From the left end of all columns to that of one, when there are so many.
  double leftOf(std::size_t column, std::size_t columns) const;
  double widthOf(std::size_t columns) const;
};

/// Nothing for a text without columns.
std::optional<MTextColumns> readColumns(const dxf::RecordDraft& draft);

}  // namespace kovra::arx
