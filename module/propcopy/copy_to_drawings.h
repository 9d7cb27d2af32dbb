#pragma once

#include "module/propcopy/copy_job.h"
#include "module/propcopy/drawing_lists.h"

namespace kovra {

/// Carries the job out in the Model Space of each drawing and says which are left out, which one is
/// at work and how many objects were changed. Drawings that are open are changed there and stay
/// unsaved; the others are saved when something in them changed. One that can't be read is passed
/// over.
void CopyToDrawings(const CopyJob& job, const DrawingLists& lists);

}  // namespace kovra
