#pragma once

#include "module/frame/seam.h"

/// Asks for entities that pass the filter (null: all), with a prompt in the thread's code page
/// (UTF-8), and fills the ids in the order of the sort code; see SortObjectsByPoints. RTNORM when
/// something was selected, else RTCAN or RTERROR and an empty array.
int SelectObjectsSorted(const char* prompt, AcDbObjectIdArray& ids, const resbuf* filter,
                        int sortCode);

/// Sorts ids and their points together, as far as there are both. Sort code 6: from top to bottom,
/// and from left to right what is at one height, within 0.0001 of the row's first. Points that are
/// equal keep their order. Code 12544, and any other: all keep theirs, the order of the selection.
void SortObjectsByPoints(int sortCode, AcDbObjectIdArray& ids, AcGePoint3dArray& points);

/// True when entities of this layer are not to be edited, by the current project's list. The name
/// is in the thread's code page (UTF-8); case doesn't matter. False without a project.
bool IsLayerExcluded(const char* layerName);

/// Takes the entities of such layers out of the selection set; their number.
int RemoveExcludedObjects(const ads_name selection);

/// Writes the drawing file; at the latest at the end of the command it lies on the disk. Failure is
/// said on the command line.
void SaveDatabase(AcDbDatabase* database, const wchar_t* path);
