#pragma once

#include <string>
#include <string_view>

namespace kovra::test {

/// DXF lines from "CODE VALUE" pieces between bars: "0 LINE|8 0".
std::string groups(std::string_view pieces);

/// A drawing of release 12 with the layers 0, FRAME and KEPT, the locked layer LOCKED, the text
/// style STANDARD, and these entities in its model space.
std::string sheet(const std::string& entities, double dimensionScale = 1);

/// A block reference with these attributes.
std::string blockReference(const std::string& attributes, std::string_view layer = "0");

/// An attribute at (1, 2) with height 2; `further` may move, turn and align it.
std::string attribute(std::string_view tag, std::string_view further = "",
                      std::string_view layer = "0");

/// A text with height 2.
std::string text(std::string_view value, double x, double y, std::string_view further = "");

}  // namespace kovra::test
