#include "companions/sorted_points.h"

#include <algorithm>
#include <iterator>
#include <numeric>

namespace kovra::companions {
namespace {

/// Heights that differ by no more are one row.
constexpr double kSameHeight = 0.0001;

using Places = std::vector<int>;

/// From top to bottom, and from left to right what is at one height. Heights are compared with the
/// row's first: comparing them pair by pair with a tolerance would be no order.
void sortRows(const AcGePoint3dArray& points, Places& places) {
  std::stable_sort(places.begin(), places.end(),
                   [&](int a, int b) { return points.at(a).y > points.at(b).y; });
  for (auto row = places.begin(); row != places.end();) {
    const double height = points.at(*row).y;
    const auto below = std::find_if(std::next(row), places.end(), [&](int i) {
      return !(points.at(i).y >= height - kSameHeight);
    });
    // In a row what was selected first comes first where nothing else decides.
    std::stable_sort(row, below, [&](int a, int b) {
      return points.at(a).x != points.at(b).x ? points.at(a).x < points.at(b).x : a < b;
    });
    row = below;
  }
}

struct SortOrder {
  int code;
  void (*sort)(const AcGePoint3dArray& points, Places& places);
};

constexpr SortOrder kSortOrders[] = {
    {6, sortRows},
};

const SortOrder* findOrder(int sortCode) {
  const auto* order = std::find_if(std::begin(kSortOrders), std::end(kSortOrders),
                                   [&](const SortOrder& known) { return known.code == sortCode; });
  return order != std::end(kSortOrders) ? order : nullptr;
}

}  // namespace

bool sortsPoints(int sortCode) {
  return findOrder(sortCode) != nullptr;
}

std::vector<int> sortedPlaces(int sortCode, const AcGePoint3dArray& points, int count) {
  Places places(static_cast<std::size_t>(std::max(count, 0)));
  std::iota(places.begin(), places.end(), 0);
  if (const SortOrder* order = findOrder(sortCode)) order->sort(points, places);
  return places;
}

}  // namespace kovra::companions
