#pragma once

#include "module/frame/seam.h"

namespace kovra {

/// Database of the current document; null when no document is open. Asked for anew at each use,
/// never kept.
AcDbDatabase* CurrentDatabase();

}  // namespace kovra
