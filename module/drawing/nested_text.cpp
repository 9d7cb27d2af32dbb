#include "module/drawing/nested_text.h"

namespace kovra {
namespace {

AcGeMatrix3d blockTransform(const ads_matrix matrix) {
  AcGeMatrix3d transform;
  for (unsigned row = 0; row < 4; ++row) {
    for (unsigned column = 0; column < 4; ++column) {
      transform(row, column) = matrix[row][column];
    }
  }
  return transform;
}

}  // namespace

void TransformHeightAndAngle(double* height, double& angle, const ads_matrix matrix) {
  AcGePoint3d origin = AcGePoint3d::kOrigin;
  AcGePoint3d unit(1, 0, 0);
  AcGePoint3d top(0, height != nullptr ? *height : 1.0, 0);
  unit.rotateBy(angle, AcGeVector3d::kZAxis, AcGePoint3d::kOrigin);
  top.rotateBy(angle, AcGeVector3d::kZAxis, AcGePoint3d::kOrigin);
  const AcGeMatrix3d transform = blockTransform(matrix);
  origin.transformBy(transform);
  unit.transformBy(transform);
  top.transformBy(transform);
  if (height != nullptr) *height = origin.distanceTo(top);
  angle = AcGeVector3d::kXAxis.angleTo(unit - origin, AcGeVector3d::kZAxis);
}

}  // namespace kovra
