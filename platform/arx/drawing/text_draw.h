#pragma once

#include "platform/arx/geometry/geometry.h"
#include "platform/arx/geometry/text_metrics.h"
#include "platform/dxf/record_draft.h"

class AcDbDatabase;
class AcGiGeometry;

namespace kovra::arx {

/// Where a TEXT, ATTRIB or ATTDEF stands, from its groups. `text` keeps the characters that the
/// shape looks at: the value, of an ATTDEF its tag.
TextShape readTextShape(const AcDbDatabase& database, const dxf::RecordDraft& draft,
                        std::wstring& text);

/// Draws a line of text in its plane's coordinates; a vertical one character by character.
void drawText(AcGiGeometry& geometry, const TextShape& shape);

/// Draws an MTEXT, line by line.
void drawMText(AcGiGeometry& geometry, const AcDbDatabase& database, const dxf::RecordDraft& draft);

}  // namespace kovra::arx
