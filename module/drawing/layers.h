#pragma once

#include <vector>

#include "module/drawing/text_list.h"
#include "module/frame/seam.h"

/// The layer table of the current database. Failure is a result; nothing is shown.
namespace kovra {

/// @return 0, or -1 when the table can't be opened or lacks the name
int GLayerId(const ACHAR* name, AcDbObjectId& id);

/// @return 1 when the table has the name, else 0
int GLayerExists(const ACHAR* name);

/// Like GLayerId, but the record must open too.
bool GLayerIdAt(AcDbObjectId& id, const ACHAR* name);

/// Whether texts can be placed on a layer of this name: one that exists, or a name that a new one
/// may have.
bool CanBeLayer(const ACHAR* name);

/// Whether a layer is locked; null or an empty name stands for the current layer. False for a
/// layer that isn't there.
bool IsLayerLocked(const ACHAR* name);

/// Appends the names of all layers in table order; layers that can't be opened are left out.
/// @param lockedFlags null, or gets 1 for a locked layer and else 0, in the order of the names
void CollectLayers(TextList& names, std::vector<UINT>* lockedFlags = nullptr);

}  // namespace kovra
