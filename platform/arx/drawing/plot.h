// Drawing a whole space from its records, without opening objects.
#pragma once
#include <cstddef>
#include <map>
#include <string>

#include "platform/dxf/structure.h"

class AcDbDatabase;
class AcGiWorldDraw;

namespace kovra::arx {

/// How many entities there are of a type, by its name in the file.
using KindCounts = std::map<std::string, std::size_t>;

/// Draws the entities of a space in drawing order, with their colors; what is hidden is left out.
/// Gives the types that it doesn't draw; an entity of a block counts once for each reference that
/// shows it.
KindCounts plotSpace(const AcDbDatabase& database, dxf::BlockNumber space, AcGiWorldDraw& context);

}  // namespace kovra::arx
