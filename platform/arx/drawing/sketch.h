#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/arx/geometry/gi.h"

namespace kovra::arx {

/// A context that keeps what is drawn into it, for a front end to paint.
class Sketch : public AcGiWorldDraw {
 public:
  struct Text {
    AcGePoint3d position;
    AcGeVector3d direction;
    double height;
    double width;  ///< factor
    std::wstring message;
  };

  Sketch();
  ~Sketch() override;
  AcGiGeometry& geometry() const override;
  const std::vector<Text>& texts() const { return texts_; }
  const std::vector<std::vector<AcGePoint3d>>& polylines() const { return polylines_; }
  void clear();

 private:
  class Geometry;

  std::unique_ptr<Geometry> geometry_;
  std::vector<Text> texts_;
  std::vector<std::vector<AcGePoint3d>> polylines_;
};

}  // namespace kovra::arx
