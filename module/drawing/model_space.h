#pragma once

#include <span>

#include "module/frame/seam.h"

namespace kovra {

/// Whether the drawing has a Model Space that entities can be appended to.
/// @param database null for that of the current document
bool HasModelSpace(AcDbDatabase* database);

/// Appends entities to the Model Space on a layer. The entities pass to the database; one that
/// can't be appended is deleted.
/// @param database null for that of the current document
void AppendToModelSpace(AcDbDatabase* database, std::span<AcDbEntity* const> entities,
                        const ACHAR* layer);

}  // namespace kovra
