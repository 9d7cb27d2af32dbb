#include "platform/arx/geometry/ocs.h"

#include <cmath>

namespace kovra::arx {
namespace {

bool isWorld(const AcGeVector3d& normal) {
  return normal.x == 0 && normal.y == 0 && normal.z > 0;
}

}  // namespace

AcGeVector3d ocsXAxis(const AcGeVector3d& normal) {
  const AcGeVector3d n = normal.normal();
  const bool nearZ = std::fabs(n.x) < 1.0 / 64 && std::fabs(n.y) < 1.0 / 64;
  return (nearZ ? AcGeVector3d(0, 1, 0) : AcGeVector3d(0, 0, 1)).crossProduct(n).normal();
}

AcGeMatrix3d ocsToWcs(const AcGeVector3d& normal) {
  AcGeMatrix3d matrix;
  if (isWorld(normal)) return matrix;
  const AcGeVector3d z = normal.normal();
  const AcGeVector3d x = ocsXAxis(normal);
  return matrix.setCoordSystem(AcGePoint3d(), x, z.crossProduct(x).normal(), z);
}

AcGeMatrix3d wcsToOcs(const AcGeVector3d& normal) {
  const AcGeMatrix3d forth = ocsToWcs(normal);
  AcGeMatrix3d back;
  for (unsigned row = 0; row < 3; ++row)
    for (unsigned column = 0; column < 3; ++column) back(row, column) = forth(column, row);
  return back;
}

AcGePoint3d ocsToWcs(const AcGePoint3d& point, const AcGeVector3d& normal) {
  if (isWorld(normal)) return point;
  return AcGePoint3d(point).transformBy(ocsToWcs(normal));
}

AcGePoint3d wcsToOcs(const AcGePoint3d& point, const AcGeVector3d& normal) {
  if (isWorld(normal)) return point;
  return AcGePoint3d(point).transformBy(wcsToOcs(normal));
}

}  // namespace kovra::arx
