#pragma once

#include <vector>

#include "platform/arx/geometry/geometry.h"
#include "platform/dxf/record_draft.h"
#include "platform/dxf/record_kind.h"

class AcDbDatabase;

namespace kovra::arx {

/// A piece of what an entity draws: a chain of points, curves cut into chords. A filled one is hit
/// inside as well and has its first point for its last.
struct DrawnShape {
  std::vector<AcGePoint3d> points;
  bool filled = false;
};

/// The shapes of one record in the coordinates of its block or space; texts are their boxes.
/// Nothing for block references, dimensions (see drawing_walk.h) and types that nothing is known
/// of. Reads the record's groups only.
class ShapeReader {
 public:
  explicit ShapeReader(const AcDbDatabase& database) : database_(database) {}

  /// `draft` must be the record's. The shapes are valid until the next call.
  const std::vector<DrawnShape>& read(dxf::RecordIndex record, const dxf::RecordDraft& draft);

 private:
  class Chains;

  const AcDbDatabase& database_;
  std::vector<DrawnShape> shapes_;
};

}  // namespace kovra::arx
