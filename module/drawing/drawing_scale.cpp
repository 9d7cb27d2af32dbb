#include "module/drawing/drawing_scale.h"

#include <algorithm>

#include "module/frame/companions/drawing_tools_lib.h"

namespace kovra {

double FindDrawingScale(AcDbDatabase* database) {
  constexpr double kSmallest = 0.0001;
  double scale = 1.0;
  if (database != nullptr && GetDrawingScale(scale, database, 0) == 0) {
    scale = database->dimscale();
  }
  return std::max(scale, kSmallest);
}

}  // namespace kovra
