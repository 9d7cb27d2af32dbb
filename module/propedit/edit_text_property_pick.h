#pragma once

#include "module/propedit/text_property_set.h"

namespace kovra {

/// Asks for a text, multi-line text or attribute until one is picked, and takes the properties of
/// the mask from it. Esc and Enter leave the set as it was.
void PickTextProperty(TextPropertySet& set, unsigned mask);

/// Takes the properties of the mask from an entity. Any other object, and one that can't be opened,
/// leaves the set as it was; a multi-line text has no width factor.
void ReadTextProperties(TextPropertySet& set, const AcDbObjectId& id, unsigned mask);

}  // namespace kovra
