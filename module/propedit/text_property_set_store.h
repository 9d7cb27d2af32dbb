#pragma once

#include "module/drawing/text_list.h"
#include "module/propedit/text_property_set.h"

/// The named sets of the current project, each a section "Settings\NAME" of its file
/// EditTextProperty.ini. Names are found without regard to case; the section's name has at most 256
/// characters. Without a project the command line says so, and every operation fails. Each
/// operation reads the file anew, and writes it as a whole or not at all.
namespace kovra {

/// A key that the section lacks, or that holds no valid number or mode, leaves its field alone.
/// @return false, with the set as it was, for an empty or null name and for a set that isn't stored
bool LoadTextPropertySet(TextPropertySet& set, const ACHAR* name);

/// Stores the set, in place of one of the same name; the file is made if it is missing.
/// @return false, with the file as it was, for a name or a value that it can't keep, and for a file
///         that can't be written
bool SaveTextPropertySet(const TextPropertySet& set, const ACHAR* name);

/// @return false, with the file as it was, for a set that isn't stored and for a file that can't be
///         written
bool DeleteTextPropertySet(const ACHAR* name);

/// Appends the names in the order of the file.
/// @return false when the file can't be read
bool ListTextPropertySets(TextList& names);

}  // namespace kovra
