#include "module/frame/companions/project_lib.h"

#include <filesystem>

#include "companions/project.h"
#include "platform/win/base/run_settings.h"

namespace {

namespace win = kovra::win;
using kovra::companions::currentProject;
using kovra::companions::Project;

}  // namespace

struct ProjectInfo::Binding {
  std::shared_ptr<Project> project;
  std::uint64_t generation = 0;

  bool isOpen() const { return project && generation == win::runSettings().projectGeneration; }
};

bool ProjectInfo::GetDataVersion(DataVersion& version) const {
  if (!binding_ || !binding_->isOpen()) return false;
  const DataVersion stated(binding_->project->dataVersion().c_str());
  if (!(DataVersion() < stated)) return false;
  version = stated;
  return true;
}

ProjectHandle::ProjectHandle() = default;
ProjectHandle::ProjectHandle(const ProjectHandle&) = default;
ProjectHandle& ProjectHandle::operator=(const ProjectHandle&) = default;
ProjectHandle::~ProjectHandle() = default;

bool ProjectHandle::IsOpen() const {
  return info_.binding_ && info_.binding_->isOpen();
}

bool ProjectHandle::ResolveParamFile(ParamFileRef& file) const {
  if (!IsOpen()) return false;
  file.folder_ = info_.binding_->project->folder().native();
  return true;
}

ProjectManager::ProjectManager() = default;

ProjectManager& ProjectManager::Instance() {
  static ProjectManager manager;
  return manager;
}

bool ProjectManager::HasCurrentProject() const {
  return !win::runSettings().projectFolder.empty();
}

bool ProjectManager::GetCurrentProject(ProjectHandle& handle) {
  handle.info_.binding_.reset();
  std::shared_ptr<Project> project = currentProject();
  if (!project) return false;
  handle.info_.binding_ = std::make_shared<const ProjectInfo::Binding>(
      ProjectInfo::Binding{std::move(project), win::runSettings().projectGeneration});
  return true;
}
