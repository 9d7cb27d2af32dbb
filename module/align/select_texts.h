#pragma once

#include "module/drawing/text_list.h"
#include "module/frame/seam.h"

namespace kovra {

/// The texts to align, from top to bottom and at one height from left to right: the implied
/// selection, or what the user selects. Texts on locked layers are left out, and the user is asked
/// again when no other remains.
/// @return false when nothing is selected
bool SelectAlignTexts(AcDbObjectIdArray& ids);

/// All text styles of the working database that have a name, in table order.
void CollectTextStyles(TextList& names);

/// The text that stays in its place, of `ids`. False when the user cancels.
bool PickBaseText(const AcDbObjectIdArray& ids, AcDbObjectId& baseId);

}  // namespace kovra
