#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "module/countup/pattern_layout.h"
#include "module/frame/seam.h"

/// The texts of a group that is placed with one drag, in the order of building, each with its
/// distance from the point of the drag: drawing units along the axes of the user's coordinate
/// system.
namespace kovra {

struct GroupText {
  CString text;
  Offset offset;
};

/// Distance of a cell from the first one. The order of the factors is part of the result: places
/// are compared to the last digit.
Offset arrayOffset(const Pattern& pattern, std::int64_t index, double scale);

/// Lines under each other. An empty line has no text and keeps its room.
/// @param height of the text on paper
/// @param spacing from line to line, in heights
/// @param scale drawing units for a distance of 1 on paper
std::vector<GroupText> layOutLines(const std::vector<CString>& lines, double height, double spacing,
                                   double scale);

/// Counts a value on for the next text. False when it can't be counted.
using CountOn = std::function<bool(CString&)>;

/// What the texts of an array show: the value between prefix and suffix.
struct ArrayValue {
  CString prefix;
  CString value;
  CString suffix;
};

/// Fills an array of rows and columns.
/// @param value its value is counted on behind every text, the last one included, and so is the
///        next one to be placed afterwards
/// @param countOn empty: all texts are the same. A value that it can't count is the last one.
std::vector<GroupText> layOutArray(const Pattern& pattern, double scale, ArrayValue& value,
                                   const CountOn& countOn);

}  // namespace kovra
