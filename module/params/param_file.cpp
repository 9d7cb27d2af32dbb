#include "module/params/param_file.h"

#include "module/frame/reporting.h"

namespace kovra {
namespace {

constexpr UINT kParamFileMissing = 2804;
constexpr unsigned kCreationFlags = 0xff004;

}  // namespace

bool OpenParamFile(ConfigFile& file, bool& exists, const ProjectHandle& project, const ACHAR* name,
                   const ACHAR* section, bool create, bool report) {
  exists = false;
  ParamFileRef place;
  if (!project.ResolveParamFile(place) || !place.Exists()) {
    if (report) ProjectMessage(kParamFileMissing);
    return false;
  }
  exists = true;
  if (!place.Load(file, name) && (!create || !place.LoadOrCreate(file, name, kCreationFlags, 0))) {
    return false;
  }
  return section == nullptr || file.SelectSection(section);
}

bool OpenParamFileForEdit(ConfigFile& file, const ProjectHandle& project, const ACHAR* name,
                          const ACHAR* section, bool create, bool report) {
  bool exists = false;
  return OpenParamFile(file, exists, project, name, section, create, report);
}

}  // namespace kovra
