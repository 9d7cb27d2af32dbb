// The position of texts that have an alignment point.
#pragma once
#include "platform/arx/database/record_edit.h"

class AcDbDatabase;

namespace kovra::arx {

/// Brings group 10 of a TEXT, ATTRIB or ATTDEF in step with its alignment point, and adds an
/// alignment point that is missing. A text that is again as the file has it gets the file's
/// position again, whatever font was measured there. Aligned and fitted texts keep their two
/// points. Says whether something changed.
/// @param record whose groups are edited; above all others for one that the database hasn't yet
bool alignText(RecordEdit& edit, const AcDbDatabase& database, dxf::RecordIndex record);

/// Puts an alignment point that nothing hangs on back to where the file has it, if a change of the
/// position alone has brought its text back there: what moves the text moves both. Says whether
/// something changed.
/// @param before the record before that change
bool restoreUnusedPoint(RecordEdit& edit, const dxf::RecordDraft& before);

}  // namespace kovra::arx
