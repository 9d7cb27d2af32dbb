// Which property of an entity an element of a list means, and what values it may have.
#pragma once
#include <span>
#include <string_view>

#include "platform/arx/base/ads.h"
#include "platform/arx/database/record_edit.h"

class AcDbDatabase;

namespace kovra::arx {

/// Elements that name, place or divide the entity and aren't properties: -1, 0, 5, 100, 330 and the
/// like.
bool isStructural(int type);
/// The end of a 102 group or of extended data that begins at `element`, or `element` itself.
const resbuf* skipAppGroup(const resbuf* element);

/// The subclasses that an entity type is made of, the common one first; empty for types that can't
/// be made.
std::span<const std::string_view> subclassesOf(std::string_view type);
/// Where a code belongs in an entity of this type; an empty subclass if the type has no such code.
Property propertyOf(std::string_view type, int code);
/// The first code that an entity of this type must have and the list lacks; 0 if it is complete.
int missingGroup(std::string_view type, const resbuf* list);

/// Whether the element's value is allowed: finite reals, heights, radii and width factors above 0,
/// modes in range, names that the tables have. A layer may be new, but must be a possible name.
bool isAllowed(const AcDbDatabase& database, std::string_view type, const resbuf& element);

}  // namespace kovra::arx
