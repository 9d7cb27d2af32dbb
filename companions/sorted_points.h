#pragma once

#include <vector>

#include "platform/arx/geometry/point_arrays.h"

namespace kovra::companions {

/// Whether a sort code of UiToolsLib puts points in an order of their own. 12544 leaves everything
/// in the order of its selection.
bool sortsPoints(int sortCode);

/// The order that a sort code of UiToolsLib gives the first `count` points: which of them is the
/// first, the second ... Equal ones keep their order; an unknown code changes nothing.
std::vector<int> sortedPlaces(int sortCode, const AcGePoint3dArray& points, int count);

}  // namespace kovra::companions
