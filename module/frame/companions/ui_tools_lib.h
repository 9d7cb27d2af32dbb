#pragma once

#include "module/frame/seam.h"

/// True when entities of this layer are not to be edited, by the current project's list. The name
/// is in the thread's code page (UTF-8); case doesn't matter. False without a project.
bool IsLayerExcluded(const char* layerName);

/// Takes the entities of such layers out of the selection set; their number.
int RemoveExcludedObjects(const ads_name selection);

/// Writes the drawing file. Failure is said on the command line.
void SaveDatabase(AcDbDatabase* database, const wchar_t* path);
