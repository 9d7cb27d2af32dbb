#include "module/frame/companions/project_tools_lib.h"

#include <sys/stat.h>
#include <unistd.h>

#include "companions/project.h"
#include "companions/shared_databases.h"
#include "platform/win/base/wide_text.h"

using kovra::companions::currentProject;

namespace {

constexpr mode_t kWriteBits = S_IWUSR | S_IWGRP | S_IWOTH;

// What is marked read-only is that for the superuser, too.
bool takesWrites(const std::filesystem::path& path, mode_t type) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && (status.st_mode & S_IFMT) == type &&
         (status.st_mode & kWriteBits) != 0 && ::access(path.c_str(), W_OK) == 0;
}

// Saving puts a new file in the old one's place, so the folder must take one.
bool isWritable(const std::filesystem::path& file) {
  return takesWrites(file, S_IFREG) && takesWrites(file.parent_path(), S_IFDIR);
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
