#include "platform/arx/drawing/drawn_shapes.h"

#include "platform/arx/drawing/record_draw.h"
#include "platform/arx/drawing/text_outline.h"
#include "platform/arx/geometry/gi.h"

namespace kovra::arx {

using dxf::RecordKind;

/// Keeps chains of points and filled faces; curves come in chords.
class ShapeReader::Chains : public TransformedGeometry {
 public:
  explicit Chains(std::vector<DrawnShape>& shapes) : shapes_(shapes) {}

  Adesk::Boolean draw(AcGiDrawable*) const override { return false; }
  Adesk::Boolean polyline(Adesk::UInt32 count, const AcGePoint3d* points) const override {
    add(count, points);
    return true;
  }
  Adesk::Boolean polygon(Adesk::UInt32 count, const AcGePoint3d* points) const override {
    DrawnShape& shape = add(count, points);
    shape.filled = true;
    if (!shape.points.empty()) shape.points.push_back(shape.points.front());
    return true;
  }
  Adesk::Boolean text(const AcGePoint3d&, const AcGeVector3d&, const AcGeVector3d&, double, double,
                      double, const ACHAR*) const override {
    return false;
  }

 private:
  DrawnShape& add(Adesk::UInt32 count, const AcGePoint3d* points) const {
    DrawnShape& shape = shapes_.emplace_back();
    shape.points.assign(points, points + count);
    for (AcGePoint3d& point : shape.points) point.transformBy(toWorld());
    return shape;
  }

  std::vector<DrawnShape>& shapes_;
};

const std::vector<DrawnShape>& ShapeReader::read(dxf::RecordIndex record,
                                                 const dxf::RecordDraft& draft) {
  shapes_.clear();
  switch (draft.kind()) {
    case RecordKind::kText:
    case RecordKind::kAttrib:
    case RecordKind::kAttDef:
      shapes_.push_back({textOutline(database_, draft), true});
      break;
    case RecordKind::kMText:
      shapes_.push_back({mtextOutline(database_, draft), true});
      break;
    default: {
      Chains chains(shapes_);
      drawRecord(database_, record, draft, chains);
    }
  }
  return shapes_;
}

}  // namespace kovra::arx
