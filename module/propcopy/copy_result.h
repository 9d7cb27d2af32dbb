#pragma once

#include "module/frame/seam.h"

namespace kovra {

/// The line that tells how many objects were changed.
CString ObjectsChangedText(int count);

/// Prints it on a line of its own.
void PrintObjectsChanged(int count);

}  // namespace kovra
