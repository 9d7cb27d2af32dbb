// Drawing of objects into a context.
#pragma once
#include "platform/arx/adesk.h"
#include "platform/arx/geometry.h"
#include "platform/arx/rx_class.h"

class AcGiDrawable;
class AcGiWorldDraw;

/// What drawables draw with; in world coordinates. A context implements it.
class AcGiGeometry {
 public:
  virtual ~AcGiGeometry() = default;
  /// Draws another drawable as part of the present one.
  virtual Adesk::Boolean draw(AcGiDrawable* drawable) const = 0;
  virtual Adesk::Boolean polyline(Adesk::UInt32 count, const AcGePoint3d* points) const = 0;
  /// A line of text from the left end of its base line. `width` is the width factor; angles in
  /// radians.
  virtual Adesk::Boolean text(const AcGePoint3d& position, const AcGeVector3d& normal,
                              const AcGeVector3d& direction, double height, double width,
                              double oblique, const ACHAR* message) const = 0;
};

/// The context of a drawing that doesn't depend on a view.
class AcGiWorldDraw {
 public:
  virtual ~AcGiWorldDraw() = default;
  virtual AcGiGeometry& geometry() const = 0;
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
