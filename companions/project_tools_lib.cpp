#include "module/frame/companions/project_tools_lib.h"

#include <sys/stat.h>
#include <unistd.h>

#include "companions/project.h"
#include "companions/shared_databases.h"
#include "platform/win/base/wide_text.h"

using kovra::companions::currentProject;

namespace {

// A file marked read-only is that for the superuser, too. Saving puts a new file in the old one's
// place, so the folder must take one.
bool isWritable(const std::filesystem::path& file) {
  struct stat status {};
  return ::stat(file.c_str(), &status) == 0 && (status.st_mode & 0222) != 0 &&
         ::access(file.c_str(), W_OK) == 0 && ::access(file.parent_path().c_str(), W_OK) == 0;
}

}  // namespace

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
  return drawing->blockedByProject() || !isWritable(drawing->identity());
}

AcDbDatabase* OpenSharedDatabase(const wchar_t* path) {
  return path ? kovra::companions::openShared(kovra::win::toUtf8(path)) : nullptr;
}

void ReleaseSharedDatabase(AcDbDatabase* database) {
  kovra::companions::releaseShared(database);
}
