#include "desktop/view/box_index.h"

#include <boost/geometry.hpp>
#include <boost/geometry/geometries/box.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/index/rtree.hpp>

namespace kovra::desktop {
namespace {

namespace geometry = boost::geometry;
using Place = geometry::model::d2::point_xy<double>;
using PlaceBox = geometry::model::box<Place>;
using Value = std::pair<PlaceBox, std::uint32_t>;

PlaceBox placeBox(const Box& box) {
  return {{box.left, box.bottom}, {box.right, box.top}};
}

Value valueOf(const BoxIndex::Entry& entry) {
  return {placeBox(entry.first), entry.second};
}

}  // namespace

class BoxIndex::Tree : public geometry::index::rtree<Value, geometry::index::rstar<16>> {
 public:
  using rtree::rtree;
};

BoxIndex::BoxIndex() : tree_(std::make_unique<Tree>()) {}
BoxIndex::~BoxIndex() = default;
BoxIndex::BoxIndex(BoxIndex&& other) noexcept = default;
BoxIndex& BoxIndex::operator=(BoxIndex&& other) noexcept = default;

void BoxIndex::build(const std::vector<Entry>& entries) {
  std::vector<Value> values;
  values.reserve(entries.size());
  for (const Entry& entry : entries) values.push_back(valueOf(entry));
  tree_ = std::make_unique<Tree>(values);
}

void BoxIndex::insert(const Entry& entry) {
  tree_->insert(valueOf(entry));
}

void BoxIndex::remove(const Entry& entry) {
  tree_->remove(valueOf(entry));
}

void BoxIndex::find(const Box& box, std::vector<std::uint32_t>& found) const {
  for (auto at = tree_->qbegin(geometry::index::intersects(placeBox(box))); at != tree_->qend();
       ++at)
    found.push_back(at->second);
}

}  // namespace kovra::desktop
