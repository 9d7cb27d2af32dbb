#include "module/frame/gates.h"

#include "module/frame/reporting.h"

namespace kovra {
namespace {

constexpr UINT kNoCurrentProject = 2802;
constexpr UINT kProjectOutOfReach = 2803;

/// Binds a kept handle to the current project unless it is open.
void bindIfClosed(ProjectHandle& project) {
  if (project.IsOpen()) return;
  ProjectManager& manager = ProjectManager::Instance();
  if (manager.HasCurrentProject()) manager.GetCurrentProject(project);
}

bool readVersion(ProjectHandle& project, DataVersion& version) {
  return project.IsOpen() && project.Info().GetDataVersion(version);
}

bool registrySwitch() {
  HKEY key = nullptr;
  if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Brindlux\\Parameters\\BypassVerChk\\", 0,
                    KEY_QUERY_VALUE, &key) != ERROR_SUCCESS) {
    return false;
  }
  DWORD type = 0;
  DWORD value = 0;
  DWORD size = sizeof(value);
  const auto status = RegQueryValueExW(key, L"adoptTextStyle", nullptr, &type,
                                       reinterpret_cast<BYTE*>(&value), &size);
  RegCloseKey(key);
  return status == ERROR_SUCCESS && type == REG_DWORD && value != 0;
}

}  // namespace

ProjectHandle& CurrentProject() {
  static ProjectHandle project;
  bindIfClosed(project);
  return project;
}

bool FetchCurrentProject(ProjectHandle& project, bool report) {
  ProjectManager& manager = ProjectManager::Instance();
  if (!manager.HasCurrentProject()) {
    if (report) ProjectMessage(kNoCurrentProject);
    return false;
  }
  if (manager.GetCurrentProject(project) && project.IsOpen()) return true;
  if (report) ProjectMessage(kProjectOutOfReach);
  return false;
}

bool DataVersionAtLeast(const ACHAR* version) {
  static ProjectHandle project;
  bindIfClosed(project);
  DataVersion present;
  const DataVersion wanted(version);
  return readVersion(project, present) && present >= wanted;
}

bool LiveDataVersionAtLeast(const ACHAR* version) {
  ProjectHandle project;
  bindIfClosed(project);
  DataVersion present;
  return readVersion(project, present) && !(present < DataVersion(version));
}

bool CurrentProjectAtLeast(const ACHAR* version) {
  DataVersion present;
  return readVersion(CurrentProject(), present) && present >= DataVersion(version);
}

bool DataVersionAtLeast10() {
  static int memo = -1;
  if (memo == -1) {
    DataVersion present;
    memo = readVersion(CurrentProject(), present) && present >= DataVersion("10.0") ? 1 : 0;
  }
  return memo == 1;
}

bool AdoptTextStyleEnabled() {
  return registrySwitch() || LiveDataVersionAtLeast(L"15.0");
}

UINT CopyPropTemplateId(UINT& recordTemplate, UINT forced) {
  static UINT memo = 0;
  if (forced != 0) return recordTemplate = forced;
  if (memo == 0) {
    memo = DataVersionAtLeast(L"12.0") ? 535 : DataVersionAtLeast(L"11.0") ? 533 : 530;
  }
  return memo;
}

}  // namespace kovra
