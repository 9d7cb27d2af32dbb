// The position of texts that have an alignment point.
#pragma once
#include "platform/arx/database/record_edit.h"

class AcDbDatabase;

namespace kovra::arx {

/// Whether a TEXT, ATTRIB or ATTDEF hangs on its alignment point.
bool usesAlignmentPoint(const dxf::RecordDraft& draft);

/// Brings group 10 of a text that uses its alignment point in step with it, and adds an alignment
/// point that is missing. A text that is again as the file has it gets the file's position again,
/// whatever font was measured there. Aligned and fitted texts keep their two points. Says whether
/// something changed.
bool alignText(RecordEdit& edit, const AcDbDatabase& database);

/// Puts an alignment point that nothing hangs on back to where the file has it, if a change of the
/// position alone has brought its text back there: what moves the text moves both. Says whether
/// something changed.
/// @param before the record before that change
bool restoreUnusedPoint(RecordEdit& edit, const dxf::RecordDraft& before);

}  // namespace kovra::arx
