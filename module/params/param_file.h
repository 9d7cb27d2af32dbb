#pragma once

#include "module/frame/companions/project_lib.h"
#include "module/frame/seam.h"

namespace kovra {

/// The project's file of usual values, and its section of those that texts have.
inline constexpr const ACHAR* kParamFile = L"KovrCad.prm";
inline constexpr const ACHAR* kTextSection = L"TEXT";

/// Loads a parameter file of a project and selects a section.
/// @param exists whether the project has a place for parameter files
/// @param section null: none is selected
/// @param create a file that is missing counts as an empty one, which ConfigFile::Save makes
/// @param report says on the command line when there is no such place
bool OpenParamFile(ConfigFile& file, bool& exists, const ProjectHandle& project, const ACHAR* name,
                   const ACHAR* section, bool create, bool report);

/// The same for callers to whom every failure is alike.
bool OpenParamFileForEdit(ConfigFile& file, const ProjectHandle& project, const ACHAR* name,
                          const ACHAR* section, bool create, bool report);

}  // namespace kovra
