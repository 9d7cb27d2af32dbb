#include "module/text7/array_layout.h"

namespace kovra {

Offset arrayOffset(const Pattern& pattern, std::int64_t index, double scale) {
  const PatternGrid grid = gridOf(pattern);
  const PatternCell cell = cellOf(pattern, index);
  return {static_cast<double>(cell.column) * grid.columnStep * scale,
          static_cast<double>(cell.row) * grid.rowStep * scale};
}

std::vector<GroupText> layOutLines(const std::vector<CString>& lines, double height, double spacing,
                                   double scale) {
  Pattern column;
  column.rows = static_cast<int>(lines.size());
  column.rowHeight = height * spacing;
  std::vector<GroupText> texts;
  for (int i = 0; i < column.rows; ++i) {
    const CString& line = lines[static_cast<std::size_t>(i)];
    if (!line.IsEmpty()) texts.push_back({line, arrayOffset(column, i, scale)});
  }
  return texts;
}

std::vector<GroupText> layOutArray(const Pattern& pattern, double scale, ArrayValue& value,
                                   const CountOn& countOn) {
  std::vector<GroupText> texts;
  const std::int64_t count = placeCount(pattern);
  for (std::int64_t i = 0; i < count; ++i) {
    texts.push_back({value.prefix + value.value + value.suffix, arrayOffset(pattern, i, scale)});
    if (countOn && !countOn(value.value)) break;
  }
  return texts;
}

}  // namespace kovra
