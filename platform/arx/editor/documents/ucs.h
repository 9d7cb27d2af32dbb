#pragma once

#include "platform/arx/geometry/geometry.h"

class AcApDocument;

namespace kovra::arx {

/// The current UCS of the document's current space, from the drawing's header.
AcGeMatrix3d ucsToWcs(const AcApDocument& document);
AcGeMatrix3d wcsToUcs(const AcApDocument& document);
AcGePoint3d toWorld(const AcApDocument& document, const AcGePoint3d& ucsPoint);
AcGePoint3d toUcs(const AcApDocument& document, const AcGePoint3d& worldPoint);
/// Makes it the current one; journalled with the drawing. The axes are of length 1 and at a right
/// angle.
void setUcs(AcApDocument& document, const AcGePoint3d& origin, const AcGeVector3d& xAxis,
            const AcGeVector3d& yAxis);

}  // namespace kovra::arx
