#pragma once

#include "module/align/column_layout.h"
#include "module/align/text_values.h"

namespace kovra {

/// Gives the texts their properties and lays them out around the one that stays: what comes behind
/// it in the list stands below it or to its right. Each follows its own rotation. All texts are
/// visible afterwards, also when the base text is none of them or can't be opened.
void PlaceOnBaseText(const AcDbObjectIdArray& ids, const AcDbObjectId& baseId,
                     const TextValues& values, const ACHAR* applySet, const ColumnSpacing& spacing);

}  // namespace kovra
