#include <cmath>

#include "platform/arx/gi.h"
#include "platform/arx/ocs.h"
#include "platform/arx/text.h"

Adesk::Boolean AcDbText::subWorldDraw(AcGiWorldDraw* context) {
  if (visibility() == AcDb::kInvisible) return true;
  const AcGeMatrix3d plane = kovra::arx::ocsToWcs(normal());
  AcGeVector3d direction(std::cos(rotation()), std::sin(rotation()), 0);
  direction.transformBy(plane);
  return context->geometry().text(position(), normal(), direction, height(), widthFactor(),
                                  oblique(), textStringConst());
}
