#pragma once

#include "module/propcopy/copy_job.h"

namespace kovra {

/// Carries the job out in the current drawing, in any of its spaces, and says how many objects were
/// changed. Nothing is said when there is nothing to work on.
/// @param wholeDrawing all block references and attribute definitions, else those that the user
///        selects
void CopyToSelection(const CopyJob& job, bool wholeDrawing);

}  // namespace kovra
