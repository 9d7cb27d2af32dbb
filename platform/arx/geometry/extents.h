// A box along the world's axes.
#pragma once
#include "platform/arx/geometry/geometry.h"

class AcDbExtents {
 public:
  /// An empty box: the first point added makes it valid.
  AcDbExtents() = default;
  AcDbExtents(const AcGePoint3d& min, const AcGePoint3d& max) : min_(min), max_(max) {}
  AcGePoint3d minPoint() const { return min_; }
  AcGePoint3d maxPoint() const { return max_; }
  void set(const AcGePoint3d& min, const AcGePoint3d& max) { min_ = min, max_ = max; }
  void addPoint(const AcGePoint3d& point);
  void addExt(const AcDbExtents& other);
  bool isValid() const { return min_.x <= max_.x; }

 private:
  AcGePoint3d min_{1e20, 1e20, 1e20};
  AcGePoint3d max_{-1e20, -1e20, -1e20};
};
