#pragma once

#include <vector>

#include "platform/arx/geometry/geometry.h"
#include "platform/dxf/record_draft.h"

class AcDbDatabase;

namespace kovra::arx {

/// The box of a TEXT, ATTRIB or ATTDEF by the text metrics: five points in the coordinates of its
/// block or space, the last one the first again. An ATTDEF shows its tag.
std::vector<AcGePoint3d> textOutline(const AcDbDatabase& database, const dxf::RecordDraft& draft);

/// The same of an MTEXT.
std::vector<AcGePoint3d> mtextOutline(const AcDbDatabase& database, const dxf::RecordDraft& draft);

}  // namespace kovra::arx
