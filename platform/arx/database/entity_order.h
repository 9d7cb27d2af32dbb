#pragma once

#include <functional>

#include "platform/dxf/record_kind.h"
#include "platform/dxf/structure.h"

class AcDbDatabase;

namespace kovra::arx {

/// The space that new entities go to and prompts see.
dxf::BlockNumber currentSpace(const AcDbDatabase& database);
/// The entities of the current space in drawing order, oldest first, without attributes.
void forEachEntity(const AcDbDatabase& database, const std::function<void(dxf::RecordIndex)>& work);
/// The same of every space of the drawing, model space first.
void forEachEntityOfAllSpaces(const AcDbDatabase& database,
                              const std::function<void(dxf::RecordIndex)>& work);
/// The block reference that a record is an attribute of; kNoRecord for what is none or erased.
dxf::RecordIndex attributeOwner(const AcDbDatabase& database, dxf::RecordIndex record);
/// Whether the record is an entity of the current space and of nothing else.
bool isEntityOfCurrentSpace(const AcDbDatabase& database, dxf::RecordIndex record);

}  // namespace kovra::arx
