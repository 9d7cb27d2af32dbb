// Points, vectors, matrices. Lengths in drawing units, angles in radians.
#pragma once
#include <array>

class AcGeVector3d;
class AcGeMatrix3d;

/// Tolerances of comparisons.
class AcGeTol {
 public:
  AcGeTol() = default;
  double equalPoint() const { return equalPoint_; }
  double equalVector() const { return equalVector_; }
  void setEqualPoint(double value) { equalPoint_ = value; }
  void setEqualVector(double value) { equalVector_ = value; }

 private:
  double equalPoint_ = 1e-10;
  double equalVector_ = 1e-10;
};

class AcGeContext {
 public:
  static AcGeTol gTol;
};

class AcGePoint2d {
 public:
  constexpr AcGePoint2d() = default;
  constexpr AcGePoint2d(double px, double py) : x(px), y(py) {}
  static const AcGePoint2d kOrigin;
  double x = 0;
  double y = 0;
};

class AcGePoint3d {
 public:
  constexpr AcGePoint3d() = default;
  constexpr AcGePoint3d(double px, double py, double pz) : x(px), y(py), z(pz) {}
  static const AcGePoint3d kOrigin;

  AcGePoint3d& set(double px, double py, double pz);
  double operator[](unsigned i) const { return i == 0 ? x : i == 1 ? y : z; }
  double& operator[](unsigned i) { return i == 0 ? x : i == 1 ? y : z; }

  AcGePoint3d& rotateBy(double angle, const AcGeVector3d& axis,
                        const AcGePoint3d& origin = kOrigin);
  AcGePoint3d& transformBy(const AcGeMatrix3d& matrix);
  double distanceTo(const AcGePoint3d& other) const;
  /// Whether the distance is at most the tolerance's equalPoint.
  bool isEqualTo(const AcGePoint3d& other, const AcGeTol& tol = AcGeContext::gTol) const;
  AcGeVector3d asVector() const;
  AcGePoint3d& operator+=(const AcGeVector3d& vector);
  AcGePoint3d& operator-=(const AcGeVector3d& vector);
  AcGePoint3d operator+(const AcGeVector3d& vector) const;
  AcGePoint3d operator-(const AcGeVector3d& vector) const;
  AcGeVector3d operator-(const AcGePoint3d& other) const;
  AcGePoint3d operator*(double factor) const { return {x * factor, y * factor, z * factor}; }
  bool operator==(const AcGePoint3d& other) const { return isEqualTo(other); }
  bool operator!=(const AcGePoint3d& other) const { return !isEqualTo(other); }

  double x = 0;
  double y = 0;
  double z = 0;
};

class AcGeVector3d {
 public:
  constexpr AcGeVector3d() = default;
  constexpr AcGeVector3d(double px, double py, double pz) : x(px), y(py), z(pz) {}
  static const AcGeVector3d kIdentity;
  static const AcGeVector3d kXAxis;
  static const AcGeVector3d kYAxis;
  static const AcGeVector3d kZAxis;

  AcGeVector3d& set(double px, double py, double pz);
  double operator[](unsigned i) const { return i == 0 ? x : i == 1 ? y : z; }
  double& operator[](unsigned i) { return i == 0 ? x : i == 1 ? y : z; }

  double length() const;
  /// A vector of length 1, or this vector if its length is 0.
  AcGeVector3d normal() const;
  AcGeVector3d& normalize();
  double dotProduct(const AcGeVector3d& other) const;
  AcGeVector3d crossProduct(const AcGeVector3d& other) const;
  /// From 0 to pi.
  double angleTo(const AcGeVector3d& other) const;
  /// From 0 up to a full turn, counter-clockwise as seen from the end of `reference`.
  double angleTo(const AcGeVector3d& other, const AcGeVector3d& reference) const;
  AcGeVector3d& rotateBy(double angle, const AcGeVector3d& axis);
  AcGeVector3d& transformBy(const AcGeMatrix3d& matrix);
  AcGeVector3d perpVector() const;
  AcGeVector3d& negate();
  bool isZeroLength(const AcGeTol& tol = AcGeContext::gTol) const;
  bool isParallelTo(const AcGeVector3d& other, const AcGeTol& tol = AcGeContext::gTol) const;
  bool isEqualTo(const AcGeVector3d& other, const AcGeTol& tol = AcGeContext::gTol) const;
  AcGePoint3d asPoint() const { return {x, y, z}; }

  AcGeVector3d operator+(const AcGeVector3d& o) const { return {x + o.x, y + o.y, z + o.z}; }
  AcGeVector3d operator-(const AcGeVector3d& o) const { return {x - o.x, y - o.y, z - o.z}; }
  AcGeVector3d operator-() const { return {-x, -y, -z}; }
  AcGeVector3d operator*(double factor) const { return {x * factor, y * factor, z * factor}; }
  AcGeVector3d operator/(double divisor) const { return *this * (1 / divisor); }
  AcGeVector3d& operator*=(double factor) { return *this = *this * factor; }
  AcGeVector3d& operator+=(const AcGeVector3d& o) { return *this = *this + o; }
  bool operator==(const AcGeVector3d& other) const { return isEqualTo(other); }
  bool operator!=(const AcGeVector3d& other) const { return !isEqualTo(other); }

  double x = 0;
  double y = 0;
  double z = 0;
};

AcGeVector3d operator*(double factor, const AcGeVector3d& vector);

/// A 4 by 4 matrix that transforms column vectors; the translation stands in the last column.
class AcGeMatrix3d {
 public:
  AcGeMatrix3d() { setToIdentity(); }
  static const AcGeMatrix3d kIdentity;

  double operator()(unsigned row, unsigned column) const { return entry[row][column]; }
  double& operator()(unsigned row, unsigned column) { return entry[row][column]; }

  AcGeMatrix3d& setToIdentity();
  AcGeMatrix3d& setToTranslation(const AcGeVector3d& vector);
  AcGeMatrix3d& setToRotation(double angle, const AcGeVector3d& axis,
                              const AcGePoint3d& center = AcGePoint3d::kOrigin);
  AcGeMatrix3d& setToScaling(double scale, const AcGePoint3d& center = AcGePoint3d::kOrigin);
  AcGeMatrix3d& setToPlaneToWorld(const AcGeVector3d& normal);
  AcGeMatrix3d& setToWorldToPlane(const AcGeVector3d& normal);
  AcGeMatrix3d& setCoordSystem(const AcGePoint3d& origin, const AcGeVector3d& xAxis,
                               const AcGeVector3d& yAxis, const AcGeVector3d& zAxis);
  void getCoordSystem(AcGePoint3d& origin, AcGeVector3d& xAxis, AcGeVector3d& yAxis,
                      AcGeVector3d& zAxis) const;
  AcGeMatrix3d& setToProduct(const AcGeMatrix3d& a, const AcGeMatrix3d& b);
  static AcGeMatrix3d translation(const AcGeVector3d& vector);
  static AcGeMatrix3d rotation(double angle, const AcGeVector3d& axis,
                               const AcGePoint3d& center = AcGePoint3d::kOrigin);
  static AcGeMatrix3d scaling(double scale, const AcGePoint3d& center = AcGePoint3d::kOrigin);
  static AcGeMatrix3d planeToWorld(const AcGeVector3d& normal);
  static AcGeMatrix3d worldToPlane(const AcGeVector3d& normal);
  /// Throws away nothing: a singular matrix gives itself back unchanged.
  AcGeMatrix3d inverse() const;
  AcGeMatrix3d& invert();
  AcGeMatrix3d operator*(const AcGeMatrix3d& other) const;
  AcGeVector3d translation() const;
  double det() const;
  /// The length of the image of a unit vector along X, for uniform scalings.
  double scale() const;
  bool isEqualTo(const AcGeMatrix3d& other, const AcGeTol& tol = AcGeContext::gTol) const;

  double entry[4][4];
};

class AcGeScale3d {
 public:
  constexpr AcGeScale3d() = default;
  constexpr AcGeScale3d(double x, double y, double z) : sx(x), sy(y), sz(z) {}
  double sx = 1;
  double sy = 1;
  double sz = 1;
};
