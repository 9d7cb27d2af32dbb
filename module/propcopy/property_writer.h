#pragma once

#include <span>

#include "module/frame/seam.h"
#include "module/propcopy/property_settings.h"
#include "module/propcopy/tag_patterns.h"

/// Sets layer, height, width factor, rotation and alignment of attributes and attribute definitions
/// whose tag matches one of the patterns. Nothing is shown; what can't be opened or written is
/// passed over.
namespace kovra {

/// @param text an attribute or attribute definition, open for read. It stays open, and may be open
///        for write afterwards.
/// @return whether at least one property was written
bool WriteAttributeProperties(AcDbText* text, const TagPatterns& patterns,
                              const PropertySettings& settings);

/// @param ids block references, whose attributes are written, and attribute definitions of one
///        database. Its layers are unlocked meanwhile.
/// @return number of these objects in which something was written
int WriteObjectsProperties(std::span<const AcDbObjectId> ids, const TagPatterns& patterns,
                           const PropertySettings& settings);

/// The whole Model Space. From data version "7.00" on, entities on excluded layers are passed over.
/// @return number of objects in which something was written; -1 when there is no Model Space
int WriteDatabaseProperties(AcDbDatabase* database, const TagPatterns& patterns,
                            const PropertySettings& settings);

}  // namespace kovra
