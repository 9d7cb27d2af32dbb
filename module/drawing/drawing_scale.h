#pragma once

#include "module/frame/seam.h"

namespace kovra {

/// Factor between the paper values of a dialog and drawing units: what the project states for this
/// drawing, else the drawing's dimension scale; 1.0 without a database. At least 0.0001.
double FindDrawingScale(AcDbDatabase* database);

}  // namespace kovra
