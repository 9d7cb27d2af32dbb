// 4 by 4 matrices.
#include <cmath>

#include "platform/arx/geometry/geometry.h"
#include "platform/arx/geometry/ocs.h"

const AcGeMatrix3d AcGeMatrix3d::kIdentity;

AcGeMatrix3d& AcGeMatrix3d::setToIdentity() {
  for (unsigned row = 0; row < 4; ++row)
    for (unsigned column = 0; column < 4; ++column) entry[row][column] = row == column ? 1 : 0;
  return *this;
}

AcGeMatrix3d& AcGeMatrix3d::setToTranslation(const AcGeVector3d& v) {
  setToIdentity();
  entry[0][3] = v.x;
  entry[1][3] = v.y;
  entry[2][3] = v.z;
  return *this;
}

// Rodrigues' formula about an axis of length 1, then moved to the center.
AcGeMatrix3d& AcGeMatrix3d::setToRotation(double angle, const AcGeVector3d& axis,
                                          const AcGePoint3d& center) {
  const AcGeVector3d a = axis.normal();
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  const double t = 1 - c;
  setToIdentity();
  entry[0][0] = t * a.x * a.x + c;
  entry[0][1] = t * a.x * a.y - s * a.z;
  entry[0][2] = t * a.x * a.z + s * a.y;
  entry[1][0] = t * a.x * a.y + s * a.z;
  entry[1][1] = t * a.y * a.y + c;
  entry[1][2] = t * a.y * a.z - s * a.x;
  entry[2][0] = t * a.x * a.z - s * a.y;
  entry[2][1] = t * a.y * a.z + s * a.x;
  entry[2][2] = t * a.z * a.z + c;
  const AcGeVector3d moved = center.asVector().transformBy(*this);
  entry[0][3] = center.x - moved.x;
  entry[1][3] = center.y - moved.y;
  entry[2][3] = center.z - moved.z;
  return *this;
}

AcGeMatrix3d& AcGeMatrix3d::setToScaling(double factor, const AcGePoint3d& center) {
  setToTranslation(center.asVector() * (1 - factor));
  for (unsigned i = 0; i < 3; ++i) entry[i][i] = factor;
  return *this;
}

AcGeMatrix3d& AcGeMatrix3d::setToPlaneToWorld(const AcGeVector3d& normal) {
  return *this = kovra::arx::ocsToWcs(normal);
}

AcGeMatrix3d& AcGeMatrix3d::setToWorldToPlane(const AcGeVector3d& normal) {
  return *this = kovra::arx::wcsToOcs(normal);
}

AcGeMatrix3d& AcGeMatrix3d::setCoordSystem(const AcGePoint3d& origin, const AcGeVector3d& xAxis,
                                           const AcGeVector3d& yAxis, const AcGeVector3d& zAxis) {
  setToIdentity();
  for (unsigned row = 0; row < 3; ++row) {
    entry[row][0] = xAxis[row];
    entry[row][1] = yAxis[row];
    entry[row][2] = zAxis[row];
    entry[row][3] = origin[row];
  }
  return *this;
}

void AcGeMatrix3d::getCoordSystem(AcGePoint3d& origin, AcGeVector3d& xAxis, AcGeVector3d& yAxis,
                                  AcGeVector3d& zAxis) const {
  for (unsigned row = 0; row < 3; ++row) {
    xAxis[row] = entry[row][0];
    yAxis[row] = entry[row][1];
    zAxis[row] = entry[row][2];
    origin[row] = entry[row][3];
  }
}

AcGeMatrix3d& AcGeMatrix3d::setToProduct(const AcGeMatrix3d& a, const AcGeMatrix3d& b) {
  AcGeMatrix3d product;
  for (unsigned row = 0; row < 4; ++row)
    for (unsigned column = 0; column < 4; ++column) {
      double sum = 0;
      for (unsigned k = 0; k < 4; ++k) sum += a.entry[row][k] * b.entry[k][column];
      product.entry[row][column] = sum;
    }
  return *this = product;
}

AcGeMatrix3d AcGeMatrix3d::translation(const AcGeVector3d& vector) {
  return AcGeMatrix3d().setToTranslation(vector);
}
AcGeMatrix3d AcGeMatrix3d::rotation(double angle, const AcGeVector3d& axis,
                                    const AcGePoint3d& center) {
  return AcGeMatrix3d().setToRotation(angle, axis, center);
}
AcGeMatrix3d AcGeMatrix3d::scaling(double scale, const AcGePoint3d& center) {
  return AcGeMatrix3d().setToScaling(scale, center);
}
AcGeMatrix3d AcGeMatrix3d::planeToWorld(const AcGeVector3d& normal) {
  return kovra::arx::ocsToWcs(normal);
}
AcGeMatrix3d AcGeMatrix3d::worldToPlane(const AcGeVector3d& normal) {
  return kovra::arx::wcsToOcs(normal);
}

AcGeMatrix3d AcGeMatrix3d::operator*(const AcGeMatrix3d& other) const {
  return AcGeMatrix3d().setToProduct(*this, other);
}

double AcGeMatrix3d::det() const {
  const auto& e = entry;
  return e[0][0] * (e[1][1] * e[2][2] - e[1][2] * e[2][1]) -
         e[0][1] * (e[1][0] * e[2][2] - e[1][2] * e[2][0]) +
         e[0][2] * (e[1][0] * e[2][1] - e[1][1] * e[2][0]);
}

// The adjugate of the linear part over its determinant; the last row is taken as 0 0 0 1.
AcGeMatrix3d AcGeMatrix3d::inverse() const {
  const double d = det();
  if (d == 0) return *this;
  AcGeMatrix3d result;
  for (unsigned row = 0; row < 3; ++row)
    for (unsigned column = 0; column < 3; ++column) {
      const unsigned a = (column + 1) % 3;
      const unsigned b = (column + 2) % 3;
      const unsigned p = (row + 1) % 3;
      const unsigned q = (row + 2) % 3;
      result(row, column) = (entry[a][p] * entry[b][q] - entry[a][q] * entry[b][p]) / d;
    }
  const AcGeVector3d moved = translation().transformBy(result);
  result(0, 3) = -moved.x;
  result(1, 3) = -moved.y;
  result(2, 3) = -moved.z;
  return result;
}

AcGeMatrix3d& AcGeMatrix3d::invert() {
  return *this = inverse();
}

AcGeVector3d AcGeMatrix3d::translation() const {
  return {entry[0][3], entry[1][3], entry[2][3]};
}

double AcGeMatrix3d::scale() const {
  return AcGeVector3d(entry[0][0], entry[1][0], entry[2][0]).length();
}

bool AcGeMatrix3d::isEqualTo(const AcGeMatrix3d& other, const AcGeTol& tol) const {
  for (unsigned row = 0; row < 4; ++row)
    for (unsigned column = 0; column < 4; ++column)
      if (std::fabs(entry[row][column] - other.entry[row][column]) > tol.equalVector())
        return false;
  return true;
}
