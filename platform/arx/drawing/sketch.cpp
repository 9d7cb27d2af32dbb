#include "platform/arx/drawing/sketch.h"

#include "platform/arx/entities/text.h"

namespace kovra::arx {

class Sketch::Geometry : public TransformedGeometry {
 public:
  explicit Geometry(Sketch& sketch) : sketch_(sketch) {}

  Adesk::Boolean draw(AcGiDrawable* drawable) const override {
    return drawable != nullptr && drawable->worldDraw(&sketch_);
  }
  Adesk::Boolean polyline(Adesk::UInt32 count, const AcGePoint3d* points) const override {
    std::vector<AcGePoint3d>& line = sketch_.polylines_.emplace_back(points, points + count);
    for (AcGePoint3d& point : line) point.transformBy(toWorld());
    return true;
  }
  Adesk::Boolean text(const AcGePoint3d& position, const AcGeVector3d&,
                      const AcGeVector3d& direction, double height, double width, double,
                      const ACHAR* message) const override {
    sketch_.texts_.push_back({AcGePoint3d(position).transformBy(toWorld()),
                              AcGeVector3d(direction).transformBy(toWorld()), height, width,
                              message});
    return true;
  }

 private:
  Sketch& sketch_;
};

Sketch::Sketch() : geometry_(std::make_unique<Geometry>(*this)) {}

Sketch::~Sketch() = default;

AcGiGeometry& Sketch::geometry() const {
  return *geometry_;
}

void Sketch::clear() {
  texts_.clear();
  polylines_.clear();
}

}  // namespace kovra::arx
