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

/// What a plot left out.
struct PlotGaps {
  KindCounts missing;  ///< types that have no picture; one of a block counts for each reference
  std::string inPart;  ///< what is drawn in part only, see DrawingWalk::unfinished()
};

/// Draws the entities of a space in drawing order, with their colors; what is hidden is left out.
PlotGaps plotSpace(const AcDbDatabase& database, dxf::BlockNumber space, AcGiWorldDraw& context);

}  // namespace kovra::arx
