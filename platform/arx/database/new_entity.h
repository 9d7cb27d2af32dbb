// New entities made of groups.
#pragma once
#include <functional>
#include <string_view>

#include "platform/arx/database/object_id.h"
#include "platform/dxf/record_draft.h"
#include "platform/dxf/structure.h"

class AcDbDatabase;

namespace kovra::arx {

/// Whether a release of the format knows a common group code of entities.
bool isWritten(int code, const dxf::Dialect& dialect);

/// Adds the mark of paper space to the draft of an entity of such a block, if it isn't there.
void markPaperSpace(const AcDbDatabase& database, dxf::BlockNumber block, dxf::RecordDraft& draft);

/// Puts a record behind the last entity of a block: type, handle and owner by the drawing, the rest
/// by `fill`, and the mark of paper space.
AcDbObjectId appendRecord(AcDbDatabase& database, dxf::BlockNumber block, std::string_view type,
                          const std::function<void(dxf::RecordDraft&)>& fill);

}  // namespace kovra::arx
