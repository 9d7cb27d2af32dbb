#include "module/frame/companions/project_tools_lib.h"

#include <unistd.h>

#include "companions/project.h"
#include "companions/shared_databases.h"
#include "companions/whole_file.h"
#include "platform/win/wide_text.h"

using kovra::companions::currentProject;
using kovra::companions::isWritable;

ProjectDrawings* CurrentDrawings() {
  const auto project = currentProject();
  return project ? &project->drawings() : nullptr;
}

ProjectDrawing* DrawingAt(ProjectDrawings* drawings, int index) {
  if (!drawings || index < 0 || static_cast<std::size_t>(index) >= drawings->count())
    return nullptr;
  return &drawings->at(static_cast<std::size_t>(index));
}

ProjectDrawing* DrawingByPath(ProjectDrawings* drawings, const wchar_t* path) {
  if (!drawings || !path || !*path) return nullptr;
  return &drawings->find(kovra::win::toUtf8(path));
}

bool IsDrawingBlocked(ProjectDrawing* drawing) {
  if (!drawing) return false;
  // Saving puts a new file in the old one's place, so the folder must take one.
  return drawing->blockedByProject() || !isWritable(drawing->identity()) ||
         ::access(drawing->identity().parent_path().c_str(), W_OK) != 0;
}

AcDbDatabase* OpenSharedDatabase(const wchar_t* path) {
  return path ? kovra::companions::openShared(kovra::win::toUtf8(path)) : nullptr;
}

void ReleaseSharedDatabase(AcDbDatabase* database) {
  kovra::companions::releaseShared(database);
}
