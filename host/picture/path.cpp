#include "host/picture/path.h"

#include <algorithm>

namespace kovra::host {

Affine Affine::inverse() const {
  const double det = a * d - b * c;
  const Affine turned{d / det, -b / det, -c / det, a / det, 0, 0};
  const Spot origin = turned({e, f});
  return {turned.a, turned.b, turned.c, turned.d, -origin.x, -origin.y};
}

void Bounds::add(Spot p) {
  left = std::min(left, p.x);
  right = std::max(right, p.x);
  top = std::min(top, p.y);
  bottom = std::max(bottom, p.y);
}

void Path::add(Step step, std::span<const Spot> spots) {
  steps_.push_back(step);
  spots_.insert(spots_.end(), spots.begin(), spots.end());
}

void Path::curveTo(Spot first, Spot second, Spot to) {
  const Spot spots[] = {first, second, to};
  add(Step::kCurve, spots);
}

void Path::box(double left, double top, double right, double bottom) {
  moveTo({left, top});
  lineTo({right, top});
  lineTo({right, bottom});
  lineTo({left, bottom});
  close();
}

void Path::append(const Path& other, const Affine& matrix) {
  steps_.insert(steps_.end(), other.steps_.begin(), other.steps_.end());
  for (const Spot spot : other.spots_) spots_.push_back(matrix(spot));
}

void Path::clear() {
  steps_.clear();
  spots_.clear();
}

Bounds Path::bounds() const {
  Bounds box;
  for (const Spot spot : spots_) box.add(spot);
  return box;
}

}  // namespace kovra::host
