// What a record draws, without opening its object.
#pragma once
#include "platform/arx/geometry/geometry.h"
#include "platform/dxf/record_draft.h"
#include "platform/dxf/record_kind.h"

class AcDbDatabase;
class AcGiGeometry;

namespace kovra::arx {

/// Draws the record in the coordinates of its block or space. `draft` must be the record's. False
/// for a kind that it doesn't draw; block references and dimensions are among them: what they show
/// are the entities of a block (see drawing_walk.h).
bool drawRecord(const AcDbDatabase& database, dxf::RecordIndex record,
                const dxf::RecordDraft& draft, AcGiGeometry& geometry);

}  // namespace kovra::arx
