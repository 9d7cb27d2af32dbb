#pragma once

#include "module/frame/companions/project_lib.h"
#include "module/frame/seam.h"

/// Which form of a command or dialog runs depends on the data version of the current project. A
/// project that is missing or can't be read, and a version below the text, all count as below; a
/// version that equals the text passes.
namespace kovra {

/// The current project, which may be not open. The handle is kept until the library is unloaded
/// and stays on the project that it was bound to for as long as that one is open.
ProjectHandle& CurrentProject();

/// Binds `project` to the current project.
/// @param report prints on the command line why it can't be had
/// @return true when there is a current project, it could be fetched and is open
bool FetchCurrentProject(ProjectHandle& project, bool report);

/// The gate over a handle of its own, kept like that of CurrentProject.
bool DataVersionAtLeast(const ACHAR* version);

/// The gate over a fresh handle, so it follows the current project at every call.
bool LiveDataVersionAtLeast(const ACHAR* version);

/// The gate "10.0"; the first answer lasts for as long as the library is loaded.
bool DataVersionAtLeast10();

/// Whether CurrentProject is open and its data version can be read and is at or above `version`.
bool CurrentProjectAtLeast(const ACHAR* version);

/// Whether text styles can be adopted: the registry switch "adoptTextStyle" is set, or the data
/// version is at or above "15.0". Asked anew each time.
bool AdoptTextStyleEnabled();

/// Template of the property copy dialog.
/// @param forced 0, or the id that is wanted; it goes to `recordTemplate` and isn't remembered
/// @param recordTemplate the template field of the dialog's record; set only with a forced id
/// @return the forced id, else the one that the first call without one found for the data version
UINT CopyPropTemplateId(UINT& recordTemplate, UINT forced);

}  // namespace kovra
