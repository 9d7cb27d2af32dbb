// Drawing of objects into a context.
#pragma once
#include <vector>

#include "platform/arx/base/adesk.h"
#include "platform/arx/base/color.h"
#include "platform/arx/base/rx_class.h"
#include "platform/arx/geometry/geometry.h"

class AcGiDrawable;
class AcGiWorldDraw;

enum AcGiArcType { kAcGiArcSimple = 0, kAcGiArcSector, kAcGiArcChord };

/// What drawables draw with, in the coordinates that the model transforms lead from to the world. A
/// context implements it.
class AcGiGeometry {
 public:
  virtual ~AcGiGeometry() = default;
  /// Draws another drawable as part of the present one.
  virtual Adesk::Boolean draw(AcGiDrawable* drawable) const = 0;
  virtual Adesk::Boolean polyline(Adesk::UInt32 count, const AcGePoint3d* points) const = 0;
  /// A filled face; it is closed from the last point to the first. Unless the context fills it is
  /// drawn as its outline.
  virtual Adesk::Boolean polygon(Adesk::UInt32 count, const AcGePoint3d* points) const;
  /// From the start vector's direction on, counter-clockwise as seen from the normal's end; the
  /// angle in radians, negative clockwise. Only simple arcs, open ones, are drawn.
  virtual Adesk::Boolean circularArc(const AcGePoint3d& center, double radius,
                                     const AcGeVector3d& normal, const AcGeVector3d& startVector,
                                     double sweepAngle, AcGiArcType arcType = kAcGiArcSimple) const;
  Adesk::Boolean circle(const AcGePoint3d& center, double radius, const AcGeVector3d& normal) const;
  /// A line of text from the left end of its base line. `width` is the width factor; angles in
  /// radians. The line's up direction is the normal crossed with the direction.
  virtual Adesk::Boolean text(const AcGePoint3d& position, const AcGeVector3d& normal,
                              const AcGeVector3d& direction, double height, double width,
                              double oblique, const ACHAR* message) const = 0;
  /// From now on points are in coordinates that the matrix leads from to those of before.
  virtual Adesk::Boolean pushModelTransform(const AcGeMatrix3d& matrix) = 0;
  virtual Adesk::Boolean popModelTransform() = 0;
};

/// How what follows is drawn, until it is set anew.
class AcGiSubEntityTraits {
 public:
  virtual ~AcGiSubEntityTraits() = default;
  /// By its index, as AcCmEntityColor has it.
  virtual void setColor(Adesk::UInt16 color) = 0;
  virtual void setTrueColor(const AcCmEntityColor& color) = 0;
};

/// The context of a drawing that doesn't depend on a view.
class AcGiWorldDraw {
 public:
  virtual ~AcGiWorldDraw() = default;
  virtual AcGiGeometry& geometry() const = 0;
  /// In a context without traits, what is set has no effect.
  virtual AcGiSubEntityTraits& subEntityTraits() const;
};

/// Something that can be drawn.
class AcGiDrawable : public AcRxObject {
 public:
  /// True when all was drawn.
  Adesk::Boolean worldDraw(AcGiWorldDraw* context) {
    return context != nullptr && subWorldDraw(context);
  }

 protected:
  AcGiDrawable() = default;
  virtual Adesk::Boolean subWorldDraw(AcGiWorldDraw*) { return true; }
};

namespace kovra::arx {

/// A geometry that keeps the model transforms itself.
class TransformedGeometry : public AcGiGeometry {
 public:
  Adesk::Boolean pushModelTransform(const AcGeMatrix3d& matrix) override;
  /// False when nothing was pushed.
  Adesk::Boolean popModelTransform() override;

 protected:
  /// From the present coordinates to the world's.
  const AcGeMatrix3d& toWorld() const { return toWorld_; }

 private:
  AcGeMatrix3d toWorld_;
  std::vector<AcGeMatrix3d> outer_;
};

}  // namespace kovra::arx
