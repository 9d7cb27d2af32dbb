#include "module/frame/companions/command_glue_lib.h"

#include "companions/project.h"

bool IsSharedDatabaseMode() {
  const auto project = kovra::companions::currentProject();
  return project && project->sharesDatabases();
}
