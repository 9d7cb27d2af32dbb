// Points, vectors and boxes.
#include "platform/arx/geometry/geometry.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "platform/arx/geometry/extents.h"

constinit AcGeTol AcGeContext::gTol;
constinit const AcGePoint2d AcGePoint2d::kOrigin;
constinit const AcGePoint3d AcGePoint3d::kOrigin;
constinit const AcGeVector3d AcGeVector3d::kIdentity;
constinit const AcGeVector3d AcGeVector3d::kXAxis(1, 0, 0);
constinit const AcGeVector3d AcGeVector3d::kYAxis(0, 1, 0);
constinit const AcGeVector3d AcGeVector3d::kZAxis(0, 0, 1);

AcGePoint3d& AcGePoint3d::set(double px, double py, double pz) {
  x = px;
  y = py;
  z = pz;
  return *this;
}

AcGePoint3d& AcGePoint3d::rotateBy(double angle, const AcGeVector3d& axis,
                                   const AcGePoint3d& origin) {
  return *this = origin + (*this - origin).rotateBy(angle, axis);
}

AcGePoint3d& AcGePoint3d::transformBy(const AcGeMatrix3d& m) {
  return set(m(0, 0) * x + m(0, 1) * y + m(0, 2) * z + m(0, 3),
             m(1, 0) * x + m(1, 1) * y + m(1, 2) * z + m(1, 3),
             m(2, 0) * x + m(2, 1) * y + m(2, 2) * z + m(2, 3));
}

double AcGePoint3d::distanceTo(const AcGePoint3d& other) const {
  return (*this - other).length();
}

bool AcGePoint3d::isEqualTo(const AcGePoint3d& other, const AcGeTol& tol) const {
  return distanceTo(other) <= tol.equalPoint();
}

AcGeVector3d AcGePoint3d::asVector() const {
  return {x, y, z};
}

AcGePoint3d& AcGePoint3d::operator+=(const AcGeVector3d& v) {
  return set(x + v.x, y + v.y, z + v.z);
}
AcGePoint3d& AcGePoint3d::operator-=(const AcGeVector3d& v) {
  return set(x - v.x, y - v.y, z - v.z);
}
AcGePoint3d AcGePoint3d::operator+(const AcGeVector3d& v) const {
  return {x + v.x, y + v.y, z + v.z};
}
AcGePoint3d AcGePoint3d::operator-(const AcGeVector3d& v) const {
  return {x - v.x, y - v.y, z - v.z};
}
AcGeVector3d AcGePoint3d::operator-(const AcGePoint3d& other) const {
  return {x - other.x, y - other.y, z - other.z};
}

AcGeVector3d& AcGeVector3d::set(double px, double py, double pz) {
  x = px;
  y = py;
  z = pz;
  return *this;
}

double AcGeVector3d::length() const {
  return std::hypot(x, y, z);
}

AcGeVector3d AcGeVector3d::normal() const {
  const double l = length();
  return l > 0 ? AcGeVector3d(x / l, y / l, z / l) : *this;
}

AcGeVector3d& AcGeVector3d::normalize() {
  return *this = normal();
}

double AcGeVector3d::dotProduct(const AcGeVector3d& o) const {
  return x * o.x + y * o.y + z * o.z;
}

AcGeVector3d AcGeVector3d::crossProduct(const AcGeVector3d& o) const {
  return {y * o.z - z * o.y, z * o.x - x * o.z, x * o.y - y * o.x};
}

double AcGeVector3d::angleTo(const AcGeVector3d& other) const {
  return std::atan2(crossProduct(other).length(), dotProduct(other));
}

double AcGeVector3d::angleTo(const AcGeVector3d& other, const AcGeVector3d& reference) const {
  const double angle = angleTo(other);
  if (angle == 0 || crossProduct(other).dotProduct(reference) >= 0) return angle;
  return 2 * std::numbers::pi - angle;
}

AcGeVector3d& AcGeVector3d::rotateBy(double angle, const AcGeVector3d& axis) {
  return transformBy(AcGeMatrix3d::rotation(angle, axis));
}

AcGeVector3d& AcGeVector3d::transformBy(const AcGeMatrix3d& m) {
  return set(m(0, 0) * x + m(0, 1) * y + m(0, 2) * z, m(1, 0) * x + m(1, 1) * y + m(1, 2) * z,
             m(2, 0) * x + m(2, 1) * y + m(2, 2) * z);
}

AcGeVector3d AcGeVector3d::perpVector() const {
  const bool nearZ = std::fabs(x) < std::fabs(z) / 64 && std::fabs(y) < std::fabs(z) / 64;
  return (nearZ ? kYAxis : kZAxis).crossProduct(*this).normal();
}

AcGeVector3d& AcGeVector3d::negate() {
  return set(-x, -y, -z);
}

bool AcGeVector3d::isZeroLength(const AcGeTol& tol) const {
  return length() <= tol.equalVector();
}

bool AcGeVector3d::isParallelTo(const AcGeVector3d& other, const AcGeTol& tol) const {
  return normal().crossProduct(other.normal()).length() <= tol.equalVector();
}

bool AcGeVector3d::isEqualTo(const AcGeVector3d& other, const AcGeTol& tol) const {
  return (*this - other).length() <= tol.equalVector();
}

AcGeVector3d operator*(double factor, const AcGeVector3d& vector) {
  return vector * factor;
}

void AcDbExtents::addPoint(const AcGePoint3d& p) {
  min_.set(std::min(min_.x, p.x), std::min(min_.y, p.y), std::min(min_.z, p.z));
  max_.set(std::max(max_.x, p.x), std::max(max_.y, p.y), std::max(max_.z, p.z));
}

void AcDbExtents::addExt(const AcDbExtents& other) {
  if (!other.isValid()) return;
  addPoint(other.min_);
  addPoint(other.max_);
}
