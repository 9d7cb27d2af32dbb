#pragma once

#include "module/propedit/text_property_set.h"

namespace kovra {

/// Gives the set's properties to texts, multi-line texts and attributes, selection after selection,
/// until the user selects nothing. Entities on locked layers are reached too. What a setter refuses
/// ends the changes of that entity; nothing is said of it.
void ApplyLoop(const TextPropertySet& set);

/// Changes the attachment of a multi-line text that is open for write, and moves its location so
/// that the text stays where it is. Numbers that are no attachment change nothing.
void ChangeMTextAttachment(AcDbMText& text, int attachment);

}  // namespace kovra
