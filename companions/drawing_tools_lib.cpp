#include "module/frame/companions/drawing_tools_lib.h"

#include "companions/project.h"
#include "platform/arx/database/database.h"

int GetDrawingScale(double& scale, AcDbDatabase* database, int /*reserved*/) {
  const auto project = kovra::companions::currentProject();
  if (!project || !database || database->path().empty()) return 0;
  const double stated = project->scaleOf(database->path());
  if (stated == 0) return 0;
  scale = stated;
  return 1;
}
