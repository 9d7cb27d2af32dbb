#pragma once

#include "module/frame/seam.h"

namespace kovra {

/// The line that tells how many objects were changed.
CString ObjectsChangedText(int count);

/// Prints it on a line of its own.
void PrintObjectsChanged(int count);

/// Regenerates the current drawing, which the writer changed behind the screen's back.
void RegenerateDrawing();

}  // namespace kovra
