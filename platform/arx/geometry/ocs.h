// The coordinate system of a planar entity, from its normal (group 210).
#pragma once
#include "platform/arx/geometry/geometry.h"

namespace kovra::arx {

/// The X axis that the arbitrary-axis rule of the drawing format gives a normal: the world's Y
/// crossed with the normal when the normal is within 1/64 of the world's Z in both x and y, else
/// the world's Z crossed with it. The normal needn't have length 1.
AcGeVector3d ocsXAxis(const AcGeVector3d& normal);
AcGeMatrix3d ocsToWcs(const AcGeVector3d& normal);
AcGeMatrix3d wcsToOcs(const AcGeVector3d& normal);
AcGePoint3d ocsToWcs(const AcGePoint3d& point, const AcGeVector3d& normal);
AcGePoint3d wcsToOcs(const AcGePoint3d& point, const AcGeVector3d& normal);

}  // namespace kovra::arx
